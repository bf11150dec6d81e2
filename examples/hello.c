/* Shows a text on a sign, in one call: hello HOST PORT [TEXT]
 *
 *     cc hello.c $(pkg-config --cflags --libs vxsign) -o hello
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vxsign/vxsign.h>

int main(int count, char** arguments)
{
    const char* text = count > 3 ? arguments[3] : "HELLO 42";
    uint32_t result;
    if (count < 3) {
        fprintf(stderr, "usage: hello HOST PORT [TEXT]\n");
        return 2;
    }
    /* Font, colour and mode are codes of the sign; 5 seconds; on its drive of choice; played at once. */
    result = vxShowMsg((const uint8_t*)text, (uint32_t)strlen(text), '1', '1', '0', 5, arguments[1],
                       (uint32_t)atoi(arguments[2]), 0, 1);
    printf("%s\n", vxErrorDesc(result));
    return result != VX_OK;
}
