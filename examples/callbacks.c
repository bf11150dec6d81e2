/* Callbacks in place of a channel: the packets go through a connection of one's own, which stays open between the
 * calls.
 *
 *     cc callbacks.c $(pkg-config --cflags --libs vxsign) -o callbacks
 *     ./callbacks 127.0.0.1 9520
 *
 * Here it is a plain TCP connection. A tunnel, a modem or a radio takes its place by other bodies of Connect, OnWrite
 * and OnRead; the library asks for nothing else.
 */
#define _POSIX_C_SOURCE 200809L
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vxsign/vxsign.h>

static int tunnel = -1;
static unsigned long sent;
static unsigned long received;

static int Connect(const char* host, int port)
{
    struct sockaddr_in address = {.sin_family = AF_INET, .sin_port = htons((uint16_t)port)};
    tunnel = socket(AF_INET, SOCK_STREAM, 0);
    return inet_pton(AF_INET, host, &address.sin_addr) == 1 &&
           connect(tunnel, (const struct sockaddr*)&address, sizeof address) == 0;
}

/* Writes all; what it returns is not looked at: a packet that gets lost has no answer. */
static int32_t OnWrite(vxApiConfig* config, const uint8_t* buffer, uint32_t length, uint32_t timeoutMs)
{
    uint32_t done = 0;
    (void)config;
    (void)timeoutMs;
    while (done < length) {
        const ssize_t count = send(tunnel, buffer + done, length - done, MSG_NOSIGNAL);
        if (count <= 0)
            break;
        done += (uint32_t)count;
    }
    sent += done;
    return (int32_t)done;
}

/* Reads what is there, up to capacity bytes, and waits timeoutMs for the first; 0 is silence. */
static int32_t OnRead(vxApiConfig* config, uint8_t* buffer, uint32_t capacity, uint32_t timeoutMs)
{
    struct pollfd wait = {.fd = tunnel, .events = POLLIN};
    ssize_t count;
    (void)config;
    if (poll(&wait, 1, (int)timeoutMs) < 1)
        return 0;
    count = recv(tunnel, buffer, capacity, 0);
    if (count <= 0)
        return 0;
    received += (unsigned long)count;
    return (int32_t)count;
}

int main(int count, char** arguments)
{
    vxApiConfig config = {.retries = 3, .timeoutMs = 1000, .onRead = OnRead, .onWrite = OnWrite};
    uint8_t ordered;
    uint8_t present;
    uint32_t result;
    if (count != 3) {
        fprintf(stderr, "usage: callbacks HOST PORT\n");
        return 2;
    }
    if (!Connect(arguments[1], atoi(arguments[2]))) {
        perror(arguments[1]);
        return 1;
    }
    vxInitAPI(&config); /* with both callbacks set, no channel is opened */
    result = vxBrightAdjust(5);
    if (result == VX_OK)
        result = vxGetPowerState(&ordered, &present);
    close(tunnel);
    if (result != VX_OK) {
        fprintf(stderr, "%s\n", vxErrorDesc(result));
        return 1;
    }
    printf("power %s; %lu bytes sent, %lu received\n", present != 0 ? "on" : "off", sent, received);
    return 0;
}
