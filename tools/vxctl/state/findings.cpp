// Tells what doctor has found, at once.
#include "vxctl/state/findings.h"

#include "vxctl/cli/failure.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::size_t kCheckWidth = 12;
constexpr std::size_t kVerdictWidth = 10;

std::string VerdictOf(Tone tone)
{
    switch (tone) {
    case Tone::kFine:
        return "ok";
    case Tone::kDoubtful:
        return "doubtful";
    case Tone::kWrong:
        return "wrong";
    default:
        return "unknown";
    }
}

std::string Gap(std::size_t width, const std::string& text)
{
    return std::string(width - std::min(text.size(), width - 1), ' ');
}

} // namespace

void Findings::Note(const std::string& what, Tone tone, const std::string& text)
{
    const std::string verdict = VerdictOf(tone);
    report.Line(what + Gap(kCheckWidth, what) + Toned(verdict, tone) + Gap(kVerdictWidth, verdict) + text);
    findings.push_back({{"check", what}, {"verdict", verdict}, {"text", text}});
    if (tone == Tone::kWrong || (tone == Tone::kDoubtful && worst == Tone::kFine))
        worst = tone;
}

void Findings::Tell(const char* key, const char* title, std::string_view text)
{
    if (text.empty())
        return;
    findings.back()[key] = text;
    report.Line(std::string(kCheckWidth, ' ') + title + std::string(text));
}

void Findings::Add(const std::string& what, Tone tone, const std::string& text, Trouble trouble,
                   const std::string& toldCause, const std::string& brought)
{
    const DoctorAdvice& advice = AdviceFor(trouble);
    Note(what, tone, text);
    Tell("cause", "cause:    ", toldCause.empty() ? advice.cause : toldCause);
    Tell("next", "next:     ", NextCommand(advice, brought));
}

void Findings::AddWithEnd(const std::string& what, Tone tone, const std::string& text, std::string_view end)
{
    Note(what, tone, text);
    Tell("end", "ends it:  ", end);
}

bool Findings::Answered(const std::string& what, std::uint32_t result, Trouble trouble)
{
    if (IsDone(result))
        return true;
    Add(what, Tone::kWrong, std::string("refused: ") + vxErrorDesc(result), trouble, std::string(AdviceFor(result)));
    return false;
}

void Findings::Put() const
{
    report.Put("well", worst == Tone::kFine);
    report.Put("findings", findings);
}

} // namespace vxctl
