// What commands get of their arguments.
#include "vxctl/cli/args.h"

#include <algorithm>
#include <stdexcept>

namespace vxctl {

void Args::Add(const Argument& argument, const std::vector<std::string>& texts)
{
    if (!texts.empty())
        all.push_back({&argument, ReadArgument(argument, texts), true});
    else if (!argument.standard.empty())
        all.push_back({&argument, {std::string(argument.standard)}, false});
    else
        all.push_back({&argument, {}, false});
}

const std::string& Args::Text(std::string_view name) const
{
    static const std::string kNone;
    const Given& given = Find(name);
    return given.texts.empty() ? kNone : given.texts.front();
}

std::vector<std::uint8_t> Args::Bytes(std::string_view name) const
{
    return ParseHex(Text(name)).value_or(std::vector<std::uint8_t>());
}

std::size_t Args::Choice(std::string_view name) const
{
    const auto words = Split(Find(name).argument->choices, '|');
    return static_cast<std::size_t>(std::ranges::find(words, Text(name)) - words.begin());
}

std::vector<std::string> Args::LocalFiles() const
{
    std::vector<std::string> files;
    for (const Given& given : all) {
        if (given.argument->type == &kWriteFile)
            files.insert(files.end(), given.texts.begin(), given.texts.end());
    }
    return files;
}

void Args::ChangeLocalFiles(std::span<const Argument> of, const std::function<std::string(const std::string&)>& change)
{
    for (Given& given : all) {
        const bool isMeant = std::ranges::any_of(of, [&](const Argument& one) { return &one == given.argument; });
        if (isMeant && given.argument->type == &kWriteFile)
            std::ranges::transform(given.texts, given.texts.begin(), change);
    }
}

const Args::Given& Args::Find(std::string_view name) const
{
    const auto found = std::ranges::find_if(all, [name](const Given& given) {
        const auto names = Split(given.argument->name, ',');
        return std::ranges::find(names, name) != names.end();
    });
    if (found == all.end())
        throw std::logic_error("the command has no argument " + std::string(name));
    return *found;
}

} // namespace vxctl
