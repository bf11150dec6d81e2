#include "vxctl/cli/textTable.h"
#include "vxctl/zones/faceArea.h"
#include "vxctl/zones/zoneCommands.h"

#include <vxsign/read.h>
#include <vxsign/zones.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vxctl {

namespace {

// What a zone holds, by its number.
constexpr std::array<const char*, 3> kKindNames{"nothing", "text", "file"};

struct Division : ZonePlace
{
    std::vector<std::string> areas;
    std::string grid;
    std::uint32_t staySec = 0;
    std::uint32_t step = 0; // 0: areas are in pixels
};

std::vector<FaceArea> GridOnFace(const std::string& grid)
{
    std::array<std::uint8_t, 16> face{};
    Check(vxReadSystemSet(face.data()));
    const auto number = [&face](std::size_t at) { return face[at] | static_cast<unsigned>(face[at + 1]) << 8U; };
    return ParseGrid(grid, number(0), number(2));
}

void DivideInSteps(const Division& division, const std::vector<FaceArea>& areas)
{
    constexpr std::uint32_t kMostSteps = 255;
    SpeZoneHead head{};
    head.head[0] = static_cast<std::uint8_t>(division.staySec);
    head.head[1] = static_cast<std::uint8_t>(division.staySec >> 8U);
    head.head[2] = static_cast<std::uint8_t>(division.step);
    head.wordCount = static_cast<std::uint16_t>(areas.size());
    std::vector<std::uint8_t> words;
    for (const FaceArea& area : areas) {
        for (const std::uint16_t number : {area.left, area.top, area.width, area.height}) {
            if (number > kMostSteps)
                throw UsageError("an area has " + std::to_string(kMostSteps) + " steps at most");
            words.push_back(static_cast<std::uint8_t>(number));
        }
    }
    Check(vxDivideSpeZone(division.Page(), head, words.data()));
}

void Divide(const Session& session, const Division& division)
{
    if (division.areas.empty() == division.grid.empty())
        throw UsageError("zone divide takes areas, or --grid");
    std::vector<FaceArea> areas;
    for (const std::string& area : division.areas)
        areas.push_back(ParseArea(area));
    session.Connect();
    if (!division.grid.empty())
        areas = GridOnFace(division.grid);
    if (areas.size() > kMostZones)
        throw UsageError("a page has " + std::to_string(kMostZones) + " zones at most");
    if (division.step != 0)
        return DivideInSteps(division, areas);
    ZoneHead head{};
    head.head[0] = static_cast<std::uint8_t>(division.staySec);
    head.head[1] = static_cast<std::uint8_t>(division.staySec >> 8U);
    head.zoneCount = static_cast<std::uint8_t>(areas.size());
    std::vector<std::uint8_t> entries(areas.size() * sizeof(ZoneEntry));
    for (std::size_t i = 0; i < areas.size(); ++i)
        StoreArea(std::span(entries).subspan(i * sizeof(ZoneEntry)).first<kFaceAreaSize>(), areas[i]);
    Check(vxDivideZone(division.Page(), division.Zone(), head, entries.data()));
}

void AddDivide(CLI::App& zone, Session& session)
{
    CLI::App* const command = AddCommand(
        zone,
        {kZoneGroup, "divide", "Divide a page into zones, or a zone into further ones",
         R"(An area is X,Y,WIDTHxHEIGHT in pixels, from the corner of the face or, with --zone, of that zone. What the page or
the zone held before is gone. Of a divided zone the first part keeps its number; the others get new ones.

Examples:
  vxctl zone divide 1 0,0,64x32 64,0,64x16 64,16,64x16
  vxctl zone divide 2 --grid 2x1 --stay 10
  vxctl zone divide 1 --zone 2 0,0,32x16 32,0,32x16)"});
    const auto division = std::make_shared<Division>();
    AddPage(*command, *division);
    CLI::Option* const areas = command->add_option("AREA", division->areas, "the zones")->type_name("X,Y,WxH");
    CLI::Option* const grid = command->add_option("--grid", division->grid, "that many columns and rows instead")
                                  ->type_name("CxR")
                                  ->excludes(areas);
    CLI::Option* const part =
        AddNumber(*command, "--zone", division->zone, 1, kMostZones, "divide this zone of the page")->excludes(grid);
    AddNumber(*command, "--stay", division->staySec, 0, kLongestPageStay, "seconds of the page, 0 for the sign's own");
    AddNumber(*command, "--step", division->step, 1, 255, "areas count in steps of so many pixels")
        ->excludes(grid)
        ->excludes(part);
    command->callback([&session, division] { Divide(session, *division); });
}

void AddRows(std::uint8_t page, TextTable& table)
{
    ZoneHead head{};
    std::array<std::uint8_t, kMostZones * sizeof(ZoneEntry)> entries{};
    Check(vxGetZone(&head, entries.data(), kMostZones, page));
    for (std::size_t i = 0; i < std::min<std::size_t>(head.zoneCount, kMostZones); ++i) {
        const auto entry = std::span(entries).subspan(i * sizeof(ZoneEntry), sizeof(ZoneEntry));
        const FaceArea area = LoadArea(entry.first<kFaceAreaSize>());
        const std::uint8_t kind = entry[kFaceAreaSize + 1];
        table.Add({std::to_string(page), std::to_string(head.head[0] | head.head[1] << 8U),
                   std::to_string(entry[kFaceAreaSize]), std::to_string(area.left), std::to_string(area.top),
                   std::to_string(area.width), std::to_string(area.height),
                   kind < kKindNames.size() ? kKindNames[kind] : std::to_string(kind)});
    }
}

void List(Session& session, const ZonePlace& wanted)
{
    session.Connect();
    std::uint8_t enabled = 0;
    std::uint8_t count = 0;
    Check(vxGetMulitZoneSetting(&enabled, &count));
    TextTable table({{"page", true},
                     {"stay", true},
                     {"zone", true},
                     {"left", true},
                     {"top", true},
                     {"width", true},
                     {"height", true},
                     {"holds", false}});
    if (wanted.page != 0) {
        AddRows(wanted.Page(), table);
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
    if (table.Size() != 0 || session.report.IsJson())
        table.Show(session.report, "zones");
}

void AddList(CLI::App& zone, Session& session)
{
    CLI::App* const command =
        AddCommand(zone, {kZoneGroup, "list", "Show how the pages are divided, and what the zones hold",
                          "Examples:\n  vxctl zone list\n  vxctl --json zone list 2"});
    const auto place = std::make_shared<ZonePlace>();
    AddNumber(*command, "PAGE", place->page, 1, kMostPages, "this page alone");
    command->callback([&session, place] { List(session, *place); });
}

} // namespace

void AddDivisionCommands(CLI::App& zone, Session& session)
{
    AddDivide(zone, session);
    AddList(zone, session);
}

} // namespace vxctl
