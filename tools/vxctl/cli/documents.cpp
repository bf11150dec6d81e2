// Tables and manual pages from the rows.
#include "vxctl/cli/documents.h"

#include "vxctl/cli/tables.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::size_t kFewChoices = 3; // that stand in a synopsis themselves

// In a table a bar would end the cell, even within code.
std::string Cell(std::string_view text)
{
    std::string cell;
    for (const char character : text)
        cell.append(character == '|' ? "\\" : "").append(1, character);
    return cell;
}

std::string WordOf(const Argument& argument)
{
    if (!argument.choices.empty())
        return std::string(argument.choices);
    return std::string(argument.word.empty() ? argument.type->word : argument.word);
}

// "-n, --count COUNT", "--colour COLOUR", "--csv".
std::string OptionText(const Argument& argument)
{
    const auto names = Split(argument.name, ',');
    std::string text(names.front());
    if (names.size() > 1 && !names.front().starts_with("--"))
        text.append(", ").append(names[1]);
    return argument.IsFlag() ? text : text + " " + WordOf(argument);
}

std::string PlaceText(const Argument& argument)
{
    const std::size_t choices = Split(argument.choices, '|').size();
    std::string text(choices > 0 && choices <= kFewChoices ? argument.choices : argument.name);
    text += argument.IsRepeated() ? "..." : "";
    return argument.isRequired ? text : "[" + text + "]";
}

std::string Code(const std::string& text)
{
    return "`" + Cell(text) + "`";
}

std::string OptionsCell(const Command& command)
{
    std::string cell;
    for (const Argument& argument : command.arguments) {
        if (argument.IsOption() && !argument.isRequired)
            cell.append(cell.empty() ? "" : ", ").append(Code(OptionText(argument)));
    }
    return cell;
}

// The groups of all tables in their order.
std::vector<std::string_view> Groups()
{
    std::vector<std::string_view> groups;
    for (const CommandTable* const table : AllTables()) {
        if (std::ranges::find(groups, table->group) == groups.end())
            groups.push_back(table->group);
    }
    return groups;
}

std::vector<const Command*> CommandsOf(std::string_view group)
{
    std::vector<const Command*> commands;
    for (const CommandTable* const table : AllTables()) {
        for (const Command& command : table->commands) {
            if (table->group == group && command.run != nullptr)
                commands.push_back(&command);
        }
    }
    return commands;
}

// Text of a manual page: no line of it is a request, and a dash is one that can be copied.
std::string Roff(std::string_view text)
{
    std::string roff;
    for (const std::string_view line : Split(text, '\n')) {
        roff += line.starts_with('.') || line.starts_with('\'') ? "\\&" : "";
        for (const char character : line)
            roff.append(character == '-' ? "\\-" : character == '\\' ? "\\e" : std::string(1, character));
        roff += '\n';
    }
    return roff;
}

std::string RangeText(const Argument& argument)
{
    if (argument.type != &kNumber || argument.most == UINT32_MAX)
        return {};
    return ", " + std::to_string(argument.least) + " to " + std::to_string(argument.most);
}

std::string ManualEntry(const std::string& head, const std::string& text)
{
    return ".TP\n.B " + Roff(head) + Roff(text);
}

std::string ManualOption(const Argument& argument)
{
    std::string text = std::string(argument.help) + RangeText(argument);
    if (!argument.standard.empty())
        text.append("; otherwise ").append(argument.standard);
    return ManualEntry(argument.IsOption() ? OptionText(argument) : std::string(argument.name), text);
}

std::string ManualOf(const Command& command)
{
    std::string text = ManualEntry(SynopsisOf(command), std::string(command.help) + ".");
    if (!command.details.empty())
        text += Roff(command.details);
    if (command.arguments.size() == 0)
        return text;
    text += ".RS\n";
    for (const Argument& argument : command.arguments)
        text += ManualOption(argument);
    return text + ".RE\n";
}

} // namespace

std::string SynopsisOf(const Command& command)
{
    std::string text(command.name);
    for (const Argument& argument : command.arguments) {
        if (!argument.IsOption())
            text += " " + PlaceText(argument);
        else if (argument.isRequired)
            text += " " + OptionText(argument);
    }
    return text;
}

std::string MarkdownTables()
{
    std::string text = "### Options for every command\n\n| option | meaning | default |\n|---|---|---|\n";
    for (const Argument& argument : CommonArguments())
        text += "| " + Code(OptionText(argument)) + " | " + std::string(argument.help) + RangeText(argument) + " | " +
                std::string(argument.standard) + " |\n";
    for (const std::string_view group : Groups()) {
        text.append("\n### ").append(group).append("\n\n| command | what it does | options |\n|---|---|---|\n");
        for (const Command* const command : CommandsOf(group))
            text += "| " + Code(SynopsisOf(*command)) + " | " + Cell(command->help) + " | " + OptionsCell(*command) +
                    " |\n";
    }
    return text;
}

std::string ManualSections()
{
    std::string text = ".SH OPTIONS\nOptions may stand ahead of the command or behind it.\n";
    for (const Argument& argument : CommonArguments())
        text += ManualOption(argument);
    text += ".SH COMMANDS\n";
    for (const std::string_view group : Groups()) {
        text.append(".SS ").append(group).append("\n");
        for (const Command* const command : CommandsOf(group))
            text += ManualOf(*command);
    }
    return text;
}

} // namespace vxctl
