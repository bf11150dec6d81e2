#include "sim/zones/zoneCommands.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kZoneHeadSize = 8;
constexpr std::size_t kZoneCountAt = 3;
constexpr std::size_t kEntrySize = 12;
constexpr std::size_t kEntryNumberAt = 8;
constexpr std::size_t kEntryKindAt = 9;
constexpr std::size_t kDisplayHeadSize = 32;
constexpr std::size_t kDisplayLengthAt = 28;
constexpr std::size_t kContentHeadSize = 8;
constexpr std::size_t kContentLengthAt = 6;
constexpr std::size_t kSpecialHeadSize = 12;
constexpr std::size_t kSpecialCountAt = 6;
constexpr std::size_t kSpecialZoneSize = 4;

constexpr std::uint16_t kOwnStep = 8; // pixels
constexpr std::uint64_t kOwnStayMs = 5000;
// A count of pages beyond this is not only too large for this sign, but for any.
constexpr std::uint8_t kMostPagesOfAny = 20;

std::uint64_t StayMs(const ZonePage& page)
{
    return page.staySeconds != 0 ? std::uint64_t{page.staySeconds} * 1000 : kOwnStayMs;
}

std::vector<std::uint8_t> HeadOf(const ZonePage& page, std::size_t index)
{
    std::vector<std::uint8_t> head(kZoneHeadSize);
    Store16(head, 0, page.staySeconds);
    head[2] = static_cast<std::uint8_t>(index + 1);
    head[kZoneCountAt] = static_cast<std::uint8_t>(page.zones.size());
    return head;
}

} // namespace

ZoneCommands::ZoneCommands(const Drives& signDrives, fs::path keptFolder, int width, int height)
    : drives(signDrives), folder(std::move(keptFolder)), faceWidth(width), faceHeight(height),
      settings(folder / "zones.bin", {0, 1})
{
    const auto fits = [=](const Zone& zone) { return zone.area.FitsOn(width, height); };
    for (std::size_t i = 0; i < pages.size(); ++i) {
        pages[i] = ParsePage(ReadFileStart(PageFile(i), kMostPageBytes));
        if (pages[i] && !std::ranges::all_of(pages[i]->zones, fits)) // of a larger face
            pages[i].reset();
    }
}

fs::path ZoneCommands::PageFile(std::size_t index) const
{
    return folder / ("zones-" + std::to_string(index + 1) + ".bin");
}

std::span<const CommandRow> ZoneCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {54, 1, "divide zone", 4, kZoneHeadSize, kLogged, Run<&ZoneCommands::Divide>,
         "divides a page, or a zone of it: the first part takes the place of the zone"},
        {54, 2, "read division", 0, 0, kUnlogged, Run<&ZoneCommands::TellDivision>,
         "head and zones of a page; without a page the heads of all pages that are divided"},
        {54, 3, "set zone display", 4, kDisplayHeadSize, kUnlogged, Run<&ZoneCommands::SetDisplay>,
         "the style of a zone, or for zone 0 of all zones of the page; with an option its content too"},
        {54, 4, "set zone content", 4, kContentHeadSize, kLogged, Run<&ZoneCommands::SetContent>,
         "likewise the content alone"},
        {54, 5, "enable zones", 4, 0, kLogged, Run<&ZoneCommands::Enable>, "zones on (1) or off (0)"},
        {54, 6, "set page count", 4, 0, kUnlogged, Run<&ZoneCommands::SetPageCount>,
         "how many pages take turns, up to 12"},
        {54, 7, "divide special zones", 4, kSpecialHeadSize, kUnlogged, Run<&ZoneCommands::DivideSpecially>,
         "divides a page in steps of some pixels"},
        {54, 8, "read zone settings", 0, 0, kUnlogged, Run<&ZoneCommands::TellSettings>,
         "whether zones are on, and the page count"},
    };
    return kRows;
}

Reply ZoneCommands::Divide(const Call& call)
{
    const auto data = call.extended;
    if (data.size() != kZoneHeadSize + kEntrySize * data[kZoneCountAt])
        return Reply::WithCode(Code::kBadLength);
    ZonePage page{Load16(data, 0), {}};
    for (std::size_t at = kZoneHeadSize; at < data.size(); at += kEntrySize)
        page.zones.push_back({LoadArea(data, at)});
    return SetZones(call.payload[0], call.payload[1], std::move(page));
}

