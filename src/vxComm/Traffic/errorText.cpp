// The texts of the error log: by the high byte of a code, and then by the halves of the low one.
#include "vxComm/Traffic/errorText.h"

#include <array>
#include <span>

namespace vxsign {
namespace {

// The halves of a code's low byte.
struct Detail
{
    std::uint8_t low;
    unsigned Upper() const { return low >> 4; }
    unsigned Lower() const { return low & 0xF; }
};

// What follows the text of a kind.
using Ending = std::string (*)(Detail detail);

std::string Nothing(Detail)
{
    return {};
}

std::string FormatOrMissing(Detail detail)
{
    return detail.Lower() == 1 ? " File Format Err" : " File Not Exist Err";
}

// A byte of that value, by rule, and no digit.
std::string AddressByte(Detail detail)
{
    return std::string(" Address = ") + static_cast<char>(detail.Lower());
}

std::string AddressDigit(Detail detail)
{
    return {static_cast<char>('0' + detail.low)};
}

std::string LowerOrHigh(Detail detail)
{
    return detail.Lower() == 0 ? "AC Lower Error" : "AC High Error";
}

constexpr const char* kFiles[] = {"",        "Map",         "PHASE",     "PERIOD",   "SPECPERIOD",
                                  "IOTABLE", "IOTABLE MAN", "CARDETECT", "CONFLICT", "CONFIG"};
constexpr const char* kSilentBoards[] = {
    "Output board Communication Error(motor)", "Output board Communication Error(man)",
    "Output board Communication Error(motor ext)", "Output board Communication Error(man ext)"};
constexpr const char* kFaultyBoards[] = {"Output board Error(motor)", "Output board Error(man)",
                                         "Output board Error(motor ext)", "Output board Error(man ext)"};

struct Kind
{
    std::uint32_t level = 0;
    const char* text = "";
    Ending ending = Nothing;
    std::span<const char* const> parts = {}; // by the upper half of the detail, in place of the text
};

// By the high byte of the code.
constexpr std::array<Kind, 16> kKinds{{
    {},
    {3, "", FormatOrMissing, kFiles},
    {2, "", AddressByte, kSilentBoards},
    {2, "Keyboard communicate error, Address = ", AddressDigit},
    {2, "Loops communicate error, Address = ", AddressDigit},
    {2, "Video communicate error, Address = ", AddressDigit},
    {2, "Slave Connect Error"},
    {4, "Sync Error"},
    {4, "", LowerOrHigh},
    {4, "temp error"},
    {4, "Communication offline error"},
    {4, "RTC error"},
    {4, "Reset error"},
    {4, "CAN communication error"},
    {2, "Green Conflict error"},
    {2, "", AddressByte, kFaultyBoards},
}};

} // namespace

TrafficError DescribeTrafficError(std::uint16_t code)
{
    const std::size_t high = code >> 8;
    if (high >= kKinds.size())
        return {};
    const Kind& kind = kKinds[high];
    const Detail detail{static_cast<std::uint8_t>(code)};
    std::string text = detail.Upper() < kind.parts.size() ? kind.parts[detail.Upper()] : kind.text;
    return {kind.level, text + kind.ending(detail)};
}

} // namespace vxsign
