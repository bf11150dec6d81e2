// Finds the signs of a command line in the book.
#include "vxctl/many/targets.h"

#include "vxctl/book/signBook.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>
#include <utility>

namespace vxctl {

namespace {

std::vector<std::string> WordsOf(const Args& args, const std::vector<std::string>& words)
{
    if (args.Has("--retry-failed")) {
        if (std::vector<std::string> names = ReadNames(args.Text("--retry-failed")); !names.empty())
            return names;
    }
    return words;
}

// What the command line says holds, and else what the book does.
Options Merged(Options book, const Args& args)
{
    const Options given = OptionsOf(args);
    if (args.Has("--timeout"))
        book.timeoutMs = given.timeoutMs;
    if (args.Has("--retries"))
        book.retries = given.retries;
    if (args.Has("--chunk"))
        book.chunk = given.chunk;
    if (args.Has("--destination"))
        book.destination = given.destination;
    return book;
}

} // namespace

std::vector<Target> TargetsOf(const Args& args, const std::vector<std::string>& words)
{
    std::vector<std::string> urls = WordsOf(args, words);
    const auto firstName =
        std::stable_partition(urls.begin(), urls.end(), [](const auto& word) { return !IsBookWord(word); });
    const std::vector<std::string> names(firstName, urls.end());
    urls.erase(firstName, urls.end());
    std::vector<Target> targets;
    std::set<std::pair<std::string, std::uint16_t>> seen;
    const auto add = [&](const std::string& name, Options options) {
        if (seen.emplace(options.url, options.destination).second)
            targets.push_back({name, std::move(options)});
    };
    if (!names.empty()) {
        for (const BookSign& sign : Select(ReadBook(BookFile(args.Text("--book"))), names))
            add(sign.name, Merged(sign.options, args));
    }
    for (const std::string& url : urls) {
        Options options = OptionsOf(args);
        options.url = url;
        add(url, std::move(options));
    }
    return targets;
}

std::vector<std::string> ReadNames(const std::string& file)
{
    std::error_code error;
    if (!std::filesystem::exists(file, error))
        return {};
    std::ifstream stream(file);
    std::vector<std::string> names;
    std::copy(std::istream_iterator<std::string>(stream), {}, std::back_inserter(names));
    if (!stream.eof())
        throw UsageError("--retry-failed: '" + file + "' cannot be read");
    return names;
}

void WriteNames(const std::string& file, const std::vector<std::string>& names)
{
    std::error_code error;
    if (names.empty()) {
        std::filesystem::remove(file, error);
        return;
    }
    std::string lines;
    for (const std::string& name : names)
        lines.append(name).append("\n");
    ReplaceText(file, "failed.txt", lines);
}

} // namespace vxctl
