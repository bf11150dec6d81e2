// vxctl's own parsers: of bytes that a sign sent, of files, and of what people write.
#include "fuzz/support.h"
#include "vxctl/book/signBook.h"
#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/jsonText.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/shown.h"
#include "vxctl/cli/signUrl.h"
#include "vxctl/files/directoryEntry.h"
#include "vxctl/files/signPaths.h"
#include "vxctl/playlist/playList.h"
#include "vxctl/playlist/scheduleText.h"
#include "vxctl/show/pictures.h"
#include "vxctl/show/showCodes.h"
#include "vxctl/sign/packetDump.h"
#include "vxctl/state/signTable.h"
#include "vxctl/tiles/tilePixels.h"
#include "vxctl/zones/faceArea.h"

#include <iterator>

using namespace vxsign::fuzz;

namespace {

void Shows(const std::string& text)
{
    const std::string shown = vxctl::Printable(text);
    Require(vxctl::IsUtf8(shown), "what is shown is UTF-8");
    Require(vxctl::Printable(shown) == shown, "what is shown stays as it is");
    const std::string json = vxctl::JsonText({{"name", text}});
    const auto parsed = nlohmann::json::parse(json);
    Require(!vxctl::IsUtf8(text) || parsed["name"] == text, "JSON loses nothing");
}

void Entries(Input& input)
{
    const auto entry = [](const auto& decoded) {
        if (decoded)
            Shows(decoded->name);
    };
    while (!input.IsOver()) {
        const bool isLong = (input.U8() & 1) != 0;
        const Bytes bytes = input.Whole(isLong ? vxctl::kLongEntrySize : vxctl::kShortEntrySize);
        if (isLong)
            entry(vxctl::DecodeLongEntry(View(bytes).first<vxctl::kLongEntrySize>()));
        else if (!vxctl::IsEnd(View(bytes).first<vxctl::kShortEntrySize>()))
            entry(vxctl::DecodeShortEntry(View(bytes).first<vxctl::kShortEntrySize>()));
    }
}

void Rows(Input& input)
{
    const std::size_t columns = 1 + input.U8() % 20;
    for (const vxctl::TextRow& row : vxctl::ParseRows(TextOf(input.Rest()), columns)) {
        Require(row.size() == columns, "a row has its columns");
        Shows(vxctl::CsvLine(row));
    }
}

void Packets(Input& input)
{
    const View bytes = input.Rest();
    const auto packet = vxctl::PacketAt(bytes.data(), bytes.size());
    vxctl::DumpPacket(packet);
    vxctl::JsonText({{"packet", vxctl::DescribePacket(packet)}});
}

void Pictures(Input& input)
{
    static const char* const kFits[] = {"contain", "cover", "stretch", "none"};
    const int width = 1 + input.U8();
    const int height = 1 + input.U8();
    const char* const how = kFits[input.U8() % 4];
    const View bytes = input.Rest();
    const bool shown = vxctl::WhyNotShown(bytes).empty();
    try {
        for (const vxctl::Frame& frame : vxctl::DecodeFrames(bytes))
            vxctl::EncodeBmp(vxctl::Fit(frame.picture, width, height, how));
    } catch (const vxctl::UsageError&) {
        Require(!shown || bytes.empty() || bytes[0] != 'B', "what a list can show can be decoded");
    }
}

void Calibrations(Input& input)
{
    vxctl::TileShape shape;
    shape.width = 1 + input.U8() % 64U;
    shape.height = 1 + input.U8() % 64U;
    shape.moduleWidth = input.U8();
    shape.moduleHeight = input.U8();
    const View rest = input.Rest();
    vxctl::MakeCalibrationFile(vxctl::ParseCalibrationFile({rest.begin(), rest.end()}, shape), true, shape);
}

void Tables(Input& input)
{
    const bool csv = (input.U8() & 1) != 0;
    const std::string_view text = TextOf(input.Rest());
    const vxctl::TilePixels pixels = csv ? vxctl::ParseTileCsv(text) : vxctl::ParseTileJson(text);
    Require(pixels.coefficients.size() == pixels.Count() * vxctl::kTileCoefficients, "a tile has all its coefficients");
    if (pixels.Count() > 4096)
        return;
    const auto again =
        csv ? vxctl::ParseTileCsv(vxctl::TileCsv(pixels)) : vxctl::ParseTileJson(vxctl::TileJson(pixels));
    Require(again.coefficients == pixels.coefficients, "a calibration comes back as it was written");
}

void Schedules(Input& input)
{
    const std::string days = input.Text();
    const std::string dates = input.Text();
    Shows(vxctl::DescribeSchedule(vxctl::MakeSchedule(days, dates, input.Text())));
}

void RawSchedules(Input& input)
{
    SCH schedule;
    const Bytes bytes = input.Whole(sizeof schedule);
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<std::uint8_t*>(&schedule));
    Shows(vxctl::DescribeSchedule(schedule));
}

template <class Parse>
void Try(const Parse& parse, const std::string& text)
{
    try {
        parse(text);
    } catch (const vxctl::UsageError&) { // what people write may be wrong
    }
}

void Words(Input& input)
{
    const std::string text = input.Text();
    Shows(text);
    Try(vxctl::ParseSignUrl, text);
    Try([](const std::string& book) { vxctl::ParseBook(book, "signs.toml"); }, text);
    Try(vxctl::ReadTime, text);
    Try(vxctl::ParsePlace, text);
    Try(vxctl::ParsePlayFile, text);
    Try(vxctl::ParseDrive, text);
    Try(vxctl::ParseArea, text);
    Try(vxctl::ParseFaceSize, text);
    Try(vxctl::ParseFont, text);
    Try(vxctl::ParseMode, text);
    Try(vxctl::ParseColour, text);
    Try(vxctl::ParseHex, text);
    Try([](const std::string& grid) { vxctl::ParseGrid(grid, 128, 32); }, text);
    const std::uint16_t date = input.U16();
    if (const auto time = vxctl::FolderTime(date, input.U16()))
        Require(vxctl::ParseClockTime(vxctl::FormatTime(*time, ' ')) == time, "a time comes back as it was written");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Input input(bytes, size);
    static constexpr void (*kSubjects[])(Input&) = {Entries, Rows,      Packets,      Pictures, Calibrations,
                                                    Tables,  Schedules, RawSchedules, Words};
    try {
        kSubjects[input.U8() % std::size(kSubjects)](input);
    } catch (const vxctl::UsageError&) { // a clear word
    }
    return 0;
}
