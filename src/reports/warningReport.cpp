// "errors.xml", the sign's report of what is wrong, and the log of its program.
#include "reports/pattern.h"
#include "thread/tempFile.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/status.h>

#include <cstddef>
#include <tinyxml2.h>

using namespace vxsign;
using tinyxml2::XMLElement;

static_assert(sizeof(vxWaringReportRow) == 392 && offsetof(vxWaringReportRow, X) == 4);
static_assert(offsetof(vxWaringReportRow, Name) == 6 && offsetof(vxWaringReportRow, Value) == 70);
static_assert(offsetof(vxWaringReportRow, Time) == 326);

namespace {

// What the XML parser says for a file that is not there.
constexpr std::uint32_t kNoReport = tinyxml2::XML_ERROR_FILE_NOT_FOUND;
static_assert(kNoReport == 3);

// The text of an element, empty for one without text and for none.
const char* TextOf(const XMLElement* element)
{
    const char* const text = element != nullptr ? element->GetText() : nullptr;
    return text != nullptr ? text : "";
}

const char* ChildText(const XMLElement& element, const char* name)
{
    return TextOf(element.FirstChildElement(name));
}

// A row of a kind, with the time of the part of the report that it comes from.
vxWaringReportRow MakeRow(std::uint32_t kind, const XMLElement& part)
{
    vxWaringReportRow row{};
    row.Kind = kind;
    CopyToText(row.Time, sizeof row.Time, ChildText(part, "DT"));
    return row;
}

void Deliver(vxWaringReportRow row, std::string_view name, std::string_view value, vxOnWaringReport callback)
{
    CopyToText(row.Name, sizeof row.Name, name);
    CopyToText(row.Value, sizeof row.Value, value);
    callback(&row);
}

// A row for each child of "Waring".
void TakeWarings(const XMLElement& element, const vxWaringReportRow& row, vxOnWaringReport callback)
{
    const XMLElement* const warings = element.FirstChildElement("Waring");
    if (warings == nullptr)
        return;
    for (const auto* item = warings->FirstChildElement(); item != nullptr; item = item->NextSiblingElement())
        Deliver(row, item->Name(), TextOf(item), callback);
}

void TakeTiles(const XMLElement& tiles, const Pattern& position, vxOnWaringReport callback)
{
    vxWaringReportRow row = MakeRow(VX_WARING_TILE, tiles);
    for (const auto* tile = tiles.FirstChildElement(); tile != nullptr; tile = tile->NextSiblingElement()) {
        if (std::string_view(tile->Name()) == "DT")
            continue;
        row.X = row.Y = VX_WARING_NO_POSITION;
        Groups groups;
        if (position.Find(ChildText(*tile, "Position"), groups)) {
            row.X = static_cast<std::uint8_t>(NumberOf(groups[1]));
            row.Y = static_cast<std::uint8_t>(NumberOf(groups[2]));
        }
        TakeWarings(*tile, row, callback);
    }
}

void TakePixelCount(const XMLElement& check, const char* element, std::uint32_t kind, const char* name,
                    vxOnWaringReport callback)
{
    const std::int32_t count = NumberOf(ChildText(check, element));
    if (count > 0)
        Deliver(MakeRow(kind, check), name, "Num=" + std::to_string(count), callback);
}

std::uint32_t TakeReport(const XMLElement& report, vxOnWaringReport callback)
{
    if (const auto* const board = report.FirstChildElement("MainboardStatus"); board != nullptr)
        TakeWarings(*board, MakeRow(VX_WARING_MAINBOARD, *board), callback);
    if (const auto* const tiles = report.FirstChildElement("TileStatus"); tiles != nullptr) {
        const Pattern position("X=([^>]*),Y=([^>]*)");
        if (!position.Good())
            return VX_CALL;
        TakeTiles(*tiles, position, callback);
    }
    if (const auto* const check = report.FirstChildElement("PixelCheckResult"); check != nullptr) {
        TakePixelCount(*check, "PixelErrorNum", VX_WARING_PIXELS, "PixelError", callback);
        TakePixelCount(*check, "SignalErrorNum", VX_WARING_SIGNALS, "SignalError", callback);
    }
    return VX_OK;
}

} // namespace

std::uint32_t vxReadWaringReport(vxOnWaringReport callback)
{
    if (callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const TempFile temp("xml");
        const std::uint32_t result = vxReadWarning(temp.Path());
        if (result != VX_OK)
            return result;
        const File file = OpenFile(temp.Path(), "rb");
        if (!file)
            return kNoReport;
        tinyxml2::XMLDocument document;
        if (const tinyxml2::XMLError error = document.LoadFile(file.get()); error != tinyxml2::XML_SUCCESS)
            return static_cast<std::uint32_t>(error);
        const XMLElement* const report = document.RootElement();
        return report != nullptr ? TakeReport(*report, callback) : static_cast<std::uint32_t>(VX_OK);
    });
}

std::uint32_t vxReadWarningLog(std::uint16_t* head, std::uint8_t* rows, std::uint8_t count)
{
    constexpr std::size_t kHeadSize = 16;
    constexpr std::size_t kRowSize = 32;
    constexpr std::uint16_t kMagic = 19527; // "GL"
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        const TempFile temp("log");
        // A missing pointer is refused where the read refuses its own: behind the opening of the channel.
        const char* const local = head != nullptr && rows != nullptr ? temp.Path() : nullptr;
        const std::uint32_t result = vxReadSpecPathFile("D:\\log\\vxspeapp.log", local);
        if (result != VX_OK)
            return result;
        const File file = OpenFile(temp.Path(), "rb");
        if (!file)
            return VX_OPEN_FILE;
        std::uint8_t bytes[kHeadSize] = {};
        ReadSome(file, bytes, sizeof bytes);
        std::memcpy(head, bytes, sizeof bytes);
        if (Load16(bytes) == kMagic) {
            std::memset(rows, 0, count * kRowSize);
            ReadSome(file, rows, count * kRowSize);
        }
        return VX_OK;
    });
}
