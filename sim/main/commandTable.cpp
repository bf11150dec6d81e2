#include "sim/main/commandTable.h"

#include <cstddef>
#include <cstdint>

namespace vxsim {
namespace {

std::string MinorsText(const Minors& minors)
{
    if (minors.first == kAnyMinor.first && minors.last == kAnyMinor.last)
        return "any";
    const std::string first = std::to_string(minors.first);
    return minors.first == minors.last ? first : first + " to " + std::to_string(minors.last);
}

std::string CountText(std::size_t bytes)
{
    return bytes == 0 ? " " : " " + std::to_string(bytes) + " ";
}

} // namespace

std::string CommandTable(std::span<const CommandRow> rows)
{
    std::string table = "| major, minor | command | payload | extended | log | what the sign does |\n"
                        "|---|---|---|---|---|---|\n";
    for (const CommandRow& row : rows) {
        table += "| " + std::to_string(row.major.number) + ", " + MinorsText(row.minors) + " | ";
        table += row.name;
        table += " |" + CountText(row.leastPayload) + "|" + CountText(row.leastData) + "|";
        table += row.logged ? " yes | " : " | ";
        table += row.note;
        table += " |\n";
    }
    return table;
}

} // namespace vxsim
