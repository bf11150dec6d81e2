/* Makes a play list of the files in a folder and sends it with them: playlist HOST PORT FOLDER NAME...
 *
 *     cc playlist.c $(pkg-config --cflags --libs vxsign) -o playlist
 *     ./playlist 127.0.0.1 9520 . hello.nmg logo.bmp
 *
 * The list stays in the folder, as playlist.xml.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vxsign/vxsign.h>

static int failures;

/* A failed command has level 3, a try that will be repeated another. */
static void OnLog(vxApiConfig* config, const char* source, uint32_t line, uint32_t level, const char* message)
{
    (void)config;
    (void)source;
    (void)line;
    if (level == 3 && strcmp(message, vxErrorDesc(VX_FILE_NOT_EXISTS)) != 0) { /* a sign without a list of files */
        fprintf(stderr, "%s\n", message);
        ++failures;
    }
}

/* Adds a file at the end of the list: it plays once in each turn, a picture for 10 seconds. */
static uint32_t Add(const char* folder, const char* name)
{
    char root[] = "/";
    char local[1024];
    char path[64];
    uint8_t type = 0;
    uint32_t result;
    VXPLAYLIST_FILE_INFO* info = calloc(1, sizeof *info);
    if (info == NULL)
        return VX_CALL_2;
    snprintf(local, sizeof local, "%s/%s", folder, name);
    result = vxMakeSignPath(local, path, sizeof path, 'D', &type, NULL);
    snprintf(info->fileName, sizeof info->fileName, "%s", name);
    snprintf(info->pcFileName, sizeof info->pcFileName, "%s", name);
    info->playTimes = 1;
    info->Drive = 'D';
    info->Type = (char)type;
    info->PicStaySec = 10;
    if (result == VX_OK)
        return vxPLAddFile(root, UINT16_MAX, info); /* the list has the record now */
    free(info);
    return result;
}

static uint32_t MakeList(char* folder, char** names, int count)
{
    char file[] = "playlist.xml";
    char root[] = "/";
    uint32_t result = vxPLInit(folder, file);
    if (result == VX_OK)
        result = vxPLDelItem(root, 0, UINT16_MAX); /* what a former list had */
    for (int i = 0; i < count && result == VX_OK; ++i)
        result = Add(folder, names[i]);
    return result == VX_OK ? vxPLSave() : result;
}

int main(int count, char** arguments)
{
    vxApiConfig config = {.kind = VX_CHANNEL_UDP, .retries = 3, .timeoutMs = 1000, .onLog = OnLog};
    uint32_t result;
    if (count < 5) {
        fprintf(stderr, "usage: playlist HOST PORT FOLDER NAME...\n");
        return 2;
    }
    snprintf(config.host, sizeof config.host, "%s", arguments[1]);
    config.port = (uint32_t)atoi(arguments[2]);
    vxInitAPI(&config);
    result = MakeList(arguments[3], arguments + 4, count - 4);
    if (result == VX_OK)
        result = vxPLSendToLED(1); /* the files that the sign does not have go first */
    if (result == VX_OK && failures != 0)
        result = VX_FAILED_OPERATION; /* a file that did not arrive is passed over */
    printf("%s\n", vxErrorDesc(result));
    return result != VX_OK;
}
