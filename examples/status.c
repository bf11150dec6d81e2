/* Prints how a sign is, as JSON: status HOST PORT
 *
 *     cc status.c $(pkg-config --cflags --libs vxsign) -o status
 *
 * Records go to callbacks, on the calling thread, and are valid during the call of the callback alone.
 */
#include <stdio.h>
#include <stdlib.h>
#include <vxsign/vxsign.h>

/* A text of the sign: what is not ASCII, or means something in JSON, becomes an escape. */
static void PrintText(const char* text)
{
    putchar('"');
    for (; *text != '\0'; ++text) {
        const unsigned char byte = (unsigned char)*text;
        if (byte < 0x20 || byte > 0x7E || byte == '"' || byte == '\\')
            printf("\\u%04x", (unsigned)byte);
        else
            putchar(byte);
    }
    putchar('"');
}

/* Temperatures are signed. */
static uint32_t PrintStatus(uint32_t user, const vxStatusRecord* status, const uint8_t* beacon, const char* message)
{
    (void)user;
    (void)beacon;
    printf(",\n  \"stateCode\": %u,\n", (unsigned)status->Mode);
    printf("  \"insideC\": %d,\n  \"outsideC\": %d,\n", (int8_t)status->Value0, (int8_t)status->Value1);
    printf("  \"hottestTileC\": %d,\n  \"humidityPercent\": %u,\n", (int8_t)status->Value2, (unsigned)status->Value3);
    printf("  \"playing\": ");
    PrintText(message);
    return 0;
}

static int warnings;

static uint32_t PrintWarning(const vxWaringReportRow* row)
{
    printf("%s\n    {\"what\": ", warnings++ == 0 ? "" : ",");
    PrintText(row->Name);
    printf(", \"value\": ");
    PrintText(row->Value);
    printf("}");
    return 0;
}

/* A sign without a report has nothing to warn of. */
static uint32_t PrintSign(void)
{
    uint32_t result = vxReadStatusInfo("", 0, 0, PrintStatus, 0, 0, 0);
    if (result != VX_OK)
        return result;
    printf(",\n  \"warnings\": [");
    result = vxReadWaringReport(PrintWarning);
    printf("]");
    return result == VX_FILE_NOT_EXISTS ? (uint32_t)VX_OK : result;
}

int main(int count, char** arguments)
{
    vxApiConfig config = {.kind = VX_CHANNEL_UDP, .retries = 3, .timeoutMs = 1000};
    uint32_t result;
    if (count != 3) {
        fprintf(stderr, "usage: status HOST PORT\n");
        return 2;
    }
    snprintf(config.host, sizeof config.host, "%s", arguments[1]);
    config.port = (uint32_t)atoi(arguments[2]);
    vxInitAPI(&config);
    printf("{\n  \"sign\": ");
    PrintText(arguments[1]);
    result = PrintSign();
    if (result != VX_OK)
        printf(",\n  \"error\": \"%s\"", vxErrorDesc(result));
    printf("\n}\n");
    return result != VX_OK;
}
