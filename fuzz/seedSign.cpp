// A virtual sign that talks while its words are kept.
#include "fuzz/seedSign.h"

#include "fuzz/signSteps.h"

#include <vxsign/vxsign.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

namespace vxsign::fuzz {

namespace fs = std::filesystem;

namespace {

fs::path seeds;

} // namespace

Bytes Block(const Bytes& bytes)
{
    return Word(bytes.size()) + bytes;
}
Bytes Text(std::string_view text)
{
    return test::FromText(text) + Bytes{0};
}

void SeedInto(const fs::path& folder)
{
    seeds = fs::absolute(folder);
}

void Seed(const std::string& target, const std::string& name, const Bytes& bytes)
{
    std::string plain = name;
    for (char& letter : plain)
        if (std::isalnum(static_cast<unsigned char>(letter)) == 0)
            letter = '-';
    fs::create_directories(seeds / target);
    WriteFile((seeds / target / plain).string(), bytes);
}

Bytes FileOf(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

SeedSign::SeedSign(bool controller)
{
    settings.folder = fs::current_path() / "sign";
    settings.width = 64;
    settings.height = 32;
    settings.controller = controller;
    settings.localSecondsAtZero = 1589365230;
    sign = std::make_unique<vxsim::VirtualSign>(settings);
    stage = std::make_unique<vxsim::Stage>(*sign);
}

Bytes SeedSign::Answer(const test::Packet& request)
{
    const Bytes& bytes = request.bytes;
    const std::uint64_t nowMs = test::FakeClock::NowMs() - startMs;
    sign->KeepUp(nowMs);
    const Bytes reply = sign->Answer(bytes, {nowMs, 1, 1});
    if (reply.size() < 16)
        return answers = answers + Bytes{kSilence}, reply;
    const Bytes parts(reply.begin() + 16, reply.end());
    answers = answers + (reply[15] == 0 ? Bytes{kGood, reply[14]} + Word(reply[4] + 256U * reply[5]) + parts
                                        : Bytes{kRefusal, parts.at(0), parts.at(1)});
    const auto check = static_cast<std::uint8_t>(bytes[1] == 0xB1 ? 2 : 0);
    requests = requests +
               Bytes{kRequest, bytes[12], bytes[13], bytes[14], bytes[4], bytes[5], bytes[8], bytes[9], check} +
               Bytes(bytes.begin() + 16, bytes.end());
    return reply;
}

Content::Content(SeedSign& sign)
{
    const auto* const text = reinterpret_cast<const std::uint8_t*>("ROAD\x0AWORK");
    vxShowMsgToNmg(text, 9, "A.NMG", '1', 0x0000FF2F, '1', 5);
    message = FileOf("A.NMG");
    picture = Bytes{'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0} +
              Bytes(24) + Bytes{0, 0, 255, 0};
    WriteFile("B.BMP", picture);
    vxBmp2Nmg("B.BMP", "C.NMG", 4, '1');
    wrapped = FileOf("C.NMG");
    char folder[] = "list";
    char file[] = "play.xml";
    char root[] = "/";
    char name[] = "G";
    char group[] = "/G/";
    fs::create_directory(folder);
    vxPLInit(folder, file);
    vxPLAddGroup(root, 0, name, 1);
    for (const char* const entry : {"A.NMG", "B.BMP"}) {
        auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
        std::strcpy(info->fileName, entry);
        fs::copy_file(entry, std::string("list/") + entry);
        info->Drive = 'D';
        info->Type = 'T';
        info->schCount = 1;
        info->SCH[0] = {127, 0, 0x2020, 1, 1, 0, 0, 1, 1, 0x2030, 0x12, 0x31, 0x23, 0x59, 1, 1};
        vxPLAddFile(group, 0, info);
    }
    vxPLSave();
    xml = FileOf("list/play.xml");
    vxPLSendToLED(1);
    vxWriteSpecFile("D:\\T\\A.NMG", "A.NMG");
    list = FileOf(sign.Drive("C/SEQUENT.SYS"));
    sign.answers.clear();
    sign.requests.clear();
}

} // namespace vxsign::fuzz
