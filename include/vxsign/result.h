/* Result words and checksums. */
#ifndef VXSIGN_RESULT_H
#define VXSIGN_RESULT_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* What functions give: 0 for success, a failure of the library, or what the sign has answered. The high byte of a
 * number is its subject. A sign may give numbers that are not here. */
enum vxResult
{
    /* The library itself, and what is done on this PC. */
    VX_OK = 0x0000,
    VX_NO_RECORD = 0x0001,       /* a record of the thread or a local object could not be made */
    VX_ARGUMENTS = 0x0002,       /* null pointer, value out of range, or a request that does not fit its packet */
    VX_NOT_INITIALISED = 0x0003, /* nothing has been read from the sign yet */
    VX_TIME_LIMIT = 0x0004,      /* a tile's task did not end in time; vxErrorDesc has no word for it */
    VX_NO_MAGIC = 0x0005,        /* what a tile sends is not one of its files; vxErrorDesc has no word for it */
    VX_CALL = 0x0100,            /* a failure that has no code of its own */
    VX_CALL_2 = 0x0101,          /* memory ran out */
    VX_FILE_FORMAT = 0x0102,     /* the contents of a file are not what they should be */
    VX_CANNOT_MODIFY = 0x0103,
    VX_NO_TASK = 0x0104,
    VX_NO_FUNCTION = 0x0105, /* the library does not do this */
    VX_UNKNOWN_TASK = 0x0106,
    VX_NOT_CONNECTED = 0x0107,
    VX_DATABASE_OPEN = 0x0200,
    VX_DATABASE_COMMAND = 0x0201,
    VX_DATABASE_EXCEPTION = 0x0202,

    /* Tasks of the control board, which works for the tiles. */
    VX_TASK_WAITING = 0x0C00, /* in its queue */
    VX_TASK_SUCCESS = 0x0C01, /* done */
    VX_TASK_QUEUE = 0x0C02,
    VX_TASK_PROCESSING = 0x0C03, /* under way */
    VX_TASK_BUS = 0x0C04,
    VX_TASK_RETRIES = 0x0C05,
    VX_TASK_FAILED = 0x0C06,    /* ended without success */
    VX_TASK_ID = 0x0C07,        /* there is no task of this id */
    VX_TASK_BROADCAST = 0x0C08, /* not for all tiles at once */
    VX_TASK_LDU = 0x0C09,
    VX_TASK_LDU_ADDRESS = 0x0C11,
    VX_TASK_TWI = 0x0C12,
    VX_TASK_PIXEL_ORDER = 0x0C13,

    /* Memory, firmware, room. */
    VX_READ_TOO_LONG = 0x1101, /* more was asked for than there is */
    VX_BAD_ADDRESS = 0x1102,   /* of memory */
    VX_UPDATE_FAILED = 0x1F01,
    VX_UPDATING = 0x1F02,
    VX_NO_UPDATE = 0x1F03,
    VX_MEMORY = 0x2000,
    VX_FILE_TOO_LONG = 0x2101, /* for one write: 320 K */
    VX_NO_SPACE = 0x2102,      /* on the drive that the command names */
    VX_NO_SPACE_C = 0x2103,
    VX_NO_SPACE_D = 0x2104,
    VX_NO_SPACE_E = 0x2105,
    VX_NO_SPACE_F = 0x2106,
    VX_NO_SPACE_G = 0x2107,
    VX_URGENT_TOO_LONG = 0x2901, /* 1024 bytes */

    /* Pages and zones. */
    VX_BAD_PAGE = 0x36E1,
    VX_PAGE_NOT_CONFIGURED = 0x36E2,
    VX_TOO_MANY_PAGES = 0x36E3, /* 12 at most */
    VX_BAD_ZONE = 0x36E4,
    VX_ZONE_NOT_CONFIGURED = 0x36E5,
    VX_BAD_PAGE_COUNT = 0x36E6, /* 20 at most */
    VX_NOT_SUPPORTED = 0x3A01,

    /* Exchange: what the library makes of a reply, or of none. */
    VX_PACKET_OK = 0x4B4F,          /* not given by the library */
    VX_OPEN_SERIAL = 0x5001,        /* not given by the library: a line that does not open is VX_COMMUNICATION */
    VX_CONNECT_TIME_LIMIT = 0x5002, /* not given by the library, as above */
    VX_FAILED_OPERATION = 0x5003,
    VX_INCONSISTENT_SYNC = 0x5004,        /* a reply with a status that has no meaning */
    VX_INCONSISTENT_SOURCE = 0x5005,      /* not given by the library */
    VX_INCONSISTENT_DESTINATION = 0x5006, /* not given by the library */
    VX_INCONSISTENT_ID = 0x5007,          /* not given by the library */
    VX_INCONSISTENT_MAJOR = 0x5008,       /* a Modbus device confirmed another write than the one sent */
    VX_INCONSISTENT_MINOR = 0x5009,       /* not given by the library */
    VX_INCONSISTENT_SUM = 0x5010,         /* not given by the library */
    VX_ABORTED = 0x5011,                  /* abortFlag was set */
    VX_NO_PLAY_LIST = 0x5012,
    VX_UNEXPECTED_FORMAT = 0x5013,
    VX_COMMUNICATION = 0x5100, /* no configuration, no channel, or no valid reply in all tries */
    VX_OPEN_FILE = 0x5101,     /* a file on the PC cannot be opened or made */
    VX_EMPTY_FILE = 0x5102,    /* a file on the PC is empty */
    VX_TIME_NOT_SET = 0x5201,  /* the sign refuses a time */
    VX_NO_ANSWER = 0x5245,     /* nothing came back */

