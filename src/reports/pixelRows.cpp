// What the pixel check has found, out of the sign's files and tables.
#include "platform/clock.h"
#include "reports/pattern.h"
#include "reports/table.h"
#include "util/localCall.h"
#include "util/text.h"
#include "util/textFile.h"
#include "util/timeText.h"

#include <vxsign/filesystem.h>
#include <vxsign/pixel.h>
#include <vxsign/read.h>
#include <vxsign/result.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>

using namespace vxsign;

static_assert(sizeof(vxPixelRow) == 132 && offsetof(vxPixelRow, X) == 4 && offsetof(vxPixelRow, Y) == 8);
static_assert(offsetof(vxPixelRow, Status) == 10 && offsetof(vxPixelRow, Time) == 110);
static_assert(offsetof(vxPixelRow, Number) == 130);

namespace {

using Take = std::function<void(const vxPixelRow&)>;

constexpr std::size_t kLineSize = 128;

// A CSV file: its lines and which of their groups are the texts.
struct CsvFile
{
    std::uint32_t kind;
    const char* expression;
    std::size_t statusGroup;
    std::size_t timeGroup;
};
constexpr CsvFile kPixelCsv = {VX_PIXEL_BAD, R"re(([^,]*),([^,]*),([^,]*),([^>]*),"([^"]*)","?([^"]*)(")?)re", 5, 6};
constexpr CsvFile kSignalCsv = {VX_SIGNAL_BAD, R"re(([^,]*),([^,]*),([^>]*),"([^"]*)","?([^"]*)(")?)re", 4, 5};

constexpr Column kColumns[] = {
    NumberAt(offsetof(vxPixelRow, X)),
    NumberAt(offsetof(vxPixelRow, Y), sizeof(vxPixelRow::Y)),
    TextAt(offsetof(vxPixelRow, Status), sizeof(vxPixelRow::Status)),
    TextAt(offsetof(vxPixelRow, Time), sizeof(vxPixelRow::Time)),
};
constexpr Table PixelTable(const char* name, void (*clear)(const Table&))
{
    return {name, "X,Y,Status,DateTime", 10, "", kColumns, clear};
}

vxPixelRow RowOf(std::uint32_t kind)
{
    vxPixelRow row{};
    row.Kind = kind;
    return row;
}

// A sign without the file has no findings.
std::uint32_t WithoutFile(std::uint32_t result)
{
    return result == VX_FILE_NOT_EXISTS ? static_cast<std::uint32_t>(VX_OK) : result;
}

// Calls take with the groups of each line that matches.
void TakeLines(const File& file, const Pattern& line, const std::function<void(const Groups&)>& take)
{
    std::array<char, kLineSize + 1> text{};
    Groups groups;
    while (ReadSteppedLine(file, text.data(), kLineSize) != 0)
        if (line.Find(text.data(), groups))
            take(groups);
}

std::uint32_t TakeCsv(const CsvFile& csv, const Pattern& line, const char* local, const Take& take)
{
    const File file = OpenFile(local, "rb");
    if (!file)
        return VX_OPEN_FILE;
    TakeLines(file, line, [&](const Groups& groups) {
        vxPixelRow row = RowOf(csv.kind);
        row.Number = static_cast<std::uint16_t>(NumberOf(groups[1]));
        row.X = static_cast<std::uint32_t>(NumberOf(groups[2]));
        row.Y = static_cast<std::uint16_t>(NumberOf(groups[3]));
        CopyToField(row.Status, sizeof row.Status, groups[csv.statusGroup]);
        CopyToField(row.Time, sizeof row.Time, groups[csv.timeGroup]);
        take(row);
    });
    return VX_OK;
}

std::uint32_t ReadCsv(const std::string& folder, const Take& take)
{
    const Pattern pixelLine(kPixelCsv.expression);
    if (!pixelLine.Good())
        return VX_CALL;
    const std::string pixels = folder + "PXL.CSV";
    const std::string signals = folder + "SIGNAL.CSV";
    std::uint32_t result = vxPxlChk(pixels.c_str(), signals.c_str());
    if (result != VX_OK)
        return WithoutFile(result);
    vxDelete("D:\\PXL.CSV");
    result = TakeCsv(kPixelCsv, pixelLine, pixels.c_str(), take);
    if (result != VX_OK)
        return result;
    vxDelete("D:\\SIGNAL.CSV");
    const Pattern signalLine(kSignalCsv.expression);
    return signalLine.Good() ? TakeCsv(kSignalCsv, signalLine, signals.c_str(), take)
                             : static_cast<std::uint32_t>(VX_CALL);
}

// What a line of the text file tells.
class TextLine
{
public:
    bool Good() const { return allOk.Good() && tooMany.Good() && port.Good() && board.Good(); }

    enum class Finding
    {
        kNone,
        kWhole, // one for the whole sign: nothing else counts
        kSingle
    };
    Finding Read(const char* line, vxPixelRow& row) const
    {
        Groups groups;
        const bool whole = allOk.Find(line, groups) || tooMany.Find(line, groups);
        if (!whole && port.Find(line, groups)) {
            row.X = static_cast<std::uint32_t>(NumberOf(groups[1]));
        } else if (!whole && board.Find(line, groups)) {
            row.X = static_cast<std::uint32_t>(NumberOf(groups[1]));
            row.Y = static_cast<std::uint16_t>(NumberOf(groups[2]));
        } else if (!whole) {
            return Finding::kNone;
        }
        CopyToField(row.Status, sizeof row.Status, groups[0]);
        return whole ? Finding::kWhole : Finding::kSingle;
    }

private:
    const Pattern allOk{"(ALL OK)"};
    const Pattern tooMany{"(Too many bad)"};
    const Pattern port{"Port:([0-9]+) Signal Error"};
    const Pattern board{"Board\\(([0-9]+),([0-9]+)\\) have ([0-9]+) pixel bad"};
};

std::uint32_t ReadTextFile(const std::string& folder, const Take& take)
{
    constexpr char kSignPath[] = "C:\\PIXEL.SYS";
    const TextLine line;
    if (!line.Good())
        return VX_CALL;
    const std::string local = folder + "PIXEL.SYS";
    const std::uint32_t result = vxReadSpecPathFile(kSignPath, local.c_str());
    if (result != VX_OK)
        return WithoutFile(result);
    vxPixelRow blank{};
    PutTime(blank.Time, platform::clock.localTime());
    vxDelete(kSignPath);
    const File file = OpenFile(local.c_str(), "rb");
    if (!file)
        return VX_OPEN_FILE;
    std::array<char, kLineSize> text{};
    while (ReadWholeLine(file, text.data(), text.size())) {
        vxPixelRow row = blank;
        const TextLine::Finding finding = line.Read(text.data(), row);
        if (finding != TextLine::Finding::kNone)
            take(row);
        if (finding == TextLine::Finding::kWhole)
            break;
    }
    return VX_OK;
}

} // namespace

std::uint32_t vxReadPixelInfo(const char* folder, std::uint32_t user, std::uint32_t source, vxOnPixelInfo callback)
{
    if (folder == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const Take take = [=](const vxPixelRow& row) { callback(user, &row); };
        if (source == VX_PIXELS_FROM_DATABASE)
            return ReadRecords(PixelTable("PixelStatus", ClearTable), RowOf(VX_PIXEL_BAD), take).code;
        const bool text = (source >= VX_PIXELS_FROM_TEXT && source <= 6) || source == VX_PIXELS_FROM_TEXT_2;
        return text ? ReadTextFile(folder, take) : ReadCsv(folder, take);
    });
}

std::uint32_t vxReadPixelErrorReport(vxOnPixelError callback)
{
    if (callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const Take take = [=](const vxPixelRow& row) { callback(&row); };
        const TableResult pixels = ReadRecords(PixelTable("PixelStatus", nullptr), RowOf(VX_PIXEL_BAD), take);
        if (!pixels.counted)
            return pixels.code;
        // A page that failed does not keep the other table from being read.
        const TableResult signals = ReadRecords(PixelTable("PixelSignalErr", nullptr), RowOf(VX_SIGNAL_BAD), take);
        return pixels.code != VX_OK ? pixels.code : signals.code;
    });
}

std::uint32_t vxTestPattern()
{
    return LocalCall<std::uint32_t>(VX_CALL, []() -> std::uint32_t {
        const Pattern line(R"re(([^,]*),([^,]*),([^>]*),"([^"]*)",(")?([^"]*)(")?)re");
        if (!line.Good())
            return VX_CALL;
        if (const File file = OpenFile("F:\\PL\\SIGNAL.CSV", "rb"); file)
            TakeLines(file, line, [](const Groups&) {});
        return VX_OK;
    });
}
