// Builds the parser from the rows.
#include "vxctl/cli/commandLine.h"

#include "vxctl/cli/complaint.h"
#include "vxctl/cli/tables.h"

#include <vxsign/api.h>

#include <algorithm>
#include <limits>

namespace vxctl {

namespace {

constexpr const char* kFooter =
    R"(A sign is a URL, udp://HOST:PORT, tcp://HOST:PORT or serial:NAME@BAUD, or a name in the book of signs ("vxctl help
book"). Without -s it is that of the environment variable VXSIGN. Paths on the sign look like D:/T/NAME.NMG.

Many signs: -s again, group:NAME, all. Each has its line when it is done; what fails is told at the end too. What is
written on this PC goes into a folder for each: "get D:/T/A.NMG out/" makes out/NAME/A.NMG.

Exit status: 0 done, 1 the sign or the line failed, 2 the command line is wrong, 3 some of many signs failed.

Examples:
  vxctl show "HELLO 42"
  vxctl -s tcp://192.168.1.50:9520 put hello.nmg D:/T/HELLO.NMG
  vxctl -s serial:/dev/ttyUSB0@115200 info
  vxctl -s group:a7-north show "Fog"
  vxctl help get)";

std::string FooterOf(const Command& command)
{
    std::string footer(command.details);
    const auto examples = Split(command.examples, '\n');
    if (!examples.empty())
        footer.append(footer.empty() ? "" : "\n\n").append(examples.size() > 1 ? "Examples:" : "Example:");
    for (const std::string_view example : examples)
        footer.append("\n  ").append(example);
    return footer;
}

// Values are taken as texts: their types look at them when all is parsed.
CLI::Option* AddOption(CLI::App& to, const Argument& argument)
{
    const std::string name(argument.name);
    const std::string help(argument.help);
    if (argument.IsFlag())
        return to.add_flag(name, help);
    CLI::Option* const option = argument.IsRepeated() ? to.add_option_function<std::vector<std::string>>(
                                                            name, [](const std::vector<std::string>&) {}, help)
                                                      : to.add_option_function<std::string>(
                                                            name, [](const std::string&) {}, help);
    const std::string value = ValueText(argument);
    if (argument.IsRepeated() && argument.IsOption())
        option->allow_extra_args(false); // what follows the value is not another one
    option->required(argument.isRequired)->type_name(value == name ? "" : value);
    if (!argument.standard.empty())
        option->default_str(std::string(argument.standard));
    if (!argument.environment.empty())
        option->envname(std::string(argument.environment));
    return option;
}

void Relate(CLI::App& app, const Argument& argument, CLI::Option& option)
{
    for (const std::string_view other : Split(argument.excluded, ' '))
        option.excludes(app.get_option(std::string(other)));
    if (!argument.needed.empty())
        option.needs(app.get_option(std::string(argument.needed)));
}

} // namespace

std::string ValueText(const Argument& argument)
{
    if (!argument.choices.empty())
        return std::string(argument.choices);
    std::string text(argument.word.empty() ? argument.type->word : argument.word);
    if (argument.type == &kNumber && argument.most != std::numeric_limits<std::uint32_t>::max())
        text += " (" + std::to_string(argument.least) + " to " + std::to_string(argument.most) + ")";
    return text;
}

CommandLine::CommandLine()
{
    app.footer(kFooter);
    app.require_subcommand(1);
    app.fallthrough(); // the options for every command may stand behind it too
    AddArguments(app, nullptr, CommonArguments());
    app.set_version_flag("--version", std::string("vxctl, with libvxsign ") + vxAPIVersion());
    for (const CommandTable* const table : AllTables()) {
        for (const Command& command : table->commands)
            Add(*table, command);
    }
}

void CommandLine::Add(const CommandTable& table, const Command& command)
{
    CLI::App* family = &app;
    const auto words = Split(command.name, ' ');
    for (std::size_t i = 0; i + 1 < words.size(); ++i)
        family = family->get_subcommand(std::string(words[i]));
    CLI::App* const added = family->add_subcommand(std::string(words.back()), std::string(command.help));
    added->group(std::string(table.group))->footer(FooterOf(command));
    AddArguments(*added, &command, command.arguments);
    if (command.run == nullptr)
        added->require_subcommand(1);
    else
        added->final_callback([this, &command] { chosen = &command; });
}

void CommandLine::AddArguments(CLI::App& to, const Command* command, std::span<const Argument> arguments)
{
    for (const Argument& argument : arguments)
        places.push_back({command, &argument, AddOption(to, argument)});
    for (const Place& place : std::span(places).last(arguments.size()))
        Relate(to, *place.argument, *place.option);
}

const Command& CommandLine::Parse(std::vector<std::string> words)
{
    chosen = nullptr;
    std::ranges::reverse(words); // as CLI11 takes them
    app.parse(words);
    return *chosen;
}

const Command* CommandLine::Found() const
{
    std::string name;
    for (auto parsed = app.get_subcommands(); !parsed.empty(); parsed = parsed.front()->get_subcommands())
        name.append(name.empty() ? "" : " ").append(parsed.front()->get_name());
    return FindCommand(name);
}

Args CommandLine::ArgsOf(const Command& command) const
{
    const std::vector<const Command*> path = PathOf(command);
    Args args;
    for (const Place& place : places) {
        if (place.command == nullptr || std::ranges::find(path, place.command) != path.end())
            args.Add(*place.argument, place.option->results());
    }
    return args;
}

const CLI::App& CommandLine::AppOf(const std::string& name) const
{
    const CLI::App* found = &app;
    std::string family;
    for (const std::string_view word : Split(name, ' ')) {
        if (FindCommand(family + std::string(word)) == nullptr)
            throw UsageError(UnknownCommand(family, word));
        found = found->get_subcommand(std::string(word));
        family.append(word).append(" ");
    }
    return *found;
}

} // namespace vxctl
