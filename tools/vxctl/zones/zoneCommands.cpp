// zone: what zones hold, and how they show it.
#include "vxctl/cli/bytes.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/sending.h"
#include "vxctl/show/messageText.h"
#include "vxctl/show/showCodes.h"
#include "vxctl/zones/zonePlace.h"

#include <vxsign/write.h>
#include <vxsign/zones.h>

namespace vxctl {

namespace {

enum ContentKind : std::uint8_t
{
    kNone = 0,
    kText = 1,
    kFile = 2
};

std::uint32_t SetStyle(Session& /*session*/, const Args& args)
{
    DisplayHead head{};
    const std::span<std::uint8_t> fields(head.head);
    head.head[0] = static_cast<std::uint8_t>(ParseMode(args.Text("--in")));
    head.head[1] = static_cast<std::uint8_t>(ParseMode(args.Text("--out")));
    Store(fields.subspan(2, 2), args.Number("--stay"));
    head.head[4] = static_cast<std::uint8_t>(ParseFont(args.Text("--font")));
    Store(fields.subspan(5, 4), ParseColour(args.Text("--colour")));
    return vxSetDisplay(PageOf(args), ZoneOf(args), 0, head, nullptr);
}

std::uint32_t SetContent(const Args& args, ContentKind kind, const std::string& content)
{
    if (content.size() > UINT16_MAX)
        return VX_ARGUMENTS;
    ContentHead head{};
    head.head[0] = kind;
    head.dataLength = static_cast<std::uint16_t>(content.size());
    return vxSetContentDisplay(PageOf(args), ZoneOf(args), head, content.data());
}

std::uint32_t ShowZoneText(Session& session, const Args& args)
{
    return SetContent(args, ContentKind::kText, Encoded(MessageText(args), EncodingFor(session, args)));
}

std::uint32_t ShowFile(Session& session, const Args& args)
{
    if (args.Has("--put"))
        Check(SendFile(session, args.Text("PATH"), args.Text("--put"), vxWriteSpecFileEx));
    return SetContent(args, ContentKind::kFile, args.Text("PATH"));
}

const Command kCommands[] = {
    {
        .name = "zone style",
        .help = "Set how a zone shows its content",
        .details = "What is not given is as the default says. Font and colour are for texts alone.",
        .examples = R"(vxctl zone style 1 2 --in 3 --out 3 --stay 8 --font 0 --colour "#FF8000")",
        .arguments = {kPage, kZone, Of(kModeCode, "--in", "entry mode").Default("0"),
                      Of(kModeCode, "--out", "exit mode").Default("0"),
                      Of(kFontCode, "--font", "a character or its code").Default("1"),
                      Of(kColourCode, "--colour,--color", "a name, #RRGGBB, or a code of the sign").Default("1"),
                      Number("--stay", 0, kLongestPageStay,
                             "seconds of a picture or a page of text, 0 for the sign's own")
                          .In("SECONDS")},
        .signs = Signs::kMany,
        .run = SetStyle,
    },
    {
        .name = "zone text",
        .help = "Show a text in a zone",
        .details = "As for show: \\n breaks the line, - reads standard input, a text that begins with a dash stands "
                   "behind \"--\".",
        .examples = R"(vxctl zone text 1 2 "Lane closed")",
        .arguments = {kPage, kZone, kMessageText, kEncoding, kAllowEmpty},
        .signs = Signs::kMany,
        .run = ShowZoneText,
    },
    {
        .name = "zone file",
        .help = "Show a file of the sign in a zone",
        .details = "A picture or a message. With --put it is sent ahead.",
        .examples = R"(vxctl zone file 1 1 D:/T/HELLO.NMG
vxctl zone file 1 1 D:/P/LOGO.BMP --put logo.bmp)",
        .arguments = {kPage, kZone, SignPath("PATH", "the file on the sign"),
                      ReadFile("--put", "send this file there")},
        .signs = Signs::kMany,
        .run = ShowFile,
    },
    {
        .name = "zone empty",
        .help = "Show nothing in a zone",
        .examples = "vxctl zone empty 1 2",
        .arguments = {kPage, kZone},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return SetContent(args, ContentKind::kNone, {}); },
    },
    {
        .name = "zone on",
        .help = "Show the pages of zones",
        .examples = "vxctl zone on",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxSetEnableMulitZone(1); },
    },
    {
        .name = "zone off",
        .help = "Go back to the play list",
        .examples = "vxctl zone off",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxSetEnableMulitZone(0); },
    },
    {
        .name = "zone pages",
        .help = "Set how many pages take turns, from page 1 on",
        .examples = "vxctl zone pages 2",
        .arguments = {Number("N", 1, 255, "the pages; a sign may have fewer")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxSetPageCount(args.Number<std::uint8_t>("N")); },
    },
    {
        .name = "zone clear",
        .help = "Take the zones of a page away, with what they hold",
        .examples = "vxctl zone clear 2",
        .arguments = {kPage},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxDivideZone(PageOf(args), 0, ZoneHead{}, nullptr); },
    },
};

} // namespace

const CommandTable kZoneCommands{"Zones and programs", kCommands};

} // namespace vxctl
