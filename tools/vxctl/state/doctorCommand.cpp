// doctor: what is wrong, and what to look at next.
#include "vxctl/cli/tables.h"
#include "vxctl/state/condition.h"
#include "vxctl/state/faceCheck.h"
#include "vxctl/state/faceState.h"
#include "vxctl/state/findings.h"
#include "vxctl/state/lineCheck.h"
#include "vxctl/state/signTable.h"

#include <vxsign/filesystem.h>
#include <vxsign/pixel.h>
#include <vxsign/read.h>

#include <cstdlib>
#include <utility>

namespace vxctl {

namespace {

// Exit statuses of doctor --exit-code.
constexpr int kExitWarnings = 4;
constexpr int kExitErrors = 5;

// Looks at one thing after the other.
class Examination
{
public:
    explicit Examination(Session& examined) : session(examined), findings(session.report) {}

    // Throws SignFailure when nothing answers or the sign wants a login.
    Tone Run()
    {
        try {
            RunChecks();
        } catch (const SignFailure&) {
            findings.Put();
            throw;
        }
        findings.Put();
        return findings.Worst();
    }

private:
    using CheckOf = void (Examination::*)();

    // The line is examined first, and told of behind the face.
    void RunChecks()
    {
        const LineState line = ExamineLine(session);
        if (line.answered == 0) {
            TellLine(line, session.options, findings);
            throw SignFailure(line.isAborted ? VX_ABORTED : VX_COMMUNICATION, line.fault.reason);
        }
        AskForLogin();
        Try("face", &Examination::Face);
        TellLine(line, session.options, findings);
        for (const auto& [what, check] : {std::pair<const char*, CheckOf>{"protocol", &Examination::Protocol},
                                          {"clock", &Examination::Clock},
                                          {"drives", &Examination::Drives},
                                          {"pixels", &Examination::Pixels},
                                          {"warnings", &Examination::Warnings}})
            Try(what, check);
    }

    // A check that fails does not keep the others from being made.
    void Try(const char* what, CheckOf check)
    {
        try {
            (this->*check)();
        } catch (const SignFailure& failure) {
            if (failure.code == VX_ABORTED)
                throw;
            findings.Add(what, Tone::kWrong, failure.what(), Trouble::kLostPackets);
        }
    }

    // Without a login nothing else can be asked.
    void AskForLogin()
    {
        std::uint64_t state = 0;
        const std::uint32_t result = vxReadCurrentState(&state, nullptr, 0);
        if (result < VX_LOGIN_WANTED || result > VX_NO_PERMISSION)
            return;
        findings.Answered("protocol", result, Trouble::kLoginWanted);
        throw SignFailure(result);
    }

    void Face() { ExamineFace(findings); }

    void Protocol()
    {
        std::uint64_t state = 0;
        if (findings.Answered("protocol", vxReadCurrentState(&state, nullptr, 0), Trouble::kNoState))
            findings.Add("protocol", "the sign tells its state");
    }

    void Clock()
    {
        ClockTime time;
        if (!findings.Answered("clock", ReadClock(time), Trouble::kNoClock))
            return;
        const std::int64_t ahead = MinutesAhead(time, LocalTime());
        const std::string text = FormatTime(time, ' ', false);
        if (std::abs(ahead) <= kClockTolerance)
            return findings.Add("clock", text);
        findings.Add("clock", Tone::kDoubtful,
                     text + ", " + std::to_string(std::abs(ahead)) + " minutes " + (ahead > 0 ? "ahead" : "behind"),
                     Trouble::kWrongClock);
    }

    void Drives()
    {
        const std::vector<DriveSpace> spaces = ReadSpaces();
        std::string letters;
        for (const DriveSpace& space : spaces)
            letters += space.drive;
        if (letters.find('C') == std::string::npos)
            findings.Add("drives", Tone::kWrong, "no drive C", Trouble::kNoSystemDrive);
        else
            findings.Add("drives", letters);
        bool scarce = false;
        for (const DriveSpace& space : spaces) {
            if (!space.IsScarce())
                continue;
            scarce = true;
            const std::string drive(1, space.drive);
            findings.Add("storage", Tone::kDoubtful,
                         "drive " + drive + " has " + FormatSize(static_cast<double>(space.FreeBytes())) + " of " +
                             FormatSize(static_cast<double>(space.TotalBytes())) + " free",
                         Trouble::kScarceDrive, {}, drive);
        }
        if (!scarce && !spaces.empty())
            findings.Add("storage", "room on every drive");
    }

