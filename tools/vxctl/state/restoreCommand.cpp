// restore: back to the play list.
#include "vxctl/cli/tables.h"
#include "vxctl/state/faceState.h"

namespace vxctl {

namespace {

// What a sign does not tell of is told to end all the same; one that refuses that has nothing of the kind.
std::uint32_t Restore(Session& session, const Args& /*args*/)
{
    Report& report = session.report;
    const FaceState face = ReadFace();
    Report::Json ended = Report::Json::array();
    Report::Json unseen = Report::Json::array();
    for (const Cover& cover : AllCovers()) {
        const std::optional<bool> isThere = IsThere(cover, face);
        if (cover.end == nullptr || isThere == false)
            continue;
        const std::uint32_t result = cover.end();
        if (isThere)
            Check(result);
        if (!IsDone(result))
            continue;
        (isThere ? ended : unseen).push_back(cover.name);
        report.Line((isThere ? "ended               " : "ended, if there     ") + std::string(cover.text));
    }
    if (ended.empty() && unseen.empty())
        report.Line("nothing was over the play list");
    report.Put("ended", std::move(ended));
    report.Put("endedUnseen", std::move(unseen));
    report.ValueOrNull("playing", "playing", PlayingFile(), "nothing: the play list has nothing to show");
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "restore",
        .help = "Go back to the play list, whatever is over it",
        .details =
            R"(Ends power off and blank, tests, tickers, programs, emergencies too, video windows and inputs, and switches zones off.
What was there is said. What a sign does not tell of is ended all the same. Zones, programs and lists themselves stay;
zone clear and player delete take them away.)",
        .examples = R"(vxctl restore
vxctl --json restore | jq .ended)",
        .signs = Signs::kMany,
        .run = Restore,
    },
};

} // namespace

const CommandTable kRestoreCommands{"Control", kCommands};

} // namespace vxctl
