/* Play lists: what a sign plays, in which order and when.
 *
 * Each thread has one list. It is edited in memory, kept on the PC as an XML file and sent to the sign as a sequence
 * file. The list is a tree of three levels: the root, groups, sub-groups. A group is made with a default child of its
 * own name; the files of the group itself live there.
 *
 * Two sorts of path name its places. A level path ends in a slash: "/" the root, "/G/" the group G, "/G/S/" its
 * sub-group S. A file path names one file: "/F", "/G/F", "/G/S/F". Names behind byte 254 of a path are out of reach.
 * The first byte of a path is never looked at.
 *
 * An edit that does not find its target does nothing and returns 0. A level path without its final slash gives
 * VX_ARGUMENTS, a null pointer too. Unless a function says otherwise it returns VX_CALL (256) when memory ran out.
 */
#ifndef VXSIGN_PLAYLIST_H
#define VXSIGN_PLAYLIST_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_SCHEDULES = 256, /* of one file */

    VX_ENTRY_GROUP = 0, /* of VXPLAYLIST_ITEM */
    VX_ENTRY_FILE = 1,

    VX_MOVE_DOWN = 1 /* direction of vxPLMoveItem; any other value moves up */
};

#pragma pack(push, 1)

/* When a file may play. Dates and times are BCD: the year 2008 is 0x2008, the hour 23 is 0x23. The library stores them
 * for the sign and does not interpret them. */
typedef struct SCH
{
    uint8_t bweek_rep; /* days of the week: 127 all seven, 255 no restriction */
    uint8_t reserved;
    uint16_t b_year; /* begin */
    uint8_t b_month;
    uint8_t b_day;
    uint8_t b_hour;
    uint8_t b_minute;
    uint8_t b_date_valid;
    uint8_t b_time_valid;
    uint16_t e_year; /* end */
    uint8_t e_month;
    uint8_t e_day;
    uint8_t e_hour;
    uint8_t e_minute;
    uint8_t e_date_valid;
    uint8_t e_time_valid;
} SCH;

/* A file of the list. */
typedef struct VXPLAYLIST_FILE_INFO
{
    char fileName[256];  /* inside the play list directory, NUL terminated; what searches compare */
    uint8_t schCount;    /* schedules in use */
    uint8_t playTimes;   /* plays per turn */
    char Drive;          /* the sign's drive letter */
    char Type;           /* the sign's folder letter, as vxMakeSignPath chooses it */
    uint16_t PicStaySec; /* seconds */
    uint8_t PicInMode;   /* entry effect */
    uint8_t PicOutMode;  /* exit effect */
    struct SCH SCH[VX_SCHEDULES];
    char pcFileName[512]; /* where the file came from on the PC, NUL terminated */
} VXPLAYLIST_FILE_INFO;

/* One line of a level's listing. */
typedef struct VXPLAYLIST_ITEM
{
    uint8_t kind;   /* VX_ENTRY_GROUP or VX_ENTRY_FILE */
    char name[256]; /* zero padded, without terminator when full */
} VXPLAYLIST_ITEM;

#pragma pack(pop)

/* Binds the thread's list to <dir>/<fileName> and loads it. A file that is not there is created empty, a directory is
 * not; what cannot be parsed gives an empty list and 0. Backslashes of dir become slashes. 256 when the file cannot be
 * made. */
VXSIGN_API uint32_t vxPLInit(VX_PATH char* dir, VX_PATH char* fileName);

/* Writes the list to its file. 0, whatever became of the file; 1 when memory ran out. The new file is written beside
 * the old one and takes its place when it is whole, so that a full disk or a power cut leaves the old one.
 *
 * Not all comes back. Of the files in a group's default child only the first does. In a group with sub-groups the
 * others come back too, each in the place of one of the last sub-groups, and all of them without stay time and effects.
 */
VXSIGN_API uint32_t vxPLSave(void);

/* Replaces the list with the XML file at path, with the bound file if path is null. 1 when it cannot be opened or
 * parsed, or memory ran out; the list is empty then. */
