// Content that a sign plays: messages, pictures, lists, texts.
#include "fuzz/support.h"
#include "sim/content/nmg.h"
#include "sim/content/picture.h"
#include "sim/content/player.h"
#include "sim/content/sequence.h"
#include "sim/content/show.h"
#include "sim/face/ansi.h"
#include "sim/face/jpeg.h"
#include "sim/face/png.h"
#include "sim/face/text.h"

#include <iterator>

using namespace vxsign::fuzz;

namespace {

struct Face
{
    int width;
    int height;
};

vxsim::Font& TheFont()
{
    static vxsim::Font font;
    return font;
}

void ShowIt(Input& input, Face size)
{
    vxsim::Timing timing;
    timing.entryMode = input.U8();
    timing.exitMode = input.U8();
    const auto show = vxsim::Show::Load(input.Rest(), timing, size.width, size.height, TheFont());
    if (!show)
        return;
    vxsim::Canvas face(size.width, size.height);
    const std::uint64_t duration = show->DurationMs();
    for (const std::uint64_t at :
         {std::uint64_t{0}, std::uint64_t{150}, duration / 2, duration - 1, duration, 2 * duration})
        show->Draw(at, TheFont(), face);
    Require(show->NextPageMs(0) > 0, "a page takes time");
}

// The list, and files of it that have what stands behind it.
void PlayIt(Input& input, Face size)
{
    EmptyFolder();
    const View content = input.Block();
    WriteFile("content", content);
    WriteFile("list", input.Rest());
    vxsim::Player player(
        size.width, size.height,
        [](std::string_view path) {
            return path.empty() ? std::nullopt : std::optional<std::filesystem::path>("content");
        },
        "list",
        [](std::uint64_t nowMs) {
            return vxsim::Moment{0x20080315, static_cast<std::uint16_t>(nowMs / 1000), 3};
        });
    player.Restart(0);
    vxsim::Canvas face(size.width, size.height);
    for (const std::uint64_t at : {0, 400, 3500, 60'000})
        player.Draw(at, face);
    player.PlayNext(60'100);
    player.PlayPrevious(60'200);
    player.Pause(60'300);
    player.Move(-1000, 60'400);
    player.Continue(60'500);
    player.MoveToNextPage(60'600);
    player.NextFile(60'700);
    player.Draw(10'000'000, face);
}

void SetIt(Input& input, Face size)
{
    std::vector<vxsim::TextRun> runs;
    while (!input.IsOver() && runs.size() < 8) {
        const std::uint8_t font = input.U8();
        runs.push_back({input.Text(), font, {255, 0, 0}});
    }
    vxsim::Canvas face(size.width, size.height);
    for (const vxsim::Page& page : vxsim::SetText(runs, size.width, size.height, TheFont()))
        vxsim::DrawPage(page, TheFont(), face);
    for (const vxsim::TextRun& run : runs)
        vxsim::DrawPage(vxsim::SetLine(run.text, size.height, run.colour, TheFont()).glyphs, TheFont(), face);
    vxsim::AnsiFace(face, size.width / 2);
}

void DecodeIt(Input& input, Face size)
{
    const View bytes = input.Rest();
    if (vxsim::DecodePicture(bytes, size.width, size.height))
        vxsim::DecodeWholePicture(bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Input input(bytes, size);
    static constexpr void (*kSubjects[])(Input&, Face) = {ShowIt, PlayIt, SetIt, DecodeIt};
    const std::uint8_t subject = input.U8();
    const int width = 1 + input.U8();
    kSubjects[subject % std::size(kSubjects)](input, {width, 1 + input.U8() % 64});
    return 0;
}
