#include "vxctl/command.h"
#include "vxctl/condition.h"
#include "vxctl/progressBar.h"
#include "vxctl/signTable.h"
#include "vxctl/tone.h"

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
    explicit Examination(Context& examined) : context(examined) {}

    void Run()
    {
        context.report.Put("sign", context.options.url);
        try {
            Line();
            context.Connect();
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
    void Add(const std::string& what, Tone tone, const std::string& text, const std::string& cause = {},
             const std::string& next = {})
    {
        const std::string verdict = tone == Tone::kFine ? "ok" : tone == Tone::kDoubtful ? "doubtful" : "wrong";
        Report::Json finding{{"check", what}, {"verdict", verdict}, {"text", text}};
        const Report& report = context.report;
        report.Line(what + std::string(12 - std::min<std::size_t>(what.size(), 11), ' ') + Toned(verdict, tone) +
                    std::string(10 - verdict.size(), ' ') + Printable(text));
        if (!cause.empty()) {
            finding["cause"] = cause;
            report.Line("            cause:    " + Printable(cause));
        }
        if (!next.empty()) {
            finding["next"] = next;
            report.Line("            next:     " + next);
        }
        isWell = isWell && tone == Tone::kFine;
        findings.push_back(std::move(finding));
    }

    void PutFindings()
    {
        context.report.Put("well", isWell);
        context.report.Put("findings", findings);
    }

    // A failed question is a finding; a line that is down ends the examination.
    bool Answered(const std::string& what, std::uint32_t result, const std::string& next)
    {
        if (result == VX_OK)
            return true;
        const std::string advice(AdviceFor(result));
        Add(what, Tone::kWrong, std::string("refused: ") + vxErrorDesc(result), advice, next);
        if (result == VX_ABORTED || result == VX_COMMUNICATION)
            throw SignFailure(result);
        return false;
    }

    void Line()
    {
        constexpr int kQuestions = 5;
        constexpr int kEnough = 2; // unanswered ones at the start
        const std::uint32_t tries = context.options.retries;
        context.options.retries = 1; // so that lost packets are seen
        context.Connect();
        context.options.retries = tries;
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
            const bool serial = context.options.url.starts_with("serial:");
            Add("line", Tone::kWrong, counts,
                serial ? "no power, another speed or another cable"
                       : "no power, another address or port, or a firewall",
                serial ? "vxctl ports" : "vxctl ping");
            throw SignFailure(result == VX_ABORTED ? VX_ABORTED : VX_COMMUNICATION);
        }
        const std::string times = counts + ", the slowest in " + std::to_string(static_cast<long>(slowest)) + " ms";
        if (answered < asked)
            Add("line", Tone::kDoubtful, times, "packets get lost: noise, a bad cable or a weak radio link",
                "vxctl ping -n 100");
        else if (slowest > context.options.timeoutMs / 2.0)
            Add("line", Tone::kDoubtful, times, "answers take more than half of --timeout",
                "vxctl --timeout " + std::to_string(std::min(context.options.timeoutMs * 4, 60000U)) + " doctor");
        else
            Add("line", Tone::kFine, times);
    }

    void Protocol()
    {
        std::uint64_t state = 0;
        if (const std::uint32_t result = vxReadCurrentState(&state, nullptr, 0); result != VX_OK) {
            const bool login = result >= 36912 && result <= 36918;
            Answered("protocol", result, login ? "vxctl login USER" : "vxctl raw 1 11");
            throw SignFailure(result);
        }
        Add("protocol", Tone::kFine, "the sign tells its state");
    }

    void Clock()
    {
        ClockTime time;
        if (!Answered("clock", ReadClock(time), "vxctl raw 5 4"))
            return;
        const std::int64_t ahead = MinutesAhead(time, LocalTime());
        const std::string text = FormatTime(time, ' ', false);
        if (std::abs(ahead) <= kClockTolerance)
            return Add("clock", Tone::kFine, text);
        Add("clock", Tone::kDoubtful,
            text + ", " + std::to_string(std::abs(ahead)) + " minutes " + (ahead > 0 ? "ahead" : "behind"),
            "never set, an empty battery, or another time zone than this PC", "vxctl clock --set now");
    }

    void Drives()
    {
        const std::vector<DriveSpace> spaces = ReadSpaces();
        std::string letters;
        for (const DriveSpace& space : spaces)
            letters += space.drive;
        if (letters.find('C') == std::string::npos)
            Add("drives", Tone::kWrong, "no drive C", "the sign keeps its settings there: its memory may be broken",
                "vxctl reset --cold");
        else
            Add("drives", Tone::kFine, letters);
        bool scarce = false;
        for (const DriveSpace& space : spaces) {
            if (!space.IsScarce())
                continue;
            scarce = true;
            const std::string drive(1, space.drive);
            Add("storage", Tone::kDoubtful,
                "drive " + drive + " has " + FormatSize(static_cast<double>(space.FreeBytes())) + " of " +
                    FormatSize(static_cast<double>(space.TotalBytes())) + " free",
                "messages or logs fill it", "vxctl ls -l " + drive + ":/");
        }
        if (!scarce && !spaces.empty())
            Add("storage", Tone::kFine, "room on every drive");
    }

    void Pixels()
    {
        std::uint8_t percent = 100;
        if (!Answered("pixels", vxPixProgress(&percent), "vxctl raw 16 3"))
            return;
        if (percent < 100)
            return Add("pixels", Tone::kDoubtful, "a check is at " + std::to_string(percent) + " %",
                       "somebody has started it", "vxctl pixels --last");
        std::uint32_t bad = 0;
        std::uint32_t signals = 0;
        try {
            bad = CountRows("PixelStatus");
            signals = CountRows("PixelSignalErr");
        } catch (const SignFailure& failure) {
            Answered("pixels", failure.code, "vxctl pixels");
            return;
        }
        if (bad == 0 && signals == 0)
            return Add("pixels", Tone::kFine, "the last check has found none that is bad");
        Add("pixels", Tone::kWrong,
            std::to_string(bad) + " lamps bad, " + std::to_string(signals) + " without signal at the last check",
            signals > bad ? "a cable or driver between controller and tiles" : "worn or broken tiles",
            "vxctl pixels --png bad.png");
    }

    void Warnings()
    {
        std::vector<Warning> warnings;
        if (!Answered("warnings", ReadWarnings(warnings), "vxctl get E:/errors.xml ."))
            return;
        if (warnings.empty())
            return Add("warnings", Tone::kFine, "none");
        const Warning& first = warnings.front();
        std::string cause = first.where;
        cause.append(": ").append(first.what).append(" ").append(first.value);
        if (warnings.size() > 1)
            cause += ", and " + std::to_string(warnings.size() - 1) + " more";
        Add("warnings", Tone::kWrong, std::to_string(warnings.size()), cause, "vxctl warnings");
    }

    Context& context;
    Report::Json findings = Report::Json::array();
    bool isWell = true;
};

} // namespace

void AddDoctorCommand(CLI::App& app, Context& context)
{
    AddCommand(
        app,
        {"State", "doctor", "Look for what is wrong, and tell what to do",
         R"(Looks at line, protocol, clock, drives, storage, pixels and warnings; nothing on the sign is changed. Each finding has
its cause and the next command. The exit status is 0 when the sign could be examined, whatever was found.

Examples:
  vxctl doctor
  vxctl --json doctor | jq .well)"})
        ->callback([&context] { Examination(context).Run(); });
}

} // namespace vxctl
