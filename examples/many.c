/* Shows a text on many signs at once, with a thread for each: many TEXT HOST:PORT...
 *
 *     cc many.c -pthread $(pkg-config --cflags --libs vxsign) -o many
 *
 * The library keeps a record for each thread: threads with signs of their own do not know of each other.
 */
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vxsign/vxsign.h>

typedef struct Job
{
    const char* text;
    const char* place; /* HOST:PORT */
    uint32_t result;
    pthread_t thread;
    int isStarted;
} Job;

static void* Run(void* argument)
{
    Job* job = argument;
    char host[32] = {0};
    const char* colon = strchr(job->place, ':');
    const size_t size = colon != NULL ? (size_t)(colon - job->place) : strlen(job->place);
    const uint32_t port = colon != NULL ? (uint32_t)atoi(colon + 1) : 9520;
    if (size >= sizeof host)
        return NULL; /* with the result that was there */
    memcpy(host, job->place, size);
    job->result = vxShowMsgTimeout((const uint8_t*)job->text, (uint32_t)strlen(job->text), '1', '1', '0', 5, host, port,
                                   0, 1, 2, 500, VX_CHANNEL_UDP, NULL, 0, 0); /* 2 tries of 500 ms */
    return NULL;
}

int main(int count, char** arguments)
{
    const int signs = count - 2;
    int failures = 0;
    Job* jobs;
    if (signs < 1) {
        fprintf(stderr, "usage: many TEXT HOST:PORT...\n");
        return 2;
    }
    jobs = calloc((size_t)signs, sizeof *jobs);
    if (jobs == NULL)
        return 1;
    for (int i = 0; i < signs; ++i) {
        jobs[i].text = arguments[1];
        jobs[i].place = arguments[i + 2];
        jobs[i].result = VX_ARGUMENTS;
        jobs[i].isStarted = pthread_create(&jobs[i].thread, NULL, Run, &jobs[i]) == 0;
    }
    for (int i = 0; i < signs; ++i) {
        if (jobs[i].isStarted)
            pthread_join(jobs[i].thread, NULL);
        printf("%s: %s\n", jobs[i].place, vxErrorDesc(jobs[i].result));
        failures += jobs[i].result != VX_OK;
    }
    free(jobs);
    return failures != 0;
}
