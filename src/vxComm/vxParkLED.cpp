// The exports of major 54.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"
#include "vxComm/shared/joined.h"

#include <vxsign/zones.h>

using namespace vxsign;

static_assert(sizeof(ZoneHead) == 8 && offsetof(ZoneHead, zoneCount) == 3);
static_assert(sizeof(ZoneEntry) == 12);
static_assert(sizeof(DisplayHead) == 32 && offsetof(DisplayHead, dataLength) == 28);
static_assert(sizeof(ContentHead) == 8 && offsetof(ContentHead, dataLength) == 6);
static_assert(sizeof(SpeZoneHead) == 12 && offsetof(SpeZoneHead, wordCount) == 6);

namespace {

constexpr std::size_t kLongestZoneList = 1528; // of a division, without its head

// The places in the reply that tells a division, which always has one word ahead of them.
constexpr std::size_t kReplyHead = 4;
constexpr std::size_t kReplyEntries = kReplyHead + sizeof(ZoneHead);

// A head and what it announces; the head that is not there announces nothing.
template <class Head>
Joined WithData(const Head* head, const void* data, std::size_t length)
{
    return Joined(Bytes(head, sizeof(Head)), Bytes(data, length));
}

std::uint32_t DivideZone(std::uint8_t pageId, std::uint8_t zoneId, const ZoneHead* head, const void* entries)
{
    const std::size_t length = head != nullptr ? sizeof(ZoneEntry) * head->zoneCount : 0;
    return Call<vxParkLED>(length <= kLongestZoneList, [=](vxParkLED& sign) {
        return SendOn(sign, {54, 1}, Payload(Fields<4>(pageId, zoneId)), Extended(WithData(head, entries, length)));
    });
}

std::uint32_t SetDisplay(std::uint8_t pageId, std::uint8_t zoneId, std::uint8_t option, const DisplayHead* head,
                         const void* data)
{
    const std::size_t length = head != nullptr ? head->dataLength : 0;
    return Send<vxParkLED>({54, 3}, Payload(Fields<4>(pageId, zoneId, option)), Extended(WithData(head, data, length)));
}

std::uint32_t SetContentDisplay(std::uint8_t pageId, std::uint8_t zoneId, const ContentHead* head, const void* data)
{
    const std::size_t length = head != nullptr ? head->dataLength : 0;
    return Send<vxParkLED>({54, 4}, Payload(Fields<4>(pageId, zoneId)), Extended(WithData(head, data, length)));
}

} // namespace

std::uint32_t vxDivideZoneBase(std::uint8_t pageId, std::uint8_t zoneId, const void* data, std::uint8_t length)
{
    return Send<vxParkLED>({54, 1}, Payload(Fields<4>(pageId, zoneId)), Extended(Bytes(data, length)));
}

std::uint32_t vxDivideZone(std::uint8_t pageId, std::uint8_t zoneId, ZoneHead head, const void* entries)
{
    return DivideZone(pageId, zoneId, &head, entries);
}

std::uint32_t vxDivideZone4j(std::uint8_t pageId, std::uint8_t zoneId, const ZoneHead* head, void** entries)
{
    return DivideZone(pageId, zoneId, entries != nullptr ? head : nullptr, entries != nullptr ? *entries : nullptr);
}

std::uint32_t vxGetZoneBase(std::uint8_t* out, std::uint32_t outLength)
{
    return Call<vxParkLED>(outLength != 0, [=](vxParkLED& sign) {
        return SendOn(sign, {54, 2}, Reply(OutExtended(out, outLength)));
    });
}

std::uint32_t vxGetZone(ZoneHead* head, std::uint8_t* entries, std::uint8_t maxEntries, std::uint8_t pageId)
{
    return Call<vxParkLED>(Required(head, entries), [=](vxParkLED& sign) {
        const std::uint32_t result =
            SendOn(sign, {54, 2}, Payload(Fields<4>(pageId)), Reply(OutBytes<kReplyHead>(head, sizeof *head)));
        if (result == VX_OK)
            sign.Reply().Copy(entries, kReplyEntries, sizeof(ZoneEntry) * std::min(head->zoneCount, maxEntries));
        return result;
    });
}

std::uint32_t vxGetZone4j(ZoneHead* head, std::uint8_t** entries, std::uint8_t maxEntries, std::uint8_t pageId)
{
    return vxGetZone(head, entries != nullptr ? *entries : nullptr, maxEntries, pageId);
}

std::uint32_t vxSetDisplayBase(std::uint8_t pageId, std::uint8_t zoneId, std::uint8_t option, const void* data,
                               std::uint8_t length)
{
    return Send<vxParkLED>({54, 3}, Payload(Fields<4>(pageId, zoneId, option)), Extended(Bytes(data, length)));
}

std::uint32_t vxSetDisplay(std::uint8_t pageId, std::uint8_t zoneId, std::uint8_t option, DisplayHead head,
                           const std::uint8_t* data)
{
    return SetDisplay(pageId, zoneId, option, &head, data);
}

std::uint32_t vxSetDisplay4j(std::uint8_t pageId, std::uint8_t zoneId, std::uint8_t option, const DisplayHead* head,
                             const std::uint8_t* data)
{
    return SetDisplay(pageId, zoneId, option, head, data);
}

std::uint32_t vxSetContentDisplayBase(std::uint8_t pageId, std::uint8_t zoneId, const void* data, std::uint8_t length)
{
    return Send<vxParkLED>({54, 4}, Payload(Fields<4>(pageId, zoneId)), Extended(Bytes(data, length)));
}

std::uint32_t vxSetContentDisplay(std::uint8_t pageId, std::uint8_t zoneId, ContentHead head, const void* data)
{
    return SetContentDisplay(pageId, zoneId, &head, data);
}

std::uint32_t vxSetContentDisplay4j(std::uint8_t pageId, std::uint8_t zoneId, const ContentHead* head, const void* data)
{
    return SetContentDisplay(pageId, zoneId, head, data);
}

std::uint32_t vxSetEnableMulitZone(std::uint8_t enable)
{
    return Send<vxParkLED>({54, 5}, Payload(Fields<4>(enable)));
}

std::uint32_t vxSetPageCount(std::uint8_t count)
{
    return Send<vxParkLED>({54, 6}, Payload(Fields<4>(count)));
}

std::uint32_t vxDivideSpeZone(std::uint8_t pageId, SpeZoneHead head, const std::uint8_t* data)
{
    return Send<vxParkLED>({54, 7}, Payload(Fields<4>(pageId)),
                           Extended(WithData(&head, data, std::size_t{4} * head.wordCount)));
}

std::uint32_t vxGetMulitZoneSetting(std::uint8_t* enable, std::uint8_t* pageCount)
{
    return Send<vxParkLED>({54, 8}, Reply(Out<0>(enable), Out<1>(pageCount)));
}