// A special zone is left, top, width and height in steps, a byte each.
Reply ZoneCommands::DivideSpecially(const Call& call)
{
    const auto data = call.extended;
    if (data.size() != kSpecialHeadSize + kSpecialZoneSize * Load16(data, kSpecialCountAt))
        return Reply::WithCode(Code::kBadLength);
    const std::uint16_t step = data[2] != 0 ? data[2] : kOwnStep;
    ZonePage page{Load16(data, 0), {}};
    for (std::size_t at = kSpecialHeadSize; at < data.size(); at += kSpecialZoneSize) {
        const auto pixels = [&](std::size_t field) { return static_cast<std::uint16_t>(data[at + field] * step); };
        page.zones.push_back({{pixels(0), pixels(1), pixels(2), pixels(3)}});
    }
    return SetZones(call.payload[0], 0, std::move(page));
}

// Divides the page, or for a zone number that zone of it: the first part takes the place of the zone, and the others
// get the next numbers of the page.
Reply ZoneCommands::SetZones(std::uint8_t pageNumber, std::uint8_t zoneNumber, ZonePage wanted)
{
    if (pageNumber == 0 || pageNumber > kMostZonePages)
        return Reply::WithCode(Code::kBadPage);
    std::optional<ZonePage>& page = pages[pageNumber - 1U];
    FaceArea whole{0, 0, static_cast<std::uint16_t>(faceWidth), static_cast<std::uint16_t>(faceHeight)};
    if (zoneNumber != 0) {
        if (!page)
            return Reply::WithCode(Code::kPageNotConfigured);
        if (zoneNumber > kMostZones)
            return Reply::WithCode(Code::kBadZone);
        if (zoneNumber > page->zones.size())
            return Reply::WithCode(Code::kZoneNotConfigured);
        if (wanted.zones.empty())
            return Reply::WithCode(Code::kWrongPageCount);
        whole = page->zones[zoneNumber - 1U].area;
    }
    const std::size_t others = zoneNumber != 0 ? page->zones.size() - 1 : 0;
    if (wanted.zones.size() + others > kMostZones)
        return Reply::WithCode(Code::kWrongPageCount);
    for (Zone& zone : wanted.zones) {
        if (!zone.area.FitsOn(whole.width, whole.height))
            return Reply::WithCode(Code::kBadPacketSize);
        zone.area.left = static_cast<std::uint16_t>(zone.area.left + whole.left);
        zone.area.top = static_cast<std::uint16_t>(zone.area.top + whole.top);
    }
    if (zoneNumber == 0)
        return KeepPage(pageNumber - 1U, wanted.zones.empty() ? std::nullopt : std::optional(std::move(wanted)));
    ZonePage parted = *page;
    parted.zones[zoneNumber - 1U] = wanted.zones[0];
    parted.zones.insert(parted.zones.end(), wanted.zones.begin() + 1, wanted.zones.end());
    return KeepPage(pageNumber - 1U, std::move(parted));
}

Code ZoneCommands::FindPage(std::uint8_t number) const
{
    if (number == 0 || number > kMostZonePages)
        return Code::kBadPage;
    return pages[number - 1U] ? Code::kOk : Code::kPageNotConfigured;
}

// The division of a page, or without a page the heads of all pages.
Reply ZoneCommands::TellDivision(const Call& call)
{
    Reply reply;
    if (call.payload.empty()) {
        for (std::size_t i = 0; i < pages.size(); ++i) {
            if (!pages[i])
                continue;
            const auto head = HeadOf(*pages[i], i);
            reply.extended.insert(reply.extended.end(), head.begin(), head.end());
        }
        return reply;
    }
    const std::uint8_t number = call.payload[0];
    if (const Code code = FindPage(number); code != Code::kOk)
        return Reply::WithCode(code);
    const ZonePage& page = *pages[number - 1U];
    reply.payload = {number, 0, 0, 0};
    reply.extended = HeadOf(page, number - 1U);
    for (std::size_t i = 0; i < page.zones.size(); ++i) {
        std::array<std::uint8_t, kEntrySize> entry{};
        StoreArea(entry, 0, page.zones[i].area);
        entry[kEntryNumberAt] = static_cast<std::uint8_t>(i + 1);
        entry[kEntryKindAt] = static_cast<std::uint8_t>(page.zones[i].kind);
        reply.extended.insert(reply.extended.end(), entry.begin(), entry.end());
    }
    return reply;
}

// The option tells what the data is: nothing, or content as in SetContent.
Reply ZoneCommands::SetDisplay(const Call& call)
{
    const auto data = call.extended;
    const std::uint8_t option = call.payload[2];
    if (data.size() != kDisplayHeadSize + Load16(data, kDisplayLengthAt) ||
        (option == 0 && data.size() != kDisplayHeadSize))
        return Reply::WithCode(Code::kBadLength);
    return ChangeZones(call, LoadStyle(data, 0), option != 0, option, data.subspan(kDisplayHeadSize));
}

