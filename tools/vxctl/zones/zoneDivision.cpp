// zone divide, zone list: the zones of a page.
#include "vxctl/cli/bytes.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/zones/faceArea.h"
#include "vxctl/zones/zonePlace.h"

#include <vxsign/read.h>
#include <vxsign/zones.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

namespace {

// What a zone holds, by its number.
constexpr std::string_view kKinds[] = {"nothing", "text", "file"};

std::vector<FaceArea> GridOnFace(const std::string& grid)
{
    std::array<std::uint8_t, 16> face{};
    Check(vxReadSystemSet(face.data()));
    return ParseGrid(grid, Load16(face, 0), Load16(face, 2));
}

std::uint32_t DivideInSteps(const Args& args, const std::vector<FaceArea>& areas)
{
    constexpr std::uint32_t kMostSteps = 255;
    SpeZoneHead head{};
    Store(std::span(head.head).first(2), args.Number("--stay"));
    head.head[2] = args.Number<std::uint8_t>("--step");
    head.wordCount = static_cast<std::uint16_t>(areas.size());
    std::vector<std::uint8_t> words;
    for (const FaceArea& area : areas) {
        for (const std::uint16_t number : {area.left, area.top, area.width, area.height}) {
            if (number > kMostSteps)
                throw UsageError("an area has " + std::to_string(kMostSteps) + " steps at most");
            words.push_back(static_cast<std::uint8_t>(number));
        }
    }
    return vxDivideSpeZone(PageOf(args), head, words.data());
}

// In the usual layout: the four numbers of each area, then what the sign has no use for here.
std::uint32_t DivideInPixels(const Args& args, const std::vector<FaceArea>& areas)
{
    ZoneHead head{};
    Store(std::span(head.head).first(2), args.Number("--stay"));
    head.zoneCount = static_cast<std::uint8_t>(areas.size());
    std::vector<std::uint8_t> entries(areas.size() * sizeof(ZoneEntry));
    for (std::size_t i = 0; i < areas.size(); ++i)
        StoreArea(std::span(entries).subspan(i * sizeof(ZoneEntry)).first<kFaceAreaSize>(), areas[i]);
    return vxDivideZone(PageOf(args), args.Number<std::uint8_t>("--zone"), head, entries.data());
}

std::uint32_t Divide(Session& /*session*/, const Args& args)
{
    if (args.Has("AREA") == args.Has("--grid"))
        throw UsageError("takes areas, or --grid");
    std::vector<FaceArea> areas;
    for (const std::string& area : args.List("AREA"))
        areas.push_back(ParseArea(area));
    if (args.Has("--grid"))
        areas = GridOnFace(args.Text("--grid"));
    if (areas.size() > kMostZones)
        throw UsageError("a page has " + std::to_string(kMostZones) + " zones at most");
    return args.Has("--step") ? DivideInSteps(args, areas) : DivideInPixels(args, areas);
}

void AddRows(std::uint8_t page, TextTable& table)
{
    ZoneHead head{};
    std::array<std::uint8_t, kMostZones * sizeof(ZoneEntry)> entries{};
    Check(vxGetZone(&head, entries.data(), kMostZones, page));
    for (std::size_t i = 0; i < std::min<std::size_t>(head.zoneCount, kMostZones); ++i) {
        const auto entry = std::span(entries).subspan(i * sizeof(ZoneEntry), sizeof(ZoneEntry));
        const FaceArea area = LoadArea(entry.first<kFaceAreaSize>());
        table.Add({std::to_string(page), std::to_string(Load16(head.head, 0)), std::to_string(entry[kFaceAreaSize]),
                   std::to_string(area.left), std::to_string(area.top), std::to_string(area.width),
                   std::to_string(area.height), std::to_string(entry[kFaceAreaSize + 1])});
    }
}

std::uint32_t List(Session& session, const Args& args)
{
    std::uint8_t enabled = 0;
    std::uint8_t count = 0;
    Check(vxGetMulitZoneSetting(&enabled, &count));
    TextTable table({{"page", kNumbers},
                     {"staySeconds", kNumbers},
                     {"zone", kNumbers},
                     {"left", kNumbers},
                     {"top", kNumbers},
                     {"width", kNumbers},
                     {"height", kNumbers},
                     {"holds", kNumbers, kKinds}});
    if (args.Has("PAGE")) {
        AddRows(PageOf(args), table);
    } else {
        std::array<ZoneHead, kMostPages> heads{};
        Check(vxGetZoneBase(reinterpret_cast<std::uint8_t*>(heads.data()), sizeof heads));
        for (const ZoneHead& head : heads) {
            if (head.zoneCount != 0)
                AddRows(head.head[2], table);
        }
    }
    session.report.Value("zones", "enabled", enabled != 0, enabled != 0 ? "on" : "off");
    session.report.Value("pages in turn", "pageCount", count);
    table.ShowOr(session.report, "zones", {});
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "zone",
        .help = "Divide the face into zones with content of their own",
        .examples = R"(vxctl zone divide 1 --grid 2x1
vxctl zone text 1 1 "Exit 7"
vxctl zone file 1 2 D:/P/LOGO.BMP --put logo.bmp
vxctl zone on)",
    },
    {
        .name = "zone divide",
        .help = "Divide a page into zones, or a zone into further ones",
        .details =
            R"(An area is X,Y,WIDTHxHEIGHT in pixels, from the corner of the face or, with --zone, of that zone. What the page or
the zone held before is gone. Of a divided zone the first part keeps its number; the others get new ones.)",
        .examples = R"(vxctl zone divide 1 0,0,64x32 64,0,64x16 64,16,64x16
vxctl zone divide 2 --grid 2x1 --stay 10
vxctl zone divide 1 --zone 2 0,0,32x16 32,0,32x16)",
        .arguments =
            {kPage, Of(kFaceArea, "AREA", "the zones").Optional().Repeated(),
             Text("--grid", "that many columns and rows instead").In("CxR").Excludes("AREA"),
             Number("--zone", 1, kMostZones, "divide this zone of the page").Excludes("--grid"),
             Number("--stay", 0, kLongestPageStay, "seconds of the page, 0 for the sign's own").In("SECONDS"),
             Number("--step", 1, 255, "areas count in steps of so many pixels").In("PIXELS").Excludes("--grid --zone")},
        .signs = Signs::kMany,
        .run = Divide,
    },
    {
        .name = "zone list",
        .help = "Show how the pages are divided, and what the zones hold",
        .examples = R"(vxctl zone list
vxctl --json zone list 2)",
        .arguments = {Number("PAGE", 1, kMostPages, "this page alone").Optional()},
        .signs = Signs::kMany,
        .run = List,
    },
};

} // namespace

const CommandTable kDivisionCommands{"Zones and programs", kCommands};

} // namespace vxctl