VXSIGN_API uint32_t vxLoadSYSFromXML(VX_OPTIONAL VX_PATH char* path);

/* Replaces the list with a sequence file of version 4 or 6. 0 also when the file cannot be opened or is of no such
 * version: the list then stays. 1 for a null path, 0xFFFFFFFF (-1) when memory ran out. */
VXSIGN_API uint32_t vxLoadSYSFromLED(VX_PATH const char* path);

/* Replaces the list with a PC play list of version 4, 5 or 6 and copies the files that it names into the play list
 * directory, which is made if it is missing; a name that would leave the directory is not copied. Results as above. */
VXSIGN_API uint32_t vxLoadPLSFromPC(VX_PATH const char* path);

/* Adds a group (path "/") or a sub-group (path "/G/") at index, or at the end. VX_FAILED_OPERATION when the
 * name is taken, in the way the list looks for it, or G is unknown: a sub-group is compared with the children of the
 * group before G, for the first group with the groups. */
VXSIGN_API uint32_t vxPLAddGroup(VX_SIGN_TEXT char* path, uint16_t index, VX_SIGN_TEXT char* name, uint8_t playType);

/* Gives a group, with its default child, or a sub-group another name and type. */
VXSIGN_API uint32_t vxPLModifyGroup(VX_SIGN_TEXT char* path, VX_SIGN_TEXT char* name, uint8_t playType);

/* Adds a file at index; at the root always at the end. The list takes the record over and releases it with free(): info
 * must come from malloc() or calloc(), and belongs to the caller as long as the list has not taken it. The result is 0
 * in both cases. To see which, ask with vxPLGetFile before the call (a record that comes back means the name is
 * there and the new one will be refused) and after it. */
VXSIGN_API uint32_t vxPLAddFile(VX_SIGN_TEXT char* path, uint16_t index, VXPLAYLIST_FILE_INFO* info);

/* Copy a record over the stored one, and the stored one out. Without such a file nothing is copied. */
VXSIGN_API uint32_t vxPLModifyFile(VX_SIGN_TEXT char* path, VXPLAYLIST_FILE_INFO* info);
VXSIGN_API uint32_t vxPLGetFile(VX_SIGN_TEXT char* path, VX_OUT VXPLAYLIST_FILE_INFO* info);

/* Swaps an entry of a level with its neighbour. */
VXSIGN_API uint32_t vxPLMoveItem(VX_SIGN_TEXT char* path, uint16_t index, uint16_t direction);

/* Deletes the entries first to last of a level, both included and both cut to the last entry. A group without its
 * default child takes no more files of its own. */
VXSIGN_API uint32_t vxPLDelItem(VX_SIGN_TEXT char* path, uint16_t first, uint16_t last);

/* Lists a level. At the root *count is the capacity on entry; when it is too small the result is VX_ARGUMENTS and items
 * stays untouched. In groups and sub-groups the capacity is not looked at: items must have room for all. *count becomes
 * the number of entries, but stays for a level that is not there. */
VXSIGN_API uint32_t vxPLGetItems(VX_SIGN_TEXT char* path, VX_INOUT uint16_t* count,
                                 VX_OUT VX_COUNT(*count) VXPLAYLIST_ITEM* items);

/* Sends the list to the sign, where it plays at once; the second form puts it into the numbered list index. With
 * withFiles the files whose codes differ from those of the sign's file list go first; a file that does not arrive is
 * passed over. abortFlag ends the files, not the list. progressTotal becomes 128 and progressPos the step. The result
 * is that of the list's upload. */
VXSIGN_API uint32_t vxPLSendToLED(int8_t withFiles);
VXSIGN_API uint32_t vxPLSpeSendToLED(uint8_t index, int8_t withFiles);

/* Fetches the sign's list, and with withFiles the files that differ from the local ones, but none whose name would
 * leave the play list directory. vxPLSave keeps it. Returns what the transfer of the list gives when it fails: the
 * thread's list then stays. Otherwise 0, whatever became of the files. Progress as in sending. */
VXSIGN_API uint32_t vxPLReadFromLED(int8_t withFiles);

VXSIGN_END

#endif
