// doctor: what is wrong, and what to look at next.
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/shown.h"
#include "vxctl/cli/tables.h"
#include "vxctl/state/condition.h"
#include "vxctl/state/doctorAdvice.h"
#include "vxctl/state/signTable.h"

#include <vxsign/pixel.h>
#include <vxsign/read.h>
#include <vxsign/test.h>

#include <algorithm>
#include <cstdlib>

namespace vxctl {

namespace {

// Looks at one thing after the other. What is well is one line; what is not has its cause and the next command.
class Examination
{
public:
    explicit Examination(Session& examined) : session(examined) {}

    void Run()
    {
        session.report.Put("sign", session.options.url);
        try {
            Line();
            session.Connect();
            Protocol();
            Clock();
            Drives();
            Pixels();
            Warnings();
        } catch (const SignFailure&) {
            PutFindings();
            throw;
        }
        PutFindings();
    }

private:
    void Add(const std::string& what, const std::string& text) { Add(what, Tone::kFine, text, Trouble::kNone); }

    // The cause is that of the trouble's advice, unless the sign tells it; `brought` goes into the next command.
    void Add(const std::string& what, Tone tone, const std::string& text, Trouble trouble,
             const std::string& toldCause = {}, const std::string& brought = {})
    {
        const std::string verdict = tone == Tone::kFine ? "ok" : tone == Tone::kDoubtful ? "doubtful" : "wrong";
        Report::Json finding{{"check", what}, {"verdict", verdict}, {"text", text}};
        const Report& report = session.report;
        report.Line(what + std::string(12 - std::min<std::size_t>(what.size(), 11), ' ') + Toned(verdict, tone) +
                    std::string(10 - verdict.size(), ' ') + text);
        const DoctorAdvice& advice = AdviceFor(trouble);
        const std::string cause = advice.cause.empty() ? toldCause : std::string(advice.cause);
        if (!cause.empty()) {
            finding["cause"] = cause;
            report.Line("            cause:    " + cause);
        }
        if (const std::string next = NextCommand(advice, brought); !next.empty()) {
            finding["next"] = next;
            report.Line("            next:     " + next);
        }
        isWell = isWell && tone == Tone::kFine;
        findings.push_back(std::move(finding));
    }

    void PutFindings()
    {
        session.report.Put("well", isWell);
        session.report.Put("findings", findings);
    }

    // A failed question is a finding; a line that is down ends the examination.
    bool Answered(const std::string& what, std::uint32_t result, Trouble trouble)
    {
        if (result == VX_OK)
            return true;
        Add(what, Tone::kWrong, std::string("refused: ") + vxErrorDesc(result), trouble,
            std::string(AdviceFor(result)));
        if (result == VX_ABORTED || result == VX_COMMUNICATION)
            throw SignFailure(result);
        return false;
    }

    void Line()
    {
        constexpr int kQuestions = 5;
        constexpr int kEnough = 2; // unanswered ones at the start
        const std::uint32_t tries = session.options.retries;
        session.options.retries = 1; // so that lost packets are seen
        session.Connect();
        session.options.retries = tries;
        int asked = 0;
        int answered = 0;
        double slowest = 0;
        std::uint32_t result = VX_OK;
        while (asked < kQuestions && (answered != 0 || asked < kEnough) && result != VX_ABORTED) {
            std::uint16_t first = 0;
            std::uint16_t second = 0;
            std::uint32_t third = 0;
            const ProgressBar watch("line", true);
            result = vxConnectTest(&first, &second, &third);
            ++asked;
            // A sign that refuses has answered too.
            if (result != VX_COMMUNICATION && result != VX_ABORTED) {
                ++answered;
                slowest = std::max(slowest, watch.Seconds() * 1000);
            }
        }
        const std::string counts = std::to_string(answered) + " of " + std::to_string(asked) + " answered";
        if (result == VX_ABORTED || answered == 0) {
            const bool serial = session.options.url.starts_with("serial:");
            Add("line", Tone::kWrong, counts, serial ? Trouble::kDeadSerialLine : Trouble::kDeadLine);
            throw SignFailure(result == VX_ABORTED ? VX_ABORTED : VX_COMMUNICATION);
        }
        const std::string times = counts + ", the slowest in " + std::to_string(static_cast<long>(slowest)) + " ms";
        if (answered < asked)
            Add("line", Tone::kDoubtful, times, Trouble::kLostPackets);
        else if (slowest > session.options.timeoutMs / 2.0)
            Add("line", Tone::kDoubtful, times, Trouble::kSlowLine, {},
                std::to_string(std::min(session.options.timeoutMs * 4, 60000U)));
        else
            Add("line", times);
    }

