/* Sends a file to a sign, telling how far it is: send HOST PORT FILE PATH, the path such as D:\T\HELLO.NMG */
#include <stdio.h>
#include <stdlib.h>
#include <vxsign/vxsign.h>

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
    uint32_t result;
    if (count != 5) {
        fprintf(stderr, "usage: send HOST PORT FILE PATH\n");
        return 2;
    }
    snprintf(config.host, sizeof config.host, "%s", arguments[1]);
    config.port = (uint32_t)atoi(arguments[2]);
    vxInitAPI(&config);
    result = vxWriteSpecFileEx(arguments[4], arguments[3]);
    printf("\n%s\n", vxErrorDesc(result));
    return result != VX_OK;
}
