// preview: what a sign would show.
#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/show/lookAhead.h"
#include "vxctl/show/preview.h"
#include "vxctl/show/showOptions.h"

#include "sim/content/nmg.h"

#include <algorithm>
#include <array>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr ArgumentType kTextOrFile{"WHAT", nullptr, true};

bool IsFile(const std::string& what)
{
    std::error_code error;
    if (fs::is_regular_file(what, error))
        return true;
    constexpr std::array kExtensions{".nmg", ".bmp", ".png", ".jpg", ".jpeg", ".gif"};
    const bool isMeant = std::ranges::find(kExtensions, fs::path(what).extension()) != kExtensions.end();
    if (isMeant && what.find(' ') == std::string::npos)
        throw UsageError("there is no file " + what + "; --text previews the words themselves");
    return false;
}

// As "vxctl picture" brings it to the face.
void AddPicture(const Args& args, FileBytes bytes, const FaceSize& face, Preview& preview)
{
    const auto mode = static_cast<std::uint8_t>(ParseMode(args.Text("--mode")));
    const std::vector<Frame> frames = DecodeFrames(bytes);
    for (const Frame& frame : frames) {
        const std::uint64_t seconds = frames.size() > 1 ? SecondsOf(frame) : args.Number("--stay");
        const vxsim::Canvas fitted = Fit(frame.picture, face.width, face.height, args.Text("--fit"));
        preview.AddFile(EncodeBmp(fitted), {mode, mode, seconds * 1000});
    }
}

void AddFile(Session& session, const Args& args, const FaceSize& face, Preview& preview)
{
    const std::string& file = args.Text("WHAT");
    const std::vector<std::uint8_t> bytes = ReadWhole(file);
    try {
        if (!vxsim::IsNmg(bytes))
            return AddPicture(args, bytes, face, preview);
        preview.AddFile(bytes);
    } catch (const UsageError& error) {
        throw UsageError(file + " is " + error.what());
    }
    ReportFit(session, args, bytes, face);
}

void Add(Session& session, const Args& args, const WantedFace& face, Preview& preview)
{
    if (!args.Has("--text") && IsFile(args.Text("WHAT")))
        return AddFile(session, args, face.size, preview);
    const Message message = MessageOf(session, args, "WHAT");
    const std::vector<std::uint8_t> file = FileOf(message);
    preview.AddFile(file);
    ReportFit(session, args, file, face.size);
}

std::string Source(const WantedFace& face)
{
    return face.from == "sign"    ? "as the sign tells"
           : face.from == "vxsim" ? "as vxsim has (see --size)"
                                  : "as --size says";
}

std::uint32_t ShowPreview(Session& session, const Args& args)
{
    const std::string& picture = args.Text("--out");
    const std::string extension = fs::path(picture).extension().string();
    if (args.Has("--out") && extension != ".png" && extension != ".gif")
        throw UsageError("a preview is a .gif or a .png file");
    const WantedFace face = FaceWithoutSign(session, args);
    session.report.SetHead("preview", face.from == "sign" ? session.options.url : "");
    ReportFace(session.report, face);
    Preview preview(face.size, EncodingFor(session, args));
    Add(session, args, face, preview);
    const auto page = args.Number<std::size_t>("--page");
    if (page > preview.Pages())
        throw UsageError("there is no page " + std::to_string(page) + " of " + std::to_string(preview.Pages()));
    session.report.Put("pages", preview.Pages());
    if (!args.Has("--out")) {
        session.report.Line("a face of " + SizeText(face.size) + ", " + Source(face));
        preview.Print(session.report, page);
        return VX_OK;
    }
    if (extension == ".gif")
        preview.WriteGif(picture);
    else
        preview.WritePng(picture, std::max<std::size_t>(page, 1));
    session.report.Put("picture", picture);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "preview",
        .help = "Draw what a text, a message file or a picture shows, without a sign",
        .details =
            R"(What is drawn is what vxsim shows, pixel for pixel; a sign may have other letters. WHAT is a file where there is one of that name:
a message, or a picture as "vxctl picture" sends it. Otherwise it is a text, as for show. The face has the size of --size, or else
that of the sign if -s or VXSIGN names one, or else 128x32, that of vxsim.
Without -o the pages are drawn in the terminal. A .png has the first page, or that of --page; a .gif all of them, with their times.)",
        .examples = R"(vxctl preview "ROAD WORKS" --size 64x32
vxctl preview --markup "{red}Lane 2{line}closed{page}Use M4" -o lane2.gif
vxctl preview hello.nmg --page 2 -o hello.png
vxctl preview arrow.png --fit cover)",
        .arguments = {Of(kTextOrFile, "WHAT", "a text, a message file or a picture"),
                      WriteFile("-o,--out", "a .png or .gif file in place of the terminal"),
                      Number("--page", 1, 256, "that page alone").In("N"),
                      Of(kFaceSize, "--size", "pixels of the face"), kMustFit,
                      Flag("--text", "WHAT is a text, whatever file there is"), kMarkup, kEncoding, kFont, kColour,
                      kMode, kStay, kAllowEmpty, kFit},
        .line = Line::kOwn,
        .run = ShowPreview,
    },
};

} // namespace

const CommandTable kPreviewCommands{"Show", kCommands};

} // namespace vxctl
