/* Sends a file to a sign and tells how far it is; Ctrl-C ends it: file HOST PORT LOCAL PATH
 *
 *     cc file.c $(pkg-config --cflags --libs vxsign) -o file
 *     ./file 127.0.0.1 9520 hello.nmg 'D:\T\HELLO.NMG'
 */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <vxsign/vxsign.h>

/* The record of this thread, which the library reads: whoever sets its abortFlag ends what runs. */
static volatile uint32_t* abortFlag;

static void OnInterrupt(int number)
{
    (void)number;
    *abortFlag = 1;
}

static void ShowProgress(vxApiConfig* config, uint32_t reserved, uint32_t percent)
{
    (void)config;
    (void)reserved;
    printf("\r%3u %%", (unsigned)percent);
    fflush(stdout);
}

int main(int count, char** arguments)
{
    vxApiConfig config = {.kind = VX_CHANNEL_UDP, .retries = 3, .timeoutMs = 1000, .onProgress = ShowProgress};
    vxApiConfig* live;
    uint32_t result;
    if (count != 5) {
        fprintf(stderr, "usage: file HOST PORT LOCAL PATH\n");
        return 2;
    }
    snprintf(config.host, sizeof config.host, "%s", arguments[1]);
    config.port = (uint32_t)atoi(arguments[2]);
    if (vxInitAPI(&config) != VX_OK || (live = vxTLSGet(VX_RECORD_CONFIGURATION)) == NULL) {
        fprintf(stderr, "out of memory\n");
        return 1;
    }
    abortFlag = &live->abortFlag; /* vxInitAPI has copied the record */
    signal(SIGINT, OnInterrupt);
    result = vxWriteSpecFileEx(arguments[4], arguments[3]);
    /* A last try that is cut short ends like any other silence. */
    if (result != VX_OK && *abortFlag != 0)
        result = VX_ABORTED;
    printf("\n%s\n", vxErrorDesc(result));
    return result != VX_OK;
}
