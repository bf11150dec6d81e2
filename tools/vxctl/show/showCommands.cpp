// show, files: content on the face at once.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/readBack.h"
#include "vxctl/show/lookAhead.h"
#include "vxctl/show/showOptions.h"

#include <vxsign/quickshow.h>

#include <fstream>
#include <vector>

namespace vxctl {

namespace {

// The message goes to the sign with other first bytes than a message file has.
void VerifyText(Session& session, const Message& message, const Args& args)
{
    constexpr std::string_view kBegin = "\x01Z00\x02\x41\x41";
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "message";
    WriteMessage(message, local);
    std::fstream(local, std::ios::binary | std::ios::in | std::ios::out) << kBegin;
    const char drive = ToE(args) != 0 ? 'E' : DriveOfSign();
    session.Connect();
    Verify(session, {std::string(1, drive) + ":\\T\\QMSG.Nmg"}, local);
}

std::uint32_t ShowText(Session& session, const Args& args)
{
    const SignUrl sign = session.Sign();
    const Options& options = session.options;
    const Message message = MessageOf(args);
    LookAhead(session, args, message);
    Check(vxShowMsgTimeout(reinterpret_cast<const std::uint8_t*>(message.text.data()),
                           static_cast<std::uint32_t>(message.text.size()), message.font, message.colour, message.mode,
                           message.staySeconds, sign.host.c_str(), sign.port, ToE(args), args.Has("--no-play") ? 0 : 1,
                           static_cast<std::uint8_t>(options.retries), options.timeoutMs, sign.kind,
                           sign.serialName.c_str(), sign.baudRate, options.destination));
    if (args.Has("--verify"))
        VerifyText(session, message, args);
    return VX_OK;
}

std::uint32_t ShowFiles(Session& session, const Args& args)
{
    enum : std::uint8_t
    {
        kBoth = 0,
        kFilesAlone = 1,
        kSequenceAlone = 2
    };
    const std::uint8_t what = args.Has("--no-play") ? kFilesAlone : args.Has("--only-play") ? kSequenceAlone : kBoth;
    const SignUrl sign = session.Sign();
    std::vector<const char*> paths;
    for (const std::string& file : args.List("FILE"))
        paths.push_back(file.c_str());
    TakeTries(session, 6);
    return vxShowFilesSpe(paths.data(), static_cast<std::uint32_t>(paths.size()),
                          static_cast<int>(ParseMode(args.Text("--mode"))), args.Number("--stay"), sign.host.c_str(),
                          sign.port, ToE(args), sign.kind, sign.serialName.c_str(), sign.baudRate,
                          session.options.destination, what);
}

const Command kCommands[] = {
    {
        .name = "show",
        .help = "Show a text",
        .details =
            R"(Fonts, modes and colour codes are the sign's own. Colours by name and #RRGGBB go out as three colour bytes.
--chunk does not apply: text goes out in packets of 768 bytes.
\n in a text breaks the line, \\n stands for these two characters, and all else goes out as it is. - reads the text from
standard input, without its last end of line. A text that begins with a dash stands behind "--".
A text that does not fit the face by the letters of vxsim is told of ahead: the pages that it becomes, words that are broken.)",
        .examples = R"(vxctl show "HELLO 42"
vxctl show --colour "#FF8000" --mode 3 --stay 10 "Lane closed"
vxctl show --no-play --drive E "for later"
vxctl show "Lane 2\nclosed"
vxctl show --markup "{red}Lane 2{line}{yellow}closed{page}Use M4"
vxctl show --markup "Fog {flash}SLOW{/flash}"
date +%H:%M | vxctl show -
vxctl show -- "-5 C")",
        .arguments = {kMessageText, kMarkup, kFont, kColour, kMode, kStay, kDrive,
                      Flag("--no-play", "leave the sign's play list as it is"), kAllowEmpty,
                      Flag("--verify", "read the message back and compare"),
                      Flag("--preview", "draw it in the terminal before it goes"), kMustFit,
                      Of(kFaceSize, "--size", "pixels of the face; otherwise the sign is asked")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = ShowText,
    },
    {
        .name = "files",
        .help = "Show up to 128 files one after the other",
        .details =
            R"(Mode and stay time become the sign's defaults, for all files alike. The files get the names of this PC, shortened
to 8.3, and folders by their kind. --timeout, --retries and --chunk do not apply: 6 tries of 3000 ms, packets of 768
bytes.)",
        .examples = R"(vxctl files --stay 8 welcome.nmg logo.bmp
vxctl files --no-play next-week.nmg)",
        .arguments = {ReadFile("FILE", "up to 128 files, in their order").Repeated(1, 128), kMode, kStay, kDrive,
                      Flag("--no-play", "send the files, but no play list"),
                      Flag("--only-play", "send the play list alone, for files that are on the sign already")
                          .Excludes("--no-play")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = ShowFiles,
    },
};

} // namespace

const CommandTable kShowCommands{"Show", kCommands};

} // namespace vxctl
