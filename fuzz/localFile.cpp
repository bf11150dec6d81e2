// Files of the PC: tile pixels, calibrations, messages to wrap and unwrap, batches, INI.
#include "fuzz/line.h"

#include <vxsign/vxsign.h>

#include <array>
#include <filesystem>
#include <memory>

using namespace vxsign::fuzz;

namespace {

constexpr char kFile[] = "file";

// The most pixels of a tile in one run, for speed.
constexpr std::uint32_t kMostPixels = 4096;

void TilePixels(Input& input)
{
    const std::array<std::uint32_t, 6> shape{input.U8(), input.U8(), input.U8(), input.U8(), input.U8(), input.U8()};
    const auto [kind, model, width, height, moduleWidth, moduleHeight] = shape;
    if (width * height > kMostPixels)
        return;
    WriteFile(kFile, input.Rest());
    const std::uint32_t words = width * height * 9;
    const auto pixels = std::make_unique<std::uint16_t[]>(words);
    vxTarsisTilePxlLoad(pixels.get(), 2 * words, kFile, kind, model, width, height, moduleWidth, moduleHeight);
    vxTarsisTilePxlSave(pixels.get(), 2 * words, "saved", kind, model, width, height, moduleWidth, moduleHeight);
}

// A calibration in both directions: the tile's status, and the calibration on the PC or in the tile.
void Calibration(Input& input)
{
    std::filesystem::create_directories("c:/port1");
    const bool reads = input.U8() % 2 == 0;
    const View status = input.Block();
    const View file = input.Rest();
    WriteFile(kFile, file);
    const Line line([&](const vxsign::test::Packet& request) {
        if (request.Minor() != 1)
            return vxsign::test::MakeReply(request, 0, {}, {});
        const View sent = request.bytes[17] == VX_TILE_STATUS ? status : file;
        std::size_t at = request.bytes.size() >= 24 ? request.Word(20) : 0;
        at = std::min(at, sent.size());
        const View part = sent.subspan(at, std::min<std::size_t>(264, sent.size() - at));
        return vxsign::test::MakeReply(request, 0, {}, {part.begin(), part.end()});
    });
    if (reads)
        vxDirectTileReadFileEx("calibration", VX_TILE_CALIBRATION, 1, 1, 0);
    else
        vxDirectTileWriteFileEx(kFile, VX_TILE_CALIBRATION, 1, 1, 0);
    const std::array<std::uint8_t, VX_CAL_PARAMS> params{};
    vxDirectTilePHYWriteCoefficent2(kFile, 1, 1, 0, params.data(), params.size());
}

void Message(Input& input)
{
    const int font = input.U8();
    const std::uint32_t colour = input.U32();
    const std::uint8_t mode = input.U8();
    const View text = input.Rest();
    WriteFile(kFile, text);
    std::uint8_t letter;
    const auto path = std::make_unique<char[]>(20);
    const auto name = std::make_unique<char[]>(12);
    vxMakeSignPath(kFile, path.get(), 20, 'D', &letter, name.get());
    vxShowMsgToNmg(text.data(), static_cast<std::uint32_t>(text.size()), "text.nmg", font, colour, mode, 5);
    vxShowBmpToNmg(kFile, "picture.nmg", mode, 5);
    vxBmp2Nmg(kFile, "second.nmg", 5, mode);
    const Line line([](const vxsign::test::Packet& request) { return vxsign::test::MakeReply(request, 0, {}, {}); });
    vxWriteSpecFile("D:\\T\\A.NMG", kFile); // a wrapped one is unwrapped
    const char* files[] = {kFile, "text.nmg"};
    vxShowFiles(files, 0, mode, 5, "127.0.0.1", 9, 0);
}

void Batch(Input& input)
{
    const Line line([](const vxsign::test::Packet& request) { return vxsign::test::MakeReply(request, 0, {}, {}); });
    WriteFile(kFile, input.Rest());
    vxExecFileCMD(kFile);
}

void Ini(Input& input)
{
    const std::string section = input.Text();
    const std::string key = input.Text();
    const std::string value = input.Text();
    WriteFile(kFile, input.Rest());
    const auto out = std::make_unique<char[]>(64);
    std::uint32_t number = 0;
    vxGetINIWithString(section.c_str(), key.c_str(), "default", kFile, out.get());
    vxGetINIWithInt(section.c_str(), key.c_str(), 7, kFile, &number);
    vxSetINIWithString(section.c_str(), key.c_str(), value.c_str(), kFile);
    vxGetINIWithString(section.c_str(), key.c_str(), "default", kFile, out.get());
}

void Lines(Input& input)
{
    const std::uint8_t room = input.U8();
    const std::string path = input.Text();
    WriteFile(kFile, input.Rest());
    const auto buffer = std::make_unique<std::uint8_t[]>(room);
    if (FILE* const file = vxFOpen(kFile, "rb")) {
        while (vxReadFileLine(file, buffer.get(), room) != 0) {
        }
        std::fclose(file);
    }
    std::array<std::unique_ptr<char[]>, 4> parts;
    for (auto& part : parts)
        part = std::make_unique<char[]>(room);
    vxStr_splitpath(path.c_str(), parts[0].get(), room, parts[1].get(), room, parts[2].get(), room, parts[3].get(),
                    room);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    EmptyFolder();
    const vxsign::test::FakeClock clock;
    Input input(bytes, size);
    static constexpr void (*kSubjects[])(Input&) = {TilePixels, Calibration, Message, Batch, Ini, Lines};
    kSubjects[input.U8() % std::size(kSubjects)](input);
    return 0;
}
