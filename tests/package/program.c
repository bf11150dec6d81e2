/* An application in plain C: uses the library through its public header alone. */
#include <vxsign/vxsign.h>

#include <stdio.h>
#include <string.h>

_Static_assert(sizeof(vxApiConfig) == 192, "the configuration is a binary contract");

static int failures = 0;

static void Check(int good, const char* what)
{
    if (!good) {
        fprintf(stderr, "wrong: %s\n", what);
        ++failures;
    }
}

static unsigned opened = 0;

static void CountOpen(vxApiConfig* config)
{
    (void)config;
    ++opened;
}

int main(void)
{
    vxApiConfig config;
    const vxApiConfig* live = vxTLSGet(VX_RECORD_CONFIGURATION);
    char text[8];

    Check(strcmp(vxAPIVersion(), "2.3.10 2020-05-13") == 0, "vxAPIVersion");
    Check(strcmp(vxErrorDesc(VX_COMMUNICATION), "Communication Error!") == 0, "vxErrorDesc");
    Check(live != NULL && live->initialised == 0, "a thread begins without configuration");
    Check(vxBlackScreen() == VX_COMMUNICATION, "a command without configuration");

    memset(&config, 0, sizeof config);
    config.kind = VX_CHANNEL_TCP;
    strcpy(config.host, "127.0.0.256"); /* no address: the channel does not open */
    config.port = 9520;
    config.dataSize = 63;
    config.onOpen = CountOpen;
    Check(vxInitAPI(&config) == VX_OK, "vxInitAPI");
    Check(vxBlackScreen() == VX_COMMUNICATION && opened == 1, "a command that cannot open its channel");
    Check(live->dataSize == 768 && live->retries == 3 && live->timeoutMs == 3000, "values out of range put right");
    Check(vxPrintBuf(text, sizeof text, "%s %u", "sign", 4242u) == VX_OK && strcmp(text, "sign 42") == 0, "vxPrintBuf");
    Check(vxChkSum("123456789", 0, 9, 1) == 0x6E90, "vxChkSum");
    Check(vxFreeAPI() == VX_OK && live->initialised == 1, "vxFreeAPI does nothing");
    return failures == 0 ? 0 : 1;
}
