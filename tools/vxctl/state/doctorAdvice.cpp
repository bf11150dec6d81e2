// All causes and next commands.
#include "vxctl/state/doctorAdvice.h"

#include <algorithm>

namespace vxctl {

namespace {

// Where only a change helps, the next command is the help that tells how to make it.
constexpr DoctorAdvice kAdvice[] = {
    {Trouble::kNone, "", "", "", ""},
    {Trouble::kDeadLine, "line", "no power, another address or port, or a firewall", "vxctl ping", ""},
    {Trouble::kDeadSerialLine, "line", "no power, another speed or another cable", "vxctl ports", ""},
    {Trouble::kNoConnection, "line", "nothing listens at that port, or no way leads there", "vxctl ping -n 1", ""},
    {Trouble::kNoise, "line", "another speed, a cable without earth, or another device at the line",
     "vxctl ping -n 100", ""},
    {Trouble::kBadSums, "line", "packets arrive damaged or cut: a bad cable, noise, or a converter",
     "vxctl ping -n 100", ""},
    {Trouble::kWrongIds, "line", "answers of another sign, or to another host at the same line", "vxctl ping -n 100",
     ""},
    {Trouble::kLateAnswers, "line", "the sign answers, but later than --timeout", "vxctl --timeout @ doctor", "12000"},
    {Trouble::kLostPackets, "line", "packets get lost: noise, a bad cable or a weak radio link", "vxctl ping -n 100",
     ""},
    {Trouble::kSlowLine, "line", "answers take more than half of --timeout", "vxctl --timeout @ doctor", "12000"},
    {Trouble::kLoginWanted, "protocol", "", "vxctl login --help", ""},
    {Trouble::kNoState, "protocol", "", "vxctl raw 1 11", ""},
    {Trouble::kNoClock, "clock", "", "vxctl raw 5 1", ""},
    {Trouble::kWrongClock, "clock", "never set, an empty battery, or another time zone than this PC",
     "vxctl clock --help", ""},
    {Trouble::kNoSystemDrive, "drives", "the sign keeps its settings there: its memory may be broken", "vxctl df C",
     ""},
    {Trouble::kScarceDrive, "storage", "messages or logs fill it", "vxctl ls -l @:/", "D"},
    {Trouble::kNoPixelProgress, "pixels", "", "vxctl raw 16 3", ""},
    {Trouble::kPixelCheckRuns, "pixels", "somebody has started it", "vxctl pixels --last", ""},
    {Trouble::kNoPixelTables, "pixels", "", "vxctl pixels --help", ""},
    {Trouble::kNeverChecked, "pixels", "the sign has the results of no check", "vxctl pixels --help", ""},
    {Trouble::kBadLamps, "pixels", "worn or broken tiles", "vxctl pixels --last", ""},
    {Trouble::kBadSignals, "pixels", "a cable or driver between controller and tiles", "vxctl pixels --last", ""},
    {Trouble::kNoWarningReport, "warnings", "", "vxctl get E:/errors.xml .", ""},
    {Trouble::kWarnings, "warnings", "", "vxctl warnings", ""},
};

} // namespace

std::span<const DoctorAdvice> AllDoctorAdvice()
{
    return std::span(kAdvice).subspan(1);
}

const DoctorAdvice& AdviceFor(Trouble trouble)
{
    return *std::ranges::find(kAdvice, trouble, &DoctorAdvice::trouble);
}

std::string NextCommand(const DoctorAdvice& advice, std::string_view brought)
{
    std::string command(advice.next);
    if (const std::size_t place = command.find('@'); place != std::string::npos)
        command.replace(place, 1, brought);
    return command;
}

} // namespace vxctl
