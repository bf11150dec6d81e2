#include "vxctl/cli/command.h"

#include "vxctl/cli/numbers.h"

#include <vxsign/local.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace vxctl {

namespace {

// A longer path would reach the sign without its end.
constexpr std::size_t kLongestSignPath = 240;

} // namespace

CLI::App* AddCommand(CLI::App& app, const CommandText& text)
{
    CLI::App* const command = app.add_subcommand(text.name, text.description);
    command->group(text.group);
    command->footer(text.footer);
    return command;
}

CLI::Option* AddNumber(CLI::App& app, const std::string& name, std::uint32_t& target, std::uint32_t least,
                       std::uint32_t most, const std::string& description)
{
    const std::string range = std::to_string(least) + " to " + std::to_string(most);
    const auto store = [&target, least, most, range](const std::string& text) {
        const auto number = ParseNumber(text);
        if (!number || *number < least || *number > most)
            throw CLI::ValidationError("'" + text + "' is no number from " + range);
        target = *number;
    };
    return app.add_option_function<std::string>(name, store, description)->type_name("NUMBER (" + range + ")");
}

CLI::Option* AddSignPath(CLI::App& app, const std::string& name, std::string& target, const std::string& description)
{
    const auto store = [&target](const std::string& text) {
        if (text.empty() || text.size() > kLongestSignPath)
            throw CLI::ValidationError("a path on the sign has 1 to " + std::to_string(kLongestSignPath) +
                                       " characters");
        target = text;
        if (target.size() > 1 && target[1] == ':')
            std::replace(target.begin(), target.end(), '/', '\\');
    };
    return app.add_option_function<std::string>(name, store, description)->type_name("PATH");
}

std::vector<std::uint8_t> HexArgument(const std::string& text, const std::string& name, std::size_t least,
                                      std::size_t most)
{
    auto bytes = ParseHex(text);
    if (bytes && bytes->size() >= least && bytes->size() <= most)
        return std::move(*bytes);
    const std::string size = least == most ? std::to_string(most) : "up to " + std::to_string(most);
    throw UsageError(name + " takes " + size + " bytes in hexadecimal, such as \"01 ff\"");
}

CLI::Validator ReadableFile()
{
    const auto check = [](const std::string& path) {
        const std::unique_ptr<FILE, int (*)(FILE*)> file(vxFOpen(path.c_str(), "rb"), std::fclose);
        return file ? std::string() : "'" + path + "' cannot be read";
    };
    return CLI::Validator(check, "FILE");
}

} // namespace vxctl