    void Protocol()
    {
        std::uint64_t state = 0;
        if (const std::uint32_t result = vxReadCurrentState(&state, nullptr, 0); result != VX_OK) {
            const bool login = result >= 36912 && result <= 36918;
            Answered("protocol", result, login ? Trouble::kLoginWanted : Trouble::kNoState);
            throw SignFailure(result);
        }
        Add("protocol", "the sign tells its state");
    }

    void Clock()
    {
        ClockTime time;
        if (!Answered("clock", ReadClock(time), Trouble::kNoClock))
            return;
        const std::int64_t ahead = MinutesAhead(time, LocalTime());
        const std::string text = FormatTime(time, ' ', false);
        if (std::abs(ahead) <= kClockTolerance)
            return Add("clock", text);
        Add("clock", Tone::kDoubtful,
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
            Add("drives", Tone::kWrong, "no drive C", Trouble::kNoSystemDrive);
        else
            Add("drives", letters);
        bool scarce = false;
        for (const DriveSpace& space : spaces) {
            if (!space.IsScarce())
                continue;
            scarce = true;
            const std::string drive(1, space.drive);
            Add("storage", Tone::kDoubtful,
                "drive " + drive + " has " + FormatSize(static_cast<double>(space.FreeBytes())) + " of " +
                    FormatSize(static_cast<double>(space.TotalBytes())) + " free",
                Trouble::kScarceDrive, {}, drive);
        }
        if (!scarce && !spaces.empty())
            Add("storage", "room on every drive");
    }

    void Pixels()
    {
        std::uint8_t percent = 100;
        if (!Answered("pixels", vxPixProgress(&percent), Trouble::kNoPixelProgress))
            return;
        if (percent < 100)
            return Add("pixels", Tone::kDoubtful, "a check is at " + std::to_string(percent) + " %",
                       Trouble::kPixelCheckRuns);
        std::uint32_t bad = 0;
        std::uint32_t signals = 0;
        try {
            bad = CountRows("PixelStatus");
            signals = CountRows("PixelSignalErr");
        } catch (const SignFailure& failure) {
            Answered("pixels", failure.code, Trouble::kNoPixelTables);
            return;
        }
        if (bad == 0 && signals == 0)
            return Add("pixels", "the last check has found none that is bad");
        Add("pixels", Tone::kWrong,
            std::to_string(bad) + " lamps bad, " + std::to_string(signals) + " without signal at the last check",
            signals > bad ? Trouble::kBadSignals : Trouble::kBadLamps);
    }

    void Warnings()
    {
        std::vector<Warning> warnings;
        if (!Answered("warnings", ReadWarnings(warnings), Trouble::kNoWarningReport))
            return;
        if (warnings.empty())
            return Add("warnings", "none");
        const Warning& first = warnings.front();
        std::string cause = first.where;
        cause.append(": ").append(first.what).append(" ").append(first.value);
        if (warnings.size() > 1)
            cause += ", and " + std::to_string(warnings.size() - 1) + " more";
        Add("warnings", Tone::kWrong, std::to_string(warnings.size()), Trouble::kWarnings, cause);
    }

    Session& session;
    Report::Json findings = Report::Json::array();
    bool isWell = true;
};

// Without a sign.
std::uint32_t ListAdvice(Report& report)
{
    TextTable table({{"check"}, {"cause"}, {"next"}});
    for (const DoctorAdvice& advice : AllDoctorAdvice())
        table.Add({std::string(advice.check), advice.cause.empty() ? "as the sign tells" : std::string(advice.cause),
                   NextCommand(advice, advice.usual)});
    table.Show(report, "advice");
    return VX_OK;
}

std::uint32_t Doctor(Session& session, const Args& args)
{
    if (args.Has("--list"))
        return ListAdvice(session.report);
    Examination(session).Run();
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "doctor",
        .help = "Look for what is wrong, and say what to do",
        .details =
            R"(Looks at line, protocol, clock, drives, storage, pixels and warnings. Each finding has its cause and the next command.
Neither doctor nor what it advises changes anything on the sign; where only a change helps, it names the help that tells
how. --list shows all that it may advise, and asks no sign. The exit status is 0 when the sign could be examined,
whatever was found.)",
        .examples = R"(vxctl doctor
vxctl --json doctor | jq .well)",
        .arguments = {Flag("--list", "show all that may be advised")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = Doctor,
    },
};

} // namespace

const CommandTable kDoctorCommands{"State", kCommands};

} // namespace vxctl
