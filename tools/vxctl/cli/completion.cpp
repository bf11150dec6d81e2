// Reads the rows as far as the words go.
#include "vxctl/cli/completion.h"

#include "vxctl/book/signBook.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/tables.h"

#include <algorithm>
#include <set>

namespace vxctl {

namespace {

constexpr std::string_view kSign = "-s,--sign";

// Words ahead of the one that is typed, and what they leave open.
class Reading
{
public:
    void Take(const std::string& word)
    {
        if (valueOf != nullptr) {
            book = valueOf->name == "--book" ? word : book;
            valueOf = nullptr;
        } else if (word.starts_with('-')) {
            TakeOption(word);
        } else if (command != nullptr && command->run != nullptr) {
            ++places;
        } else {
            TakeName(word);
        }
    }

    // Lines for all that may stand here.
    std::string Offer(const std::string& typed) const
    {
        if (isLost)
            return {};
        if (valueOf != nullptr)
            return valueOf->name == kSign ? Signs(typed) : Values(*valueOf, typed);
        if (typed.starts_with('-'))
            return Options(typed);
        if (command != nullptr && command->run != nullptr)
            return Place(typed);
        return Names(typed);
    }

private:
    void TakeOption(const std::string& word)
    {
        for (const Argument* const argument : ArgumentsOf(command)) {
            const auto names = Split(argument->name, ',');
            if (!argument->IsFlag() && std::ranges::find(names, word) != names.end())
                valueOf = argument;
        }
    }

    void TakeName(const std::string& word)
    {
        command = FindCommand(command == nullptr ? word : std::string(command->name) + " " + word);
        isLost = command == nullptr;
    }

    static std::string Line(std::string_view word, std::string_view meaning, const std::string& typed)
    {
        return word.starts_with(typed) ? std::string(word).append(" ").append(meaning).append("\n") : std::string();
    }

    // Of the book, where there is one.
    std::string Signs(const std::string& typed) const
    {
        std::string lines;
        std::set<std::string> groups;
        try {
            for (const BookSign& sign : ReadBook(BookFile(book))) {
                lines += Line(sign.name, sign.options.url, typed);
                for (const std::string& group : sign.groups)
                    groups.insert("group:" + group);
            }
        } catch (const UsageError&) {
            return {};
        }
        for (const std::string& group : groups)
            lines += Line(group, "the signs of a group", typed);
        return lines + Line("all", "all signs of the book", typed);
    }

    static std::string Values(const Argument& argument, const std::string& typed)
    {
        if (argument.type->isLocal)
            return ":file\n";
        std::string lines;
        for (const std::string_view word : Split(argument.choices, '|'))
            lines += Line(word, argument.help, typed);
        return lines;
    }

    std::string Options(const std::string& typed) const
    {
        std::string lines = Line("--help", "all about it", typed);
        for (const Argument* const argument : ArgumentsOf(command))
            for (const std::string_view name : Split(argument->name, ','))
                lines += name.starts_with('-') ? Line(name, argument->help, typed) : "";
        return lines;
    }

    std::string Place(const std::string& typed) const
    {
        std::size_t place = 0;
        for (const Argument& argument : command->arguments) {
            if (!argument.IsOption() && (place++ == places || argument.IsRepeated()))
                return Values(argument, typed);
        }
        return {};
    }

    std::string Names(const std::string& typed) const
    {
        const std::string family = command == nullptr ? "" : std::string(command->name) + " ";
        std::string lines;
        for (const CommandTable* const table : AllTables()) {
            for (const Command& row : table->commands) {
                const bool isChild =
                    row.name.starts_with(family) && row.name.find(' ', family.size()) == std::string::npos;
                lines += isChild ? Line(row.name.substr(family.size()), row.help, typed) : "";
            }
        }
        return lines;
    }

    const Command* command = nullptr;
    std::string book;                  // that was given
    const Argument* valueOf = nullptr; // an option whose value comes next
    std::size_t places = 0;            // arguments by their place so far
    bool isLost = false;
};

} // namespace

std::string Complete(const std::vector<std::string>& words)
{
    if (words.empty())
        return {};
    Reading reading;
    const bool isHelp = words.size() > 1 && words.front() == "help"; // of what follows
    for (std::size_t i = isHelp ? 1 : 0; i + 1 < words.size(); ++i)
        reading.Take(words[i]);
    return reading.Offer(words.back());
}

} // namespace vxctl
