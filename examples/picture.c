/* Shows a picture file on a sign, in one call: picture HOST PORT FILE
 *
 *     cc picture.c $(pkg-config --cflags --libs vxsign) -o picture
 *
 * The file goes over as it is: each sign knows BMP, some know more.
 */
#include <stdio.h>
#include <stdlib.h>
#include <vxsign/vxsign.h>

/* The whole file, in memory of its own; null when it cannot be read. */
static uint8_t* ReadFile(const char* path, uint32_t* size)
{
    FILE* file = fopen(path, "rb");
    uint8_t* bytes = NULL;
    *size = vxOSGetFileSize(path);
    if (file != NULL && *size != 0)
        bytes = malloc(*size);
    if (bytes != NULL && fread(bytes, 1, *size, file) != *size) {
        free(bytes);
        bytes = NULL;
    }
    if (file != NULL)
        fclose(file);
    return bytes;
}

int main(int count, char** arguments)
{
    uint32_t size;
    uint32_t result;
    uint8_t* picture;
    if (count != 4) {
        fprintf(stderr, "usage: picture HOST PORT FILE\n");
        return 2;
    }
    picture = ReadFile(arguments[3], &size);
    if (picture == NULL) {
        fprintf(stderr, "%s cannot be read\n", arguments[3]);
        return 1;
    }
    /* Mode '0' is at once, for 10 seconds, on the sign's drive of choice. */
    result = vxShowPic(picture, size, '0', 10, arguments[1], (uint32_t)atoi(arguments[2]), 0);
    free(picture);
    printf("%s\n", vxErrorDesc(result));
    return result != VX_OK;
}
