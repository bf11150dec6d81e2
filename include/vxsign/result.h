/* Result words and checksums. */
#ifndef VXSIGN_RESULT_H
#define VXSIGN_RESULT_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* The results that the library itself gives. Any other number comes from the sign; vxErrorDesc knows those too. */
enum vxResult
{
    VX_OK = 0,
    VX_NO_RECORD = 1,          /* a record of the thread or a local object could not be made */
    VX_ARGUMENTS = 2,          /* null pointer, value out of range, or a request that does not fit its packet */
    VX_NOT_INITIALISED = 3,    /* nothing has been read from the sign yet */
    VX_TIME_LIMIT = 4,         /* a tile's task did not end in time */
    VX_NO_MAGIC = 5,           /* what a tile sends is not one of its files */
    VX_CALL = 256,             /* a failure that has no code of its own */
    VX_CALL_2 = 257,           /* memory ran out */
    VX_FILE_FORMAT = 258,      /* the contents of a file are not what they should be */
    VX_NO_FUNCTION = 261,      /* the library does not do this */
    VX_TASK_WAITING = 3072,    /* a task of the control board: in its queue, */
    VX_TASK_SUCCESS = 3073,    /* done, */
    VX_TASK_PROCESSING = 3075, /* under way, */
    VX_TASK_FAILED = 3078,     /* ended without success */
    VX_FAILED_OPERATION = 20483,
    VX_INCONSISTENT_SYNC = 20484,  /* a reply with a status that has no meaning */
    VX_INCONSISTENT_MAJOR = 20488, /* a Modbus device confirmed another write than the one sent */
    VX_ABORTED = 20497,            /* abortFlag was set */
    VX_COMMUNICATION = 20736,      /* no configuration, no channel, or no valid reply in all tries */
    VX_OPEN_FILE = 20737,          /* a file on the PC cannot be opened or made */
    VX_EMPTY_FILE = 20738,         /* a file on the PC is empty */
    VX_NO_ANSWER = 21061,          /* nothing came back */
    VX_FILE_NOT_EXISTS = 36872     /* a file on the sign; given too when the sign announces a size of 0 */
};

/* The English text of a result word: a constant; "Unknow Error!" for a number that is not known. */
VXSIGN_API const char* vxErrorDesc(uint32_t code);

/* The checksum of the bytes start up to but not including end of buffer, 0 if there are none. mode 1: CRC-16 in the
 * reflected form of 0x8408 with seed 0xFFFF, complemented, its two bytes exchanged ("123456789" gives 0x6E90). Any
 * other mode: the sum of the bytes, its low 16 bits. A null buffer gives 0. */
VXSIGN_API uint32_t vxChkSum(const void* buffer, uint32_t start, uint32_t end, uint32_t mode);

VXSIGN_END

#endif
