/* The thread's configuration: which sign, over which channel, with which callbacks. */
#ifndef VXSIGN_API_H
#define VXSIGN_API_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Values of vxApiConfig.kind. */
enum vxChannelKind
{
    VX_CHANNEL_UDP = 0,
    VX_CHANNEL_TCP = 1,
    VX_CHANNEL_SERIAL = 2
};

/* Arguments of vxTLSGet. */
enum vxThreadRecord
{
    VX_RECORD_CONFIGURATION = 0,
    VX_RECORD_STATE = 1,
    VX_RECORD_PLAY_LIST = 2
};

/* Callbacks. Each gets the thread's live configuration record first. They run on the calling thread. A callback must
 * not throw. What it throws all the same does not leave the library: onOpen, onProgress, onLog and onMessageToGif end
 * the call with VX_COMMUNICATION, onRead and onWrite make a try that fails, onTempPath a folder in which no file can be
 * made, and onClose comes too late to change the result. */
struct vxApiConfig;
/* A command object was made, or comes to its end: once for each command, also for one that is then refused. */
typedef void (*vxOnOpen)(VX_INOUT struct vxApiConfig* config);
typedef void (*vxOnClose)(VX_INOUT struct vxApiConfig* config);
/* Progress of a transfer or of a long operation, 0 to 100 percent whatever a sign says. */
typedef void (*vxOnProgress)(VX_INOUT struct vxApiConfig* config, uint32_t reserved, uint32_t percent);
/* Reads up to capacity bytes, waiting timeoutMs at most; returns the bytes read, 0 for none. */
typedef int32_t (*vxOnRead)(VX_INOUT struct vxApiConfig* config, VX_OUT VX_BYTES(capacity) uint8_t* buffer,
                            uint32_t capacity, uint32_t timeoutMs);
/* Writes length bytes; the result is not looked at. */
typedef int32_t (*vxOnWrite)(VX_INOUT struct vxApiConfig* config, VX_BYTES(length) const uint8_t* buffer,
                             uint32_t length, uint32_t timeoutMs);
/* A failed try (level 6) or a failed command (level 3), with its text. */
typedef void (*vxOnLog)(VX_INOUT struct vxApiConfig* config, const char* sourcePath, uint32_t line, uint32_t level,
                        const char* message);
/* Turns a message file of the sign into a GIF; the library has no converter of its own. The two numbers are the
 * converter's own settings. */
typedef uint32_t (*vxOnMessageToGif)(VX_INOUT struct vxApiConfig* config, VX_PATH const char* messagePath,
                                     VX_PATH const char* gifPath, uint32_t first, uint32_t second);
/* Fills in the folder for temporary files, up to capacity bytes, ending in a path separator and NUL. */
typedef void (*vxOnTempPath)(VX_INOUT struct vxApiConfig* config, VX_OUT VX_PATH VX_BYTES(capacity) char* buffer,
                             uint32_t capacity);

/* The configuration of one thread: 192 bytes, a binary contract.
 *
 * A try writes the request, for timeoutMs at most, and gathers the reply. Over a channel that is in time as long as
 * timeoutMs is not over, in however many pieces it comes. A try that gets nothing ends after timeoutMs, with onRead
 * after about twice that. It counts reads rather than time, though: the header of a reply with nothing behind it makes
 * a try last up to twice timeoutMs over a channel, with onRead up to four times timeoutMs and half a second.
 *
 * A call makes an exchange for each piece of what it moves or waits for, of up to retries tries, and ends with the
 * first that fails; some go on to a second and a third. So a sign that never answers holds a call for the time of a few
 * exchanges, and one that answers for as many as it announces: pieces of a file of up to 4 GB, rows of a table, polls
 * of a task. Where a header gives no bound of its own, onProgress is the place for the caller's: there it may set
 * abortFlag.
 *
 * A TCP connection that is not made within retries x timeoutMs gives VX_COMMUNICATION.
 *
 * abortFlag ends whatever waits: for a connection, for an answer, for room to write, between two polls of a long
 * operation. A wait looks at it every 50 ms, and at once behind a signal that comes in the thread; one of the caller's
 * own, in onRead or onWrite, has its time. The next try then gives VX_ABORTED; a last one that was cut short gives
 * VX_COMMUNICATION, as for any other silence. What has reached the sign stays there.
 */
typedef struct vxApiConfig
{
    uint32_t kind;               /* vxChannelKind */
    uint32_t initialised;        /* 1 after vxInitAPI; commands refuse anything else */
    char host[32];               /* the sign's IPv4 address as dotted text, read as inet_addr does; 16 bytes count */
    char serialName[16];         /* "COM1", a name below /dev, or a device path */
    uint32_t port;               /* UDP or TCP port of the sign */
    uint32_t baudRate;           /* serial speed in bits per second */
    uint8_t reserved1[16];       /* read by nothing */
    uint16_t sourceAddress;      /* goes into every request */
    uint16_t destinationAddress; /* goes into every request; commands for a board change it for their run */
    uint32_t retries;            /* tries for each exchange, 1..100, else 3 */
    uint32_t timeoutMs;          /* milliseconds for each try, 50..60000, else 3000 */
    uint32_t abortFlag;          /* set non-zero by any thread to stop the running operation; never cleared here */
    uint16_t progressTotal;      /* steps of the running multi-step operation, for onProgress to read */
    uint16_t progressPos;        /* number of the running step */
    uint16_t dataSize;           /* bytes of a file in each packet, 64..1280, else 768 */
    uint8_t reserved2[26];       /* read by nothing */
    vxOnOpen onOpen;
    vxOnClose onClose;
    vxOnProgress onProgress;
    vxOnRead onRead;   /* with onWrite in place of the channel; one of the two alone is not used */
    vxOnWrite onWrite; /* see onRead */
    vxOnLog onLog;
    vxOnMessageToGif onMessageToGif;
    vxOnTempPath onTempPath; /* unset: the system's folder for temporary files */
} vxApiConfig;

/* The version of the library, a constant text: "2.3.10 2020-05-13". */
VXSIGN_API const char* vxAPIVersion(void);

/* Copies *config into the calling thread's record and marks it initialised. Nothing is sent; values out of range are
 * put right by the commands, in the thread's record. A later call replaces the record, abortFlag included.
 * Returns 0, 1 when the thread's records cannot be made, VX_ARGUMENTS for null. */
VXSIGN_API uint32_t vxInitAPI(const vxApiConfig* config);

/* Does nothing; returns 0. A thread's records go when the thread ends. */
VXSIGN_API uint32_t vxFreeAPI(void);

/* The calling thread's live record, made on demand: the way to reach abortFlag after vxInitAPI has copied it.
 * which: vxThreadRecord. Null for any other value, or when memory runs out.
 * The first byte of the state says whether it holds the sign's properties (see vxInitProperty): a thread that turns to
 * another sign sets it to 0, since vxInitAPI leaves it as it is. */
VXSIGN_API void* vxTLSGet(int which);

/* Start and stop socket support. Loading the library starts it; both return 0. */
VXSIGN_API uint32_t vxSocketup(void);
VXSIGN_API uint32_t vxCleanSocket(void);

VXSIGN_END

#endif
