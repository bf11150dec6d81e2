// "E:\TEP_REC\": the temperatures of the traffic signal controller, a month and a source to each file.
#include "platform/clock.h"
#include "util/file.h"
#include "util/localCall.h"
#include "util/text.h"
#include "util/timeText.h"
#include "vxComm/shared/dirEntry.h"

#include <vxsign/filesystem.h>
#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/traffic.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

using namespace vxsign;

static_assert(sizeof(TrafficTempEntry) == 128 && offsetof(TrafficTempEntry, signName) == 20);
static_assert(offsetof(TrafficTempEntry, sample) == 120 && offsetof(TrafficTempEntry, sourceId) == 124);

namespace {

constexpr char kFolder[] = "E:\\TEP_REC\\";
constexpr std::uint16_t kPageEntries = 20;
constexpr std::size_t kNameSize = 8;
constexpr std::size_t kExtensionSize = 3;
constexpr std::size_t kAttributeOffset = 11;
constexpr std::uint8_t kIsFolder = 0x10;
constexpr std::uint64_t kRowsOffset = 32;
constexpr std::size_t kRowSize = 24;
constexpr std::uint8_t kHours = 24;
constexpr std::uint8_t kMonths = 12;

using Entry = std::span<const std::uint8_t, kDirEntrySize>;

// Where a kind of source has its numbers in the name of a file.
struct NameForm
{
    char first;
    char third; // 0: any
    std::uint32_t base;
    std::size_t numberAt; // 0: there is none
    std::size_t monthAt;
};

constexpr NameForm kNameForms[] = {
    {'C', 0, 100, 0, 3}, {'E', 'P', 400, 3, 5}, {'E', 0, 500, 3, 5}, {'P', 0, 200, 1, 3}, {'V', 0, 300, 1, 3},
};

struct Source
{
    std::uint32_t id;
    std::uint8_t month;
};

// What stands in part of an entry's name: all that is above the blank.
std::string Printable(std::span<const std::uint8_t> field)
{
    std::string text;
    for (const std::uint8_t c : field) {
        if (c > ' ')
            text += static_cast<char>(c);
    }
    return text;
}

// Empty for an entry without name, which the sign has announced but not sent.
std::string FileName(Entry entry)
{
    std::string name = Printable(entry.first<kNameSize>());
    if (!name.empty())
        name.append(".").append(Printable(entry.subspan<kNameSize, kExtensionSize>()));
    return name;
}

// The two digits at a place of the name.
std::optional<std::uint8_t> TwoDigits(std::string_view name, std::size_t at)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (at + 2 > name.size() || !isDigit(name[at]) || !isDigit(name[at + 1]))
        return {};
    return static_cast<std::uint8_t>((name[at] - '0') * 10 + (name[at + 1] - '0'));
}

// Nothing for a name without source and month.
std::optional<Source> SourceOf(std::string_view name)
{
    const auto* const form = std::find_if(std::begin(kNameForms), std::end(kNameForms), [name](const NameForm& row) {
        return name.front() == row.first && (row.third == 0 || (name.size() > 2 && name[2] == row.third));
    });
    if (form == std::end(kNameForms))
        return {};
    const auto number = form->numberAt != 0 ? TwoDigits(name, form->numberAt) : std::optional<std::uint8_t>(0);
    const auto month = TwoDigits(name, form->monthAt);
    if (!number || !month || *month < 1 || *month > kMonths)
        return {};
    return Source{form->base + *number, *month};
}

unsigned DaysOf(std::uint16_t year, std::uint8_t month)
{
    using namespace std::chrono;
    const year_month_day_last end{std::chrono::year(year), month_day_last(std::chrono::month(month))};
    return static_cast<unsigned>(end.day());
}

// Hands on the log of one call.
class TemperatureLog
{
public:
    TemperatureLog(const char* to, const char* name, vxOnTrafficTemp taker)
        : localPath(to), signName(name), callback(taker), today(platform::clock.localTime())
    {
    }

    // All pages of the folder.
    std::uint32_t Read() const
    {
        std::uint32_t result = VX_OK;
        std::uint32_t total = 1; // until the first page tells
        for (std::uint32_t start = 0; start < total && result == VX_OK; start += kPageEntries) {
            std::array<std::uint8_t, std::size_t{kPageEntries} * kDirEntrySize> page{};
            result = vxGetDirFileEx(kFolder, static_cast<std::uint16_t>(start), kPageEntries, &total, page.data(),
                                    kPageEntries);
            if (result != VX_OK)
                break;
            const std::size_t count = total > start ? std::min<std::size_t>(total - start, kPageEntries) : 0;
            for (std::size_t i = 0; i < count; ++i)
                TakeFile(Entry(page.data() + i * kDirEntrySize, kDirEntrySize), i, result);
        }
        return result;
    }

private:
    // What is no file leaves the result as it was.
    void TakeFile(Entry entry, std::size_t place, std::uint32_t& result) const
    {
        const std::string name = FileName(entry);
        if ((entry[kAttributeOffset] & kIsFolder) != 0 || name.empty())
            return;
        result = vxReadSpecPathFile((kFolder + name).c_str(), localPath);
        const auto source = SourceOf(name);
        if (result != VX_OK || !source)
            return;
        if (const File file = OpenFile(localPath, "rb"); file)
            result = TakeDays(file, *source, place);
    }

    std::uint32_t TakeDays(const File& file, const Source& source, std::size_t place) const
    {
        // A month that is still to come is one of the year before.
        const auto year = static_cast<std::uint16_t>(today.year - (source.month > today.month ? 1 : 0));
        const unsigned days = DaysOf(year, source.month);
        std::uint32_t result = VX_OK;
        Seek(file, kRowsOffset);
        for (std::uint8_t day = 1; day <= days && result == VX_OK; ++day) {
            std::array<std::uint8_t, kRowSize> row{}; // a last one that is cut short ends in zeros
            if (ReadSome(file, row.data(), row.size()) == 0)
                break;
            for (std::uint8_t hour = 0; hour < kHours; ++hour) {
                TrafficTempEntry taken{};
                PutTime(taken.time, {year, source.month, day, hour, 0, 0, 0});
                CopyToField(taken.signName, sizeof taken.signName, FieldText(signName, sizeof taken.signName));
                taken.sample = row[place]; // by rule not that of the hour
                taken.sourceId = source.id;
                result = callback(&taken); // that of the last hour counts
            }
        }
        return result;
    }

    const char* localPath;
    const char* signName;
    vxOnTrafficTemp callback;
    platform::LocalTime today;
};

} // namespace

std::uint32_t vxReadTrafficTempLog(const char* localPath, const char* signName, vxOnTrafficTemp callback)
{
    if (localPath == nullptr || signName == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=] { return TemperatureLog(localPath, signName, callback).Read(); });
}
