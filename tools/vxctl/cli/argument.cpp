// The types of arguments, and every complaint about one.
#include "vxctl/cli/argument.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/local.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace vxctl {

namespace {

// A longer path would reach the sign without its end.
constexpr std::size_t kLongestSignPath = 240;

std::string Quoted(const std::string& text)
{
    return "'" + text + "'";
}

std::string SpanText(std::size_t least, std::size_t most)
{
    return least == most ? std::to_string(most) : std::to_string(least) + " to " + std::to_string(most);
}

void CheckTimes(const Argument& argument, std::size_t times)
{
    if (times < argument.fewestTimes)
        throw UsageError("takes " + std::to_string(argument.fewestTimes) + ", not " + std::to_string(times));
    if (times > argument.mostTimes)
        throw UsageError("takes " + std::to_string(argument.mostTimes) + " at most");
}

} // namespace

std::vector<std::string_view> Split(std::string_view text, char between)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(between), text.size());
        parts.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

std::string ReadNumber(const Argument& argument, const std::string& text)
{
    const auto number = ParseNumber(text);
    if (!number || *number < argument.least || *number > argument.most)
        throw UsageError(Quoted(text) + " is no number from " + SpanText(argument.least, argument.most));
    return text;
}

std::string ReadChoice(const Argument& argument, const std::string& text)
{
    const auto words = Split(argument.choices, '|');
    if (std::ranges::find(words, text) == words.end())
        throw UsageError(Quoted(text) + " is none of " + std::string(argument.choices));
    return text;
}

std::string ReadHex(const Argument& argument, const std::string& text)
{
    const auto bytes = ParseHex(text);
    if (!bytes || bytes->size() < argument.least || bytes->size() > argument.most)
        throw UsageError(Quoted(text) + " is not " + SpanText(argument.least, argument.most) +
                         " bytes in hexadecimal, such as \"01 ff\"");
    return text;
}

// "D:/T/X.NMG" becomes "D:\T\X.NMG".
std::string ReadSignPath(const Argument& /*argument*/, const std::string& text)
{
    if (text.empty() || text.size() > kLongestSignPath)
        throw UsageError("a path on the sign has 1 to " + std::to_string(kLongestSignPath) + " characters");
    std::string path = text;
    if (path.size() > 1 && path[1] == ':')
        std::ranges::replace(path, '/', '\\');
    return path;
}

std::string ReadLocalFile(const Argument& /*argument*/, const std::string& text)
{
    const std::unique_ptr<FILE, int (*)(FILE*)> file(vxFOpen(text.c_str(), "rb"), std::fclose);
    if (!file)
        throw UsageError(Quoted(text) + " cannot be read");
    return text;
}

std::vector<std::string> ReadArgument(const Argument& argument, const std::vector<std::string>& texts)
{
    try {
        CheckTimes(argument, texts.size());
        std::vector<std::string> read;
        read.reserve(texts.size());
        for (const std::string& text : texts)
            read.push_back(argument.type->read != nullptr ? argument.type->read(argument, text) : text);
        return read;
    } catch (const UsageError& error) {
        throw UsageError(std::string(argument.name) + ": " + error.what());
    }
}

} // namespace vxctl
