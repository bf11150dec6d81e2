// Complains about command lines.
#include "vxctl/cli/complaint.h"

#include "vxctl/cli/suggestion.h"
#include "vxctl/cli/tables.h"

#include <algorithm>

namespace vxctl {

namespace {

using Names = std::vector<std::string_view>;

std::string_view LastWord(std::string_view name)
{
    return name.substr(name.rfind(' ') + 1); // which is all of it without a space
}

std::string_view FamilyOf(std::string_view name)
{
    return name.substr(0, name.size() - LastWord(name).size());
}

// What may stand behind a family, such as "zone "; behind the tool's name for none.
Names WordsOf(std::string_view family)
{
    Names names;
    for (const CommandTable* const table : AllTables()) {
        for (const Command& command : table->commands) {
            if (FamilyOf(command.name) == family)
                names.push_back(LastWord(command.name));
        }
    }
    return names;
}

// "zone divide" may have been meant by "divide".
Names CommandsWithLastWord(std::string_view word)
{
    Names names;
    for (const CommandTable* const table : AllTables()) {
        for (const Command& command : table->commands) {
            if (LastWord(command.name) == word)
                names.push_back(command.name);
        }
    }
    return names;
}

bool IsOption(const std::string& word)
{
    return word.starts_with('-') && word.size() > 1;
}

// "-5 C" was hardly meant as an option.
bool IsText(const std::string& word)
{
    return word.find(' ') != std::string::npos || (word.size() > 1 && word[1] >= '0' && word[1] <= '9');
}

std::string OptionWithRemark(const std::string& word, const Command* command)
{
    if (IsText(word))
        return word + " (what begins with a dash and is no option stands behind \"--\")";
    Names names{"--help"};
    for (const Argument* const argument : ArgumentsOf(command)) {
        if (argument->IsOption())
            std::ranges::copy(Split(argument->name, ','), std::back_inserter(names));
    }
    const std::string name = word.substr(0, word.find('='));
    return name + DidYouMean(Nearest(name, names));
}

std::string UnknownOptions(const std::vector<std::string>& words, const Command* command)
{
    std::string text;
    std::size_t count = 0;
    for (const std::string& word : words) {
        if (IsOption(word))
            text.append(count++ == 0 ? "" : ", ").append(OptionWithRemark(word, command));
    }
    return (count > 1 ? "unknown options " : "unknown option ") + text;
}

std::string Surplus(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text.append(text.empty() ? "'" : " '").append(word).append("'");
    return text + (words.size() > 1 ? " are too much" : " is too much");
}

std::string Unknown(const std::vector<std::string>& words, const Command* command)
{
    if (!IsOption(words.front()) && (command == nullptr || command->run == nullptr))
        return UnknownCommand(command == nullptr ? "" : std::string(command->name) + " ", words.front());
    return std::ranges::any_of(words, IsOption) ? UnknownOptions(words, command) : Surplus(words);
}

std::string MissingCommand(const Command* family)
{
    if (family == nullptr)
        return "a command is missing";
    std::string text;
    for (const std::string_view word : WordsOf(std::string(family->name) + " "))
        text.append(text.empty() ? "a command is missing: " : ", ").append(word);
    return text;
}

// The parser's own words, where they read badly.
std::string Reworded(const std::string& text)
{
    const std::string name = text.substr(0, text.find(':'));
    if (text.ends_with(" missing"))
        return name + ": its value is missing";
    return text.find(": At Most") == std::string::npos ? text : name + " is there more than once";
}

} // namespace

std::string Complaint(const CommandLine& line, const CLI::ParseError& error)
{
    const Command* const command = line.Found();
    std::vector<std::string> unknown = line.App().remaining(true);
    std::erase(unknown, "--");
    if (!unknown.empty())
        return Unknown(unknown, command);
    if (error.get_name() == "RequiredError" && (command == nullptr || command->run == nullptr))
        return MissingCommand(command);
    return Reworded(error.what());
}

std::string UnknownCommand(std::string_view family, std::string_view word)
{
    std::vector<std::string_view> meant = Nearest(word, WordsOf(family));
    if (meant.empty())
        meant = CommandsWithLastWord(word);
    return "unknown command " + std::string(word) + DidYouMean(std::move(meant));
}

std::string WhereToRead(const std::string& name)
{
    return "\"vxctl help" + (name.empty() || name == "help" ? "" : " " + name) + "\" tells more";
}

} // namespace vxctl
