// Logs, reports and database rows, as a sign may have them.
#include "fuzz/line.h"

#include <vxsign/vxsign.h>

#include <iterator>

using namespace vxsign::fuzz;

namespace {

// Reads a record to its last byte; in the end it has had enough.
template <class Record>
std::uint32_t Take(const Record* record)
{
    std::uint8_t sum = 0;
    for (std::size_t i = 0; i < sizeof *record; ++i)
        sum = static_cast<std::uint8_t>(sum + reinterpret_cast<const std::uint8_t*>(record)[i]);
    return sum == 7 ? 1 : 0;
}
template <class Record>
std::uint32_t TakeOf(std::uint32_t, const Record* record)
{
    return Take(record);
}

// The readers; a row goes to the end.
constexpr void (*kReaders[])() = {
    [] { vxReadRadarLog("", 0, 0, TakeOf); },
    [] { vxReadNewRadarLog("", 0, 0, TakeOf); },
    [] { vxReadTJRadarLog("", 0, 0, TakeOf); },
    [] { vxReadBatInfoLog("", 0, 0, 0, TakeOf); },
    [] { vxReadBatInfoLogII("", 0, 0, VX_BATTERY_SECOND_LOG, TakeOf); },
    [] { vxReadSignWaringLog("ring", reinterpret_cast<const std::uint8_t*>("SIGN"), Take); },
    [] { vxReadWaringReport(Take); },
    [] {
        std::uint16_t head[8];
        std::uint8_t rows[3 * 32];
        vxReadWarningLog(head, rows, 3);
    },
    [] { vxReadPixelInfo("", 0, VX_PIXELS_FROM_CSV, TakeOf); },
    [] { vxReadPixelInfo("", 0, VX_PIXELS_FROM_DATABASE, TakeOf); },
    [] { vxReadPixelInfo("", 0, VX_PIXELS_FROM_TEXT, TakeOf); },
    [] { vxReadPixelErrorReport(Take); },
    [] { vxReadPlayLogExt(0, 0, VX_LOG_READ, TakeOf); },
    [] { vxReadSignLog(0, 0, VX_LOG_READ, TakeOf); },
    [] { vxReadTempLog(0, 0, VX_LOG_READ, TakeOf); },
    [] { vxReadTileInfo(0, 0, VX_LOG_READ, TakeOf); },
    [] { vxReadEventLog(0, 0, VX_LOG_READ, TakeOf); },
    [] {
        char local[] = "errors";
        vxReadTrafficErrLog(local, "SIGN", Take);
    },
    [] { vxReadTrafficTempLog("temperatures", "SIGN", Take); },
    [] {
        vxLstLongFolderCB(
            "D:\\T", [](std::uint8_t* entry, void*) { return entry[275] == 7 ? 1U : 0U; }, nullptr);
    },
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    EmptyFolder();
    const vxsign::test::FakeClock clock;
    Input input(bytes, size);
    const std::uint8_t reader = input.U8();
    const View answers = input.Block();
    const View file = input.Rest();
    Input others(answers);
    int patience = 64;
    const Line line([&](const vxsign::test::Packet& request) {
        Bytes answer = FileAnswer(file, others, request);
        if (answer.empty() && others.IsOver() && --patience > 0) // 100 percent done, and what else there may be
            answer = vxsign::test::MakeReply(request, 0, {100, 0, 0, 0}, AsExtended(file));
        return answer;
    });
    kReaders[reader % std::size(kReaders)]();
    return 0;
}
