/* Reads the system log of a sign as CSV: logs HOST PORT >system.csv
 *
 *     cc logs.c $(pkg-config --cflags --libs vxsign) -o logs
 *
 * The sign answers SQL with pages of rows, each column in angle brackets. The log stays on the sign.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vxsign/vxsign.h>

enum
{
    COLUMNS = 4,
    PAGE = 10,
    ROOM = 4096 /* more than any packet holds */
};

/* A field, with its quotes doubled. */
static void PrintField(const char* text, size_t size)
{
    putchar('"');
    for (size_t i = 0; i < size; ++i) {
        if (text[i] == '"')
            putchar('"');
        putchar(text[i]);
    }
    putchar('"');
}

/* Prints the whole rows of a page, and tells how many they are: the sign cuts a page that is too long. */
static unsigned PrintRows(const char* text)
{
    unsigned rows = 0;
    for (;; ++rows) {
        const char* fields[COLUMNS];
        size_t sizes[COLUMNS];
        for (int i = 0; i < COLUMNS; ++i) {
            const char* end = strchr(text, '>');
            if (*text != '<' || end == NULL)
                return rows;
            fields[i] = text + 1;
            sizes[i] = (size_t)(end - text - 1);
            text = end + 1;
        }
        for (int i = 0; i < COLUMNS; ++i) {
            PrintField(fields[i], sizes[i]);
            putchar(i + 1 < COLUMNS ? ',' : '\n');
        }
    }
}

static uint32_t PrintLog(void)
{
    unsigned got = 0;
    unsigned rows = 0;
    printf("time,operation,user,outcome\n");
    do {
        uint8_t head[64] = {0};
        char text[ROOM + 1] = {0}; /* and an end */
        char sql[200];
        uint32_t result;
        snprintf(sql, sizeof sql, "select DateTime,Operate,Author,Result from SysLog limit %d offset %u", PAGE, got);
        result = vxReadDB(1, sql, head, sizeof head, text, ROOM);
        if (result != VX_OK)
            return result;
        rows = PrintRows(text);
        if (rows == 0 && (head[0] != 0 || head[1] != 0)) /* the number of rows that the sign announces */
            return VX_FILE_FORMAT;
        got += rows;
    } while (rows != 0);
    return VX_OK;
}

int main(int count, char** arguments)
{
    vxApiConfig config = {.kind = VX_CHANNEL_UDP, .retries = 3, .timeoutMs = 1000};
    uint32_t result;
    if (count != 3) {
        fprintf(stderr, "usage: logs HOST PORT\n");
        return 2;
    }
    snprintf(config.host, sizeof config.host, "%s", arguments[1]);
    config.port = (uint32_t)atoi(arguments[2]);
    vxInitAPI(&config);
    result = PrintLog();
    if (result != VX_OK)
        fprintf(stderr, "%s\n", vxErrorDesc(result));
    return result != VX_OK;
}
