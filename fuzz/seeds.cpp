// Makes the first runs: of what library and virtual sign say to each other and write.
#include "fuzz/calls.h"
#include "fuzz/seedSign.h"
#include "fuzz/signSteps.h"
#include "sim/face/png.h"

#include <vxsign/vxsign.h>

#include <cstring>
#include <map>
#include <utility>

using namespace vxsign;
using namespace vxsign::fuzz;
namespace fs = std::filesystem;

namespace {

Bytes Png()
{
    return vxsim::PngFace(vxsim::Canvas(8, 4), 4);
}

void SeedFiles(const Content& content, const SeedSign& sign)
{
    const Bytes flat = Bytes{'S', 'Q', 4, 0, 1, 0, 0, 0} + Bytes{'D', 'T', 15, 255} + Bytes(20) +
                       Bytes{'A', '.', 'N', 'M', 'G', 0, 0, 0, 0, 0, 0, 0};
    for (const std::uint8_t form : {std::uint8_t{0}, std::uint8_t{1}}) {
        Seed("playlist", "tree" + std::to_string(form), Bytes{form, 0, 0, 0, 0} + content.list);
        Seed("playlist", "flat" + std::to_string(form), Bytes{form, 0, 0, 0, 0} + flat);
    }
    Seed("playlist", "xml", Bytes{2, 0, 0, 0, 0} + content.xml);
    const Bytes name = Text("A.NMG") + Bytes(58);
    const Bytes& message = content.message;
    Seed("package", "pls",
         Bytes{0, 'L', 'P', 1, 0} + Bytes(8) + Word(message.size()) + Bytes{0, 0, 'T', 255} + Bytes(18) + name +
             message);
    Seed("package", "plm",
         Bytes{1, 'M', 'P', 1, 0} + Bytes(8) + Word(message.size()) + Bytes{0, 0, 'T', 0, 1, 0} + Bytes(20) + name +
             message);
    Seed("package", "beacon", Bytes{2, 'L', 'T', 1, 0} + Bytes(18));
    Seed("package", "config", Bytes{3} + FileOf(sign.Drive("C/CONFIG.SYS")));
    Seed("package", "nmg", Bytes{4} + message);

    Seed("content", "show-message", Bytes{0, 63, 31, '1', '1'} + message);
    Seed("content", "show-picture", Bytes{0, 63, 31, '1', '1'} + content.wrapped);
    Seed("content", "play", Bytes{1, 63, 31} + Block(message) + content.list);
    Seed("content", "play-flat", Bytes{1, 63, 31} + Block(content.picture) + flat);
    Seed("content", "text",
         Bytes{2, 63, 31, '1'} + Text("ROAD WORK \xD8\xB9\xD8\xB1\n\xE9\x81\x93") + Bytes{'3'} + Text("50"));
    Seed("content", "bmp", Bytes{3, 63, 31} + content.picture);
    Seed("content", "png", Bytes{3, 63, 31} + Png());

    Seed("localFile", "message", Bytes{2, '1', '1', 0, 0, 0, '1'} + message);
    Seed("localFile", "wrapped", Bytes{2, '1', '1', 0, 0, 0, '1', 'N', 'G'} + message);
    Seed("localFile", "batch",
         Bytes{3, 'M', 'C', 0, 0, 1, 0, 0, 0, 1, 0, 0, 0} + Bytes(104) + Text("A.NMG") + Bytes(250) +
             Text("D:\\T\\A.NMG") + Bytes(245));
    Seed("localFile", "ini", Bytes{4} + Text("s") + Text("key") + Text("new") + Text("; c\n[s]\nkey = \"old\"\n"));
    Seed("localFile", "lines", Bytes{5, 40} + Text("C:\\a\\b.txt") + Text("one\r\ntwo\n"));
    const std::uint16_t pixels[8 * 4 * 9] = {1, 2, 3};
    for (std::uint8_t model = 0; model <= 80; model += 16) {
        vxTarsisTilePxlSave(pixels, sizeof pixels, "tile", 0, model, 8, 4, 4, 4);
        Seed("localFile", "tile" + std::to_string(model), Bytes{0, 0, model, 8, 4, 4, 4} + FileOf("tile"));
    }
}

Bytes Status()
{
    TileFileHeader header{};
    header.magic = 0x55AA;
    header.headerLength = 32;
    header.fileType = VX_TILE_STATUS;
    header.bodyLength = 96;
    TileStaRecord record{};
    record.width = record.moduleWidth = 8;
    record.height = record.moduleHeight = 4;
    record.modulesAcross = record.modulesDown = 1;
    Bytes file(128);
    std::memcpy(file.data(), &header, sizeof header);
    std::memcpy(file.data() + sizeof header, &record, sizeof record);
    return file;
}

void SeedCalibrations()
{
    TileFileHeader header{};
    header.magic = 0x55AA;
    header.headerLength = 32;
    header.fileType = VX_TILE_CALIBRATION;
    header.bodyLength = 8 * 4 * 18;
    Bytes flat(sizeof header);
    std::memcpy(flat.data(), &header, sizeof header);
    flat = flat + Bytes(header.bodyLength, 1);
    Bytes blocks = flat;
    blocks[16] = static_cast<std::uint8_t>(header.bodyLength + 64);
    blocks.insert(blocks.begin() + 32, 64, 0);
    Seed("localFile", "calibration-read", Bytes{1, 0} + Block(Status()) + blocks);
    Seed("localFile", "calibration-write", Bytes{1, 1} + Block(Status()) + flat);
    Seed("text", "calibration", Bytes{4, 7, 3, 8, 4} + flat);
    Seed("text", "calibration-blocks", Bytes{4, 7, 3, 8, 4} + blocks);
}

void SeedTexts(const Content& content)
{
    Bytes entry(276);
    std::memcpy(entry.data(), "A.NMG", 5);
    entry[260] = 40;
    Seed("text", "entries",
         Bytes{0, 1} + entry + Bytes{0, 'A', ' ', ' ', ' ', ' ', ' ', ' ', ' ', 'N', 'M', 'G'} + Bytes(21, 7));
    Seed("text", "rows", Bytes{1, 1} + Text("<1><two><3><four>"));
    Seed("text", "packet", Bytes{2, 0x55, 0xA8, 6, 0, 2, 0, 0, 0, 0, 0, 1, 0, 4, 1, 1, 0, 1, 2, 3, 4, 5, 6});
    Seed("text", "bmp", Bytes{3, 63, 31, 0} + content.picture);
    Seed("text", "png", Bytes{3, 63, 31, 1} + Png());
    const Bytes gif{'G', 'I', 'F', '8', '9', 'a', 1,    0, 1, 0, 0x80, 0, 0, 255, 0, 0, 0, 0, 255,  0x21, 0xF9, 4,
                    1,   5,   0,   0,   0,   0,   0x2C, 0, 0, 0, 0,    1, 0, 1,   0, 0, 2, 2, 0x44, 1,    0,    0x3B};
    Seed("text", "gif", Bytes{3, 63, 31, 2} + gif);
    Seed("text", "csv", Bytes{5, 1} + Text("x,y,rr,rg,rb,gr,gg,gb,br,bg,bb\n0,0,255,0,0,0,255,0,0,0,255\n"));
    Seed("text", "json", Bytes{5, 0} + Text("{\"width\":1,\"height\":1,\"pixels\":[[1,2,3,4,5,6,7,8,9]]}"));
    Seed("text", "schedule", Bytes{6} + Text("mon-fri,sun") + Text("2026-12-01..2026-12-24") + Text("22:00..06:00"));
    Seed("text", "schedule-bytes",
         Bytes{7, 127, 0, 0x20, 0x20, 1, 1, 0, 0, 1, 1, 0x30, 0x20, 0x12, 0x31, 0x23, 0x59, 1, 1});
    for (const char* const words : {"udp://1.2.3.4:9520", "serial:COM1@9600", "2026-11-21 14:05:30", "/G/S/F",
                                    "D:\\T\\A.NMG", "0,0,64x32", "2x2", "#FF8000", "0a 1B-2c"})
        Seed("text", std::string("word-") + words, Bytes{8} + Text(words) + Bytes{0x21, 0x5A, 0x21, 0x5A});
}

// What stands in the sign's own reports, for each reader that may take it.
void SeedReports(const SeedSign& sign)
{
    const std::pair<std::uint8_t, const char*> kFiles[] = {
        {0, "D/RADARLog.log"}, {1, "E/RADAR.log"},  {3, "D/batinfo.log"},        {4, "D/dbatinfo.log"},
        {5, "E/STATUS.SYS"},   {6, "E/errors.xml"}, {7, "D/log/vxspeapp.log"},   {8, "D/PXL.CSV"},
        {8, "D/SIGNAL.CSV"},   {10, "C/PIXEL.SYS"}, {17, "E/ERR_REC/ERRMSG.ERR"}};
    for (const auto& [reader, path] : kFiles)
        if (const Bytes file = FileOf(sign.Drive(path)); !file.empty())
            Seed("report", path, Bytes{reader, 0, 0} + file);
    const std::string xml =
        "<R><MainboardStatus><DT>2020-05-13</DT><Waring><Fan>1</Fan></Waring></MainboardStatus>"
        "<TileStatus><DT>x</DT><T><Position>X=1,Y=2</Position><Waring><A>1</A></Waring></T></TileStatus>"
        "<PixelCheckResult><DT>x</DT><PixelErrorNum>3</PixelErrorNum></PixelCheckResult></R>";
    Seed("report", "xml", Bytes{6, 0, 0} + Text(xml));
    Seed("report", "pixels",
         Bytes{8, 0, 0} + Text("1,2,3,4,\"Red Pixel Bad\",\"2020-05-13\"\n2,3,4,\"Signal\",\"2020\"\n"));
    Seed("report", "pixel-text", Bytes{10, 0, 0} + Text("Port:1 Signal Error\nBoard(1,2) have 3 pixel bad\nALL OK\n"));
    Seed("report", "ring",
         Bytes{5, 0, 0, 'S', 'T'} + Bytes(6) + Bytes{3, 0} + Bytes(22) +
             Bytes{5, 1, 2, 3, 4, 0, 0, 0, 3, 1, 2, 3, 1, 30, 40, 50});
    Seed("report", "long-folder", Bytes{19, 0, 0} + FileOf("long"));
    for (std::uint8_t reader = 11; reader < 17; ++reader)
        Seed("report", "rows" + std::to_string(reader), Bytes{reader, 0, 0} + Text("<1><2><three><4>"));
}

// Each export of the list against the virtual sign.
void SeedCalls()
{
    const auto calls = AllCalls();
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EmptyFolder();
        SeedSign sign(i % 2 == 0);
        const Content content(sign);
        Run(calls[i]);
        Seed("reply", calls[i].name, Bytes{static_cast<std::uint8_t>(i)} + sign.answers);
        Seed("sign", calls[i].name, Bytes{static_cast<std::uint8_t>(i % 2 == 0 ? 1 : 0)} + sign.requests);
    }
}