Reply ZoneCommands::SetContent(const Call& call)
{
    const auto data = call.extended;
    if (data.size() != kContentHeadSize + Load16(data, kContentLengthAt))
        return Reply::WithCode(Code::kBadLength);
    return ChangeZones(call, std::nullopt, true, data[0], data.subspan(kContentHeadSize));
}

// Of one zone, or for zone 0 of all zones of the page.
Reply ZoneCommands::ChangeZones(const Call& call, std::optional<ZoneStyle> style, bool takesContent, std::uint8_t kind,
                                std::span<const std::uint8_t> data)
{
    const std::uint8_t zoneNumber = call.payload[1];
    if (const Code code = FindPage(call.payload[0]); code != Code::kOk)
        return Reply::WithCode(code);
    const std::size_t index = call.payload[0] - 1U;
    if (zoneNumber > kMostZones)
        return Reply::WithCode(Code::kBadZone);
    if (zoneNumber > pages[index]->zones.size())
        return Reply::WithCode(Code::kZoneNotConfigured);
    if (kind > static_cast<std::uint8_t>(ZoneContentKind::kFile))
        return Reply::WithCode(Code::kNotSupported);
    if (data.size() > kMostZoneContent)
        return Reply::WithCode(Code::kBadLength);
    const std::string content(data.begin(), data.end());
    const auto kindOfContent = content.empty() ? ZoneContentKind::kNone : static_cast<ZoneContentKind>(kind);
    if (kindOfContent == ZoneContentKind::kFile) {
        const auto file = drives.Resolve(content);
        std::error_code error;
        if (!file)
            return Reply::WithCode(Code::kOpenFailed);
        if (!fs::is_regular_file(*file, error))
            return Reply::WithCode(Code::kFileMissing);
    }
    ZonePage changed = *pages[index];
    for (std::size_t i = 0; i < changed.zones.size(); ++i) {
        Zone& zone = changed.zones[i];
        if (zoneNumber != 0 && i != zoneNumber - 1U)
            continue;
        zone.style = style.value_or(zone.style);
        if (takesContent) {
            zone.kind = kindOfContent;
            zone.content = kindOfContent == ZoneContentKind::kNone ? std::string() : content;
        }
    }
    return KeepPage(index, std::move(changed));
}

Reply ZoneCommands::Enable(const Call& call)
{
    return KeepSettings(call.payload[0] != 0 ? 1 : 0, settings.Bytes()[1], call.nowMs);
}

Reply ZoneCommands::TellSettings(const Call&)
{
    return Reply::WithPayload(settings.Bytes());
}

Reply ZoneCommands::SetPageCount(const Call& call)
{
    const std::uint8_t count = call.payload[0];
    if (count == 0 || count > kMostPagesOfAny)
        return Reply::WithCode(Code::kWrongPageCount);
    if (count > kMostZonePages)
        return Reply::WithCode(Code::kTooManyPages);
    return KeepSettings(settings.Bytes()[0], count, call.nowMs);
}

// Nothing takes the page away.
Reply ZoneCommands::KeepPage(std::size_t index, std::optional<ZonePage> page)
{
    std::error_code error;
    if (!page)
        fs::remove(PageFile(index), error);
    if (error || (page && !ReplaceFile(PageFile(index), PackPage(*page))))
        return Reply::WithCode(Code::kWriteFailed);
    pages[index] = std::move(page);
    return Reply::Done();
}

Reply ZoneCommands::KeepSettings(std::uint8_t enabled, std::uint8_t count, std::uint64_t nowMs)
{
    const std::array wanted{enabled, count};
    if (!settings.Set(wanted))
        return Reply::WithCode(Code::kWriteFailed);
    startedMs = nowMs;
    return Reply::Done();
}

std::optional<ZoneCommands::Shown> ZoneCommands::ShownAt(std::uint64_t nowMs) const
{
    if (settings.Bytes()[0] == 0)
        return std::nullopt;
    const auto turns = std::span(pages).first(std::min<std::size_t>(settings.Bytes()[1], pages.size()));
    std::uint64_t roundMs = 0;
    for (const auto& page : turns)
        roundMs += page ? StayMs(*page) : 0;
    if (roundMs == 0)
        return std::nullopt;
    const std::uint64_t begin = std::min(startedMs, nowMs);
    const bool isAlone = std::ranges::count_if(turns, [](const auto& page) { return page.has_value(); }) == 1;
    std::uint64_t pageMs = isAlone ? begin : nowMs - (nowMs - begin) % roundMs;
    for (const auto& page : turns) {
        if (page && (isAlone || nowMs < pageMs + StayMs(*page)))
            return Shown{*page, pageMs};
        pageMs += page ? StayMs(*page) : 0;
    }
    return std::nullopt;
}

} // namespace vxsim
