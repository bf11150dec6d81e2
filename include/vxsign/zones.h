/* Zones and pages: how the face is divided, and what each zone shows.
 *
 * A page holds zones; both are numbered by the caller. The library knows of each record only the field that tells how
 * much follows it; the rest is between the application and the sign.
 *
 * A setting exists in up to three forms: the plain one with its records by value, a Base form that takes the finished
 * bytes, and a 4j form that takes pointers to the records.
 *
 * A request holds 3072 bytes, with all that belongs to it; what does not fit gives VX_ARGUMENTS. The sign refuses with
 * VX_BAD_PAGE, VX_PAGE_NOT_CONFIGURED, VX_TOO_MANY_PAGES (more than 12), VX_BAD_ZONE, VX_ZONE_NOT_CONFIGURED or
 * VX_BAD_PAGE_COUNT (more than 20).
 */
#ifndef VXSIGN_ZONES_H
#define VXSIGN_ZONES_H

#include <vxsign/export.h>

VXSIGN_BEGIN

#pragma pack(push, 1)

/* What stands before the zones of a page: 8 bytes. */
typedef struct ZoneHead
{
    uint8_t head[3];
    uint8_t zoneCount; /* ZoneEntry records that follow */
    uint8_t tail[4];
} ZoneHead;

/* One zone: 12 bytes. */
typedef struct ZoneEntry
{
    uint8_t bytes[12];
} ZoneEntry;

/* What stands before the display data of a zone: 32 bytes. */
typedef struct DisplayHead
{
    uint8_t head[28];
    uint16_t dataLength; /* bytes of data that follow */
    uint8_t tail[2];
} DisplayHead;

/* What stands before the content of a zone: 8 bytes. */
typedef struct ContentHead
{
    uint8_t head[6];
    uint16_t dataLength; /* bytes of data that follow */
} ContentHead;

/* What stands before the data of special zones: 12 bytes. */
typedef struct SpeZoneHead
{
    uint8_t head[6];
    uint16_t wordCount; /* words of 4 bytes that follow */
    uint8_t tail[4];
} SpeZoneHead;

#pragma pack(pop)

/* Divides a page, or a zone of it: the head and its entries, 127 at most. */
VXSIGN_API uint32_t vxDivideZoneBase(uint8_t pageId, uint8_t zoneId, VX_BYTES(length) const void* data, uint8_t length);
VXSIGN_API uint32_t vxDivideZone(uint8_t pageId, uint8_t zoneId, ZoneHead head,
                                 VX_BYTES(head.zoneCount * 12) const void* entries);
VXSIGN_API uint32_t vxDivideZone4j(uint8_t pageId, uint8_t zoneId, const ZoneHead* head,
                                   VX_BYTES(head->zoneCount * 12) void** entries);

/* The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at most;
 * VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as many of its
 * entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was. */
VXSIGN_API uint32_t vxGetZoneBase(VX_OUT VX_BYTES(outLength) uint8_t* out, uint32_t outLength);
VXSIGN_API uint32_t vxGetZone(VX_OUT ZoneHead* head, VX_OUT VX_BYTES(maxEntries * 12) uint8_t* entries,
                              uint8_t maxEntries, uint8_t pageId);
VXSIGN_API uint32_t vxGetZone4j(VX_OUT ZoneHead* head, VX_OUT VX_BYTES(maxEntries * 12) uint8_t** entries,
                                uint8_t maxEntries, uint8_t pageId);

/* How a zone shows its content: the head and its data. */
VXSIGN_API uint32_t vxSetDisplayBase(uint8_t pageId, uint8_t zoneId, uint8_t option, VX_BYTES(length) const void* data,
                                     uint8_t length);
VXSIGN_API uint32_t vxSetDisplay(uint8_t pageId, uint8_t zoneId, uint8_t option, DisplayHead head,
                                 VX_BYTES(head.dataLength) const uint8_t* data);
VXSIGN_API uint32_t vxSetDisplay4j(uint8_t pageId, uint8_t zoneId, uint8_t option, const DisplayHead* head,
                                   VX_BYTES(head->dataLength) const uint8_t* data);

/* The content of a zone: the head and its data. */
VXSIGN_API uint32_t vxSetContentDisplayBase(uint8_t pageId, uint8_t zoneId, VX_BYTES(length) const void* data,
                                            uint8_t length);
VXSIGN_API uint32_t vxSetContentDisplay(uint8_t pageId, uint8_t zoneId, ContentHead head,
                                        VX_BYTES(head.dataLength) const void* data);
VXSIGN_API uint32_t vxSetContentDisplay4j(uint8_t pageId, uint8_t zoneId, const ContentHead* head,
                                          VX_BYTES(head->dataLength) const void* data);

/* Divides a page into special zones: the head and its words. */
VXSIGN_API uint32_t vxDivideSpeZone(uint8_t pageId, SpeZoneHead head, VX_BYTES(head.wordCount * 4) const uint8_t* data);

/* Whether the face is divided at all, and how many pages there are; and both as they stand. */
VXSIGN_API uint32_t vxSetEnableMulitZone(uint8_t enable);
VXSIGN_API uint32_t vxSetPageCount(uint8_t count);
VXSIGN_API uint32_t vxGetMulitZoneSetting(VX_OUT uint8_t* enable, VX_OUT uint8_t* pageCount);

VXSIGN_END

#endif