// Each row of the sign's table of commands, several in a run.
void SeedRows()
{
    EmptyFolder();
    vxsim::SignSettings settings;
    settings.folder = fs::current_path();
    settings.controller = true;
    const vxsim::VirtualSign sign(settings);
    std::map<unsigned, Bytes> families;
    for (const vxsim::CommandRow& row : sign.Commands()) {
        const auto words = static_cast<std::uint8_t>((row.leastPayload + 3) / 4 + 1);
        const std::size_t extended = row.leastData + 4U;
        const auto check = static_cast<std::uint8_t>(row.major.direct ? 2 : 0);
        families[row.major.number] = families[row.major.number] +
                                     Bytes{kRequest, row.major.number, row.minors.first, words} + Word(extended) +
                                     Bytes{0, 0, check} + Bytes(4U * words, 1) + Bytes(extended, 'A');
    }
    for (const auto& [major, steps] : families)
        Seed("sign", "family" + std::to_string(major), Bytes{1} + steps + Bytes{kTime, 0xB8, 0x0B, 0, 0});
    const Bytes block = Bytes{1, 1, 254} + Bytes(128, 'x') + Bytes{0, 0};
    Seed("sign", "lines",
         Bytes{0, kXmodem} + Block(block) + Bytes{kModbusRtu} + Block({7, 3, 0, 0, 0, 1, 0x84, 0x6C}) +
             Bytes{kModbusTcp} + Block({0, 1, 0, 0, 0, 6, 7, 3, 0, 0, 0, 1}) + Bytes{kStream} +
             Block({0x55, 0xA7, 6, 0, 0, 0, 0, 0, 0, 0, 1, 0, 4, 1, 0, 0}));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    SeedInto(argv[1]);
    SeedRows();
    SeedCalls();
    EmptyFolder();
    SeedSign sign(true);
    const Content content(sign);
    test::FakeClock::Advance(100'000);
    vxPxlChk("pixels", "signals");
    vxGetDirLongFileEx("D:\\T", "long");
    SeedFiles(content, sign);
    SeedCalibrations();
    SeedTexts(content);
    SeedReports(sign);
    EmptyFolder();
    return 0;
}