    /* The sign: play, drives and files. */
    VX_NOTHING_PLAYS = 0x6701,
    VX_PLAYING_NOT_OPENED = 0x6702, /* the file that plays */
    VX_PLAYING_TOO_LONG = 0x6703,   /* the file that plays */
    VX_FORMAT_FAILED = 0x7201,
    VX_MAKE_FOLDER_FAILED = 0x7301,
    VX_RENAME_FAILED = 0x7401,
    VX_RENAME_PATH = 0x7402, /* the new name lies in another folder */
    VX_MOVE_FAILED = 0x7501,
    VX_DELETE_FAILED = 0x7601,
    VX_LIST_FAILED = 0x7B01, /* a folder or file cannot be opened */
    VX_NO_DRIVE_INFORMATION = 0x7D01,
    VX_FILE_GONE = 0x7E01,

    /* Buffers of the ticker; vxGetBufferStatus takes the first three for success. */
    VX_BUFFER_3_READY = 0x8301,
    VX_BUFFER_1_READY = 0x8302,     /* 2 and 3 are on the face */
    VX_BUFFER_1_READY_TOO = 0x8303, /* 3 and 2 are on the face */
    VX_NO_TICKER = 0x8305,
    VX_BUFFER_FULL = 0x8306,
    VX_BAD_TICKER_DATA = 0x8307,

    /* The sign: what it says of a packet, of its files, of who is logged in. */
    VX_PROCESS_OK = 0x9000, /* success: an exchange gives VX_OK for it */
    VX_SIGN_SYNC = 0x9001,
    VX_SIGN_SUM = 0x9002,
    VX_SIGN_ADDRESS = 0x9003,
    VX_UNKNOWN_MAJOR = 0x9004,
    VX_UNKNOWN_MINOR = 0x9005,
    VX_PACKET_LENGTH = 0x9006,
    VX_FILE_NOT_EXISTS = 0x9008, /* a file on the sign; given too when the sign announces a size of 0 */
    VX_END_OF_FILE = 0x9009,
    VX_SIGN_FILE_NOT_OPENED = 0x9010,
    VX_COMMAND_NOT_SUPPORTED = 0x9011,
    VX_SIGN_WRITE_FAILED = 0x9012,
    VX_CHUNK_SIZE = 0x9013,   /* of a file in transfer */
    VX_CHUNK_NUMBER = 0x9014, /* of a file in transfer */
    VX_SIGN_DELETE_FAILED = 0x9015,
    VX_LOGIN_WANTED = 0x9030,
    VX_WRONG_PASSWORD = 0x9031,
    VX_WRONG_USER = 0x9032,
    VX_WRONG_OLD_PASSWORD = 0x9033,
    VX_IN_USE = 0x9035,        /* somebody else is logged in */
    VX_NO_PERMISSION = 0x9036, /* no such user, or no such right */
    VX_PASSWORD_KEY = 0xAA01,
    VX_ONLY_AT_START = 0xAA02, /* while the sign starts up */
    VX_FTP = 0xB101,
    VX_HTTP = 0xB102,
    VX_FILE_LOCKED = 0xC102, /* by another user */
    VX_LOCK_WANTED = 0xC103, /* lock the file first */
    VX_FILE_DATABASE = 0xC320,
    VX_USER_OR_PASSWORD = 0xC330,
    VX_ADD_TASK = 0xC340,
    VX_TASK_QUEUE_FULL = 0xFFFF /* of the control board */
};

/* The English text of a result word: a constant; "Unknow Error!" for a number that is not known. */
VXSIGN_API const char* vxErrorDesc(uint32_t code);

/* The checksum of the bytes start up to but not including end of buffer, 0 if there are none. mode 1: CRC-16 in the
 * reflected form of 0x8408 with seed 0xFFFF, complemented, its two bytes exchanged ("123456789" gives 0x6E90). Any
 * other mode: the sum of the bytes, its low 16 bits. A null buffer gives 0. */
VXSIGN_API uint32_t vxChkSum(VX_BYTES(end) const void* buffer, uint32_t start, uint32_t end, uint32_t mode);

VXSIGN_END

#endif
