#include "vxctl/zones/zoneCommands.h"

#include "vxctl/cli/progressBar.h"
#include "vxctl/show/showCodes.h"

#include <vxsign/write.h>
#include <vxsign/zones.h>

#include <memory>

namespace vxctl {

namespace {

enum ContentKind : std::uint8_t
{
    kNone = 0,
    kText = 1,
    kFile = 2
};

void AddZone(CLI::App& command, ZonePlace& place)
{
    AddNumber(command, "ZONE", place.zone, 0, kMostZones, "the zone, 0 for all zones of the page")->required();
}

struct Style : ZonePlace
{
    std::string entry = "0";
    std::string exit = "0";
    std::string font = "1";
    std::string colour = "1";
    std::uint32_t staySec = 0;
};

void AddStyle(CLI::App& zone, Session& session)
{
    CLI::App* const command =
        AddCommand(zone, {kZoneGroup, "style", "Set how a zone shows its content",
                          R"(What is not given is as the default says. Font and colour are for texts alone.

Example:
  vxctl zone style 1 2 --in 3 --out 3 --stay 8 --font 0 --colour "#FF8000")"});
    const auto style = std::make_shared<Style>();
    AddPage(*command, *style);
    AddZone(*command, *style);
    command->add_option("--in", style->entry, "entry mode")->type_name("MODE")->capture_default_str();
    command->add_option("--out", style->exit, "exit mode")->type_name("MODE")->capture_default_str();
    command->add_option("--font", style->font, "a character or its code")->type_name("FONT")->capture_default_str();
    command->add_option("--colour,--color", style->colour, "a name, #RRGGBB, or a code of the sign")
        ->type_name("COLOUR")
        ->capture_default_str();
    AddNumber(*command, "--stay", style->staySec, 0, kLongestPageStay,
              "seconds of a picture or a page of text, 0 for the sign's own");
    command->callback([&session, style] {
        const std::uint32_t colour = ParseColour(style->colour);
        DisplayHead head{};
        head.head[0] = static_cast<std::uint8_t>(ParseMode(style->entry));
        head.head[1] = static_cast<std::uint8_t>(ParseMode(style->exit));
        head.head[2] = static_cast<std::uint8_t>(style->staySec);
        head.head[3] = static_cast<std::uint8_t>(style->staySec >> 8U);
        head.head[4] = static_cast<std::uint8_t>(ParseFont(style->font));
        for (unsigned i = 0; i < 4; ++i)
            head.head[5 + i] = static_cast<std::uint8_t>(colour >> 8U * i);
        session.Connect();
        Check(vxSetDisplay(style->Page(), style->Zone(), 0, head, nullptr));
    });
}

void SetContent(const ZonePlace& place, ContentKind kind, const std::string& content)
{
    if (content.size() > kLongestPageStay)
        throw SignFailure(VX_ARGUMENTS);
    ContentHead head{};
    head.head[0] = kind;
    head.dataLength = static_cast<std::uint16_t>(content.size());
    Check(vxSetContentDisplay(place.Page(), place.Zone(), head, content.data()));
}

struct Content : ZonePlace
{
    std::string content;
    std::string local;
};

void AddContents(CLI::App& zone, Session& session)
{
    CLI::App* const text = AddCommand(zone, {kZoneGroup, "text", "Show a text in a zone",
                                             R"(A text that begins with a dash stands behind "--".

Example:
  vxctl zone text 1 2 "Lane closed")"});
    const auto words = std::make_shared<Content>();
    AddPage(*text, *words);
    AddZone(*text, *words);
    text->add_option("TEXT", words->content, "the text, sent as it is")->required();
    text->callback([&session, words] {
        session.Connect();
        SetContent(*words, kText, words->content);
    });

    CLI::App* const file = AddCommand(zone, {kZoneGroup, "file", "Show a file of the sign in a zone",
                                             R"(A picture or a message. With --put it is sent ahead.

Examples:
  vxctl zone file 1 1 D:/T/HELLO.NMG
  vxctl zone file 1 1 D:/P/LOGO.BMP --put logo.bmp)"});
    const auto shown = std::make_shared<Content>();
    AddPage(*file, *shown);
    AddZone(*file, *shown);
    AddSignPath(*file, "PATH", shown->content, "the file on the sign")->required();
    file->add_option("--put", shown->local, "send this file there")->check(ReadableFile());
    file->callback([&session, shown] {
        const ProgressBar bar("put", session.report.IsJson() || shown->local.empty());
        session.Connect(ProgressBar::OnProgress);
        if (!shown->local.empty())
            Check(vxWriteSpecFileEx(shown->content.c_str(), shown->local.c_str()));
        SetContent(*shown, kFile, shown->content);
    });

    CLI::App* const empty =
        AddCommand(zone, {kZoneGroup, "empty", "Show nothing in a zone", "Example:\n  vxctl zone empty 1 2"});
    const auto place = std::make_shared<ZonePlace>();
    AddPage(*empty, *place);
    AddZone(*empty, *place);
    empty->callback([&session, place] {
        session.Connect();
        SetContent(*place, kNone, {});
    });
}

void AddSettings(CLI::App& zone, Session& session)
{
    for (const bool on : {true, false}) {
        AddCommand(zone, {kZoneGroup, on ? "on" : "off", on ? "Show the pages of zones" : "Go back to the play list",
                          std::string("Example:\n  vxctl zone ") + (on ? "on" : "off")})
            ->callback([&session, on] {
                session.Connect();
                Check(vxSetEnableMulitZone(on ? 1 : 0));
            });
    }
    CLI::App* const pages = AddCommand(
        zone, {kZoneGroup, "pages", "Set how many pages take turns, from page 1 on", "Example:\n  vxctl zone pages 2"});
    const auto count = std::make_shared<std::uint32_t>(0);
    AddNumber(*pages, "N", *count, 1, 255, "the pages; vxsim has 12")->required();
    pages->callback([&session, count] {
        session.Connect();
        Check(vxSetPageCount(static_cast<std::uint8_t>(*count)));
    });

    CLI::App* const clear = AddCommand(zone, {kZoneGroup, "clear", "Take the zones of a page away, with what they hold",
                                              "Example:\n  vxctl zone clear 2"});
    const auto place = std::make_shared<ZonePlace>();
    AddPage(*clear, *place);
    clear->callback([&session, place] {
        session.Connect();
        Check(vxDivideZone(place->Page(), 0, ZoneHead{}, nullptr));
    });
}

} // namespace

void AddPage(CLI::App& command, ZonePlace& place)
{
    AddNumber(command, "PAGE", place.page, 1, kMostPages, "the page")->required();
}

void AddZoneCommands(CLI::App& app, Session& session)
{
    CLI::App* const zone = AddCommand(app, {kZoneGroup, "zone", "Divide the face into zones with content of their own",
                                            R"(Examples:
  vxctl zone divide 1 --grid 2x1
  vxctl zone text 1 1 "Exit 7"
  vxctl zone file 1 2 D:/P/LOGO.BMP --put logo.bmp
  vxctl zone on)"});
    zone->require_subcommand(1);
    AddDivisionCommands(*zone, session);
    AddStyle(*zone, session);
    AddContents(*zone, session);
    AddSettings(*zone, session);
}

} // namespace vxctl
