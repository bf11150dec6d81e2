// show, files: content on the face at once.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/readBack.h"
#include "vxctl/show/lookAhead.h"
#include "vxctl/show/showOptions.h"
#include "vxctl/show/showing.h"

#include <fstream>
#include <string>

namespace vxctl {

namespace {

// The message goes to the sign with other first bytes than a message file has.
void WriteForSign(const Message& message, const std::string& local)
{
    constexpr std::string_view kBegin = "\x01Z00\x02\x41\x41";
    WriteMessage(message, local);
    std::fstream(local, std::ios::binary | std::ios::in | std::ios::out) << kBegin;
}

std::uint32_t ShowText(Session& session, const Args& args)
{
    const Message message = MessageOf(session, args);
    LookAhead(session, args, message);
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "message";
    WriteForSign(message, local);
    const std::string path = ShowMessage(session, args, local, "QMSG.Nmg", !args.Has("--no-play"));
    if (args.Has("--verify"))
        Verify(session, {path}, local);
    return VX_OK;
}

std::uint32_t ShowFiles(Session& session, const Args& args)
{
    const Parts parts = args.Has("--no-play")     ? Parts::kFilesAlone
                        : args.Has("--only-play") ? Parts::kSequenceAlone
                                                  : Parts::kAll;
    ShowList(session, args, args.List("FILE"), parts);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "show",
        .help = "Show a text",
        .details =
            R"(Fonts, modes and colour codes are the sign's own. Colours by name and #RRGGBB go out as three colour bytes.
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
        .arguments = {kMessageText, kMarkup, kEncoding, kFont, kColour, kMode, kStay, kDrive,
                      Flag("--no-play", "leave the sign's play list as it is"), kAllowEmpty,
                      Flag("--verify", "read the message back and compare"),
                      Flag("--preview", "draw it in the terminal before it goes"), kMustFit,
                      Of(kFaceSize, "--size", "pixels of the face; otherwise the sign is asked")},
        .signs = Signs::kMany,
        .run = ShowText,
    },
    {
        .name = "files",
        .help = "Show up to 128 files one after the other",
        .details =
            R"(Mode and stay time become the sign's defaults, for all files alike. The files get the names of this PC, shortened
to 8.3, and folders by their kind.)",
        .examples = R"(vxctl files --stay 8 welcome.nmg logo.bmp
vxctl files --no-play next-week.nmg)",
        .arguments = {ReadFile("FILE", "up to 128 files, in their order").Repeated(1, 128), kMode, kStay, kDrive,
                      Flag("--no-play", "send the files, but no play list"),
                      Flag("--only-play", "send the play list alone, for files that are on the sign already")
                          .Excludes("--no-play")},
        .signs = Signs::kMany,
        .run = ShowFiles,
    },
};

} // namespace

const CommandTable kShowCommands{"Show", kCommands};

} // namespace vxctl
