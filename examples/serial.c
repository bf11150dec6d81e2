/* Reaches a sign on a serial line: serial DEVICE BAUD; without arguments it lists the serial ports of this PC.
 *
 *     cc serial.c $(pkg-config --cflags --libs vxsign) -o serial
 *     ./serial /dev/ttyUSB0 115200
 *
 * DEVICE is a path, a name below /dev, or COM1 and so on; 15 characters at most.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vxsign/vxsign.h>

static int ListPorts(void)
{
    char ports[1025] = {0};
    vxEnumSerial(ports, sizeof ports - 1);
    for (char* name = strtok(ports, "|"); name != NULL; name = strtok(NULL, "|"))
        printf("%s\n", name);
    return 0;
}

int main(int count, char** arguments)
{
    vxApiConfig config = {.kind = VX_CHANNEL_SERIAL, .retries = 3, .timeoutMs = 1000};
    uint16_t first;
    uint16_t second;
    uint32_t third;
    uint32_t result;
    if (count == 1)
        return ListPorts();
    if (count != 3 || strlen(arguments[1]) >= sizeof config.serialName) {
        fprintf(stderr, "usage: serial DEVICE BAUD\n");
        return 2;
    }
    snprintf(config.serialName, sizeof config.serialName, "%s", arguments[1]);
    config.baudRate = (uint32_t)atoi(arguments[2]);
    vxInitAPI(&config);
    result = vxConnectTest(&first, &second, &third); /* a sign of life; the line is open during the call alone */
    if (result != VX_OK) {
        fprintf(stderr, "%s: %s\n", arguments[1], vxErrorDesc(result));
        return 1;
    }
    printf("the sign answers: %u %u %u\n", (unsigned)first, (unsigned)second, (unsigned)third);
    return 0;
}