    void Pixels()
    {
        std::uint8_t percent = 100;
        if (!findings.Answered("pixels", vxPixProgress(&percent), Trouble::kNoPixelProgress))
            return;
        if (percent < 100)
            return findings.Add("pixels", Tone::kDoubtful, "a check is at " + std::to_string(percent) + " %",
                                Trouble::kPixelCheckRuns);
        std::uint32_t bad = 0;
        std::uint32_t signals = 0;
        try {
            bad = CountRows("PixelStatus");
            signals = CountRows("PixelSignalErr");
        } catch (const SignFailure& failure) {
            findings.Answered("pixels", failure.code, Trouble::kNoPixelTables);
            return;
        }
        if (bad == 0 && signals == 0 && !HasChecked())
            return findings.Add("pixels", Tone::kPlain, "never checked", Trouble::kNeverChecked);
        if (bad == 0 && signals == 0)
            return findings.Add("pixels", "the last check has found none that is bad");
        findings.Add("pixels", Tone::kWrong,
                     std::to_string(bad) + " lamps bad, " + std::to_string(signals) +
                         " without signal at the last check",
                     signals > bad ? Trouble::kBadSignals : Trouble::kBadLamps);
    }

    // A check leaves one of these.
    static bool HasChecked() { return IsDone(vxIsFileExist("C:\\PIXEL.SYS")) || IsDone(vxIsFileExist("D:\\PXL.CSV")); }

    void Warnings()
    {
        std::vector<Warning> warnings;
        if (!findings.Answered("warnings", ReadWarnings(warnings), Trouble::kNoWarningReport))
            return;
        if (warnings.empty())
            return findings.Add("warnings", "none");
        const Warning& first = warnings.front();
        std::string cause = first.where;
        cause.append(": ").append(first.what).append(" ").append(first.value);
        if (warnings.size() > 1)
            cause += ", and " + std::to_string(warnings.size() - 1) + " more";
        findings.Add("warnings", Tone::kWrong, std::to_string(warnings.size()), Trouble::kWarnings, cause);
    }

    Session& session;
    Findings findings;
};

// Without a sign.
std::uint32_t ListAdvice(Report& report)
{
    TextTable table({{"check"}, {"cause"}, {"next"}});
    for (const DoctorAdvice& advice : AllDoctorAdvice())
        table.Add({std::string(advice.check), advice.cause.empty() ? "as the sign tells" : std::string(advice.cause),
                   NextCommand(advice, advice.usual)});
    table.Show(report, "checks");
    TextTable ends({{"cover"}, {"end"}});
    for (const Cover& cover : AllCovers())
        ends.Add({std::string(cover.text), cover.command.empty() ? "its end" : std::string(cover.command)});
    report.Line("");
    ends.Show(report, "ends");
    return VX_OK;
}

std::uint32_t Doctor(Session& session, const Args& args)
{
    if (args.Has("--list"))
        return ListAdvice(session.report);
    const bool tellsByStatus = args.Has("--exit-code");
    if (tellsByStatus)
        session.exitStatus = kExitErrors;
    const Tone worst = Examination(session).Run();
    if (tellsByStatus && worst != Tone::kWrong)
        session.exitStatus = worst == Tone::kFine ? EXIT_SUCCESS : kExitWarnings;
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "doctor",
        .help = "Look for what is wrong, and say what to do",
        .details =
            R"(Says first why the face is dark, or shows something else than its play list, with the command that ends it. Then it
looks at line, protocol, clock, drives, storage, pixels and warnings. Each finding has its cause and the next command.
Neither doctor nor a next command changes anything on the sign; where only a change helps, it names the help that tells
how. --list shows all that it may advise, and asks no sign. The exit status is 0 when the sign could be examined,
whatever was found; with --exit-code 4 tells of what is doubtful, 5 of what is wrong, a dead line too.)",
        .examples = R"(vxctl doctor
vxctl --json doctor | jq .well
vxctl doctor --exit-code >/dev/null || echo "look at the sign")",
        .arguments =
            {Flag("--list", "show all that may be advised"),
             Flag("--exit-code", "0 all is well, 4 something is doubtful, 5 something is wrong").Excludes("--list")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = Doctor,
    },
};

} // namespace

const CommandTable kDoctorCommands{"State", kCommands};

} // namespace vxctl
