// Makes the first runs of the tool, and what the sign is asked in them.
#include "fuzz/seedSign.h"
#include "fuzz/toolRun.h"
#include "vxctl/cli/tables.h"

#include <set>
#include <sstream>

using namespace vxsign::fuzz;

// The examples of each command of the tool.
int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    SeedInto(argv[1]);
    std::set<std::string> lines;
    for (const vxctl::CommandTable* const table : vxctl::AllTables())
        for (const vxctl::Command& command : table->commands) {
            std::istringstream examples{std::string(command.examples)};
            for (std::string line; std::getline(examples, line);)
                if (line.starts_with("vxctl ") && line.find_first_of("<>|$`\"'\\") == line.npos)
                    lines.insert(line.substr(6));
        }
    for (const std::string& line : lines) {
        EmptyFolder();
        SeedSign sign(true);
        const Content content(sign);
        RunCommand(line, content.message, false);
        Seed("tool", line, Bytes{1} + Text(line) + Block(content.message) + sign.answers);
        Seed("sign", "tool " + line, Bytes{1} + sign.requests);
    }
    return 0;
}
