// One command of vxctl in this process, over the line of the thread.
#include "fuzz/toolRun.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/runner.h"
#include "vxctl/cli/shown.h"

#include <CLI/CLI.hpp>

#include <cctype>
#include <iostream>
#include <iterator>
#include <sstream>

// In place of vxctl's own: the line of this thread stays as it is.
void vxctl::Session::Connect(vxOnProgress onProgress, vxOnLog /*onLog*/) const
{
    auto* const config = static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    config->destinationAddress = options.destination;
    config->onProgress = onProgress;
}

namespace vxsign::fuzz {
namespace {

bool LeadsOut(const std::string& word)
{
    const bool isOption = word.starts_with('-');
    return word.starts_with('/') || word.starts_with('~') || word.find("..") != word.npos ||
           (isOption && word.find('/') != word.npos);
}

bool IsFileName(const std::string& word)
{
    const auto isPlain = [](char letter) {
        return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '.';
    };
    return word.size() < 64 && word.find('.') != word.npos && !word.starts_with('.') &&
           std::ranges::all_of(word, isPlain);
}

std::vector<std::string> Split(const std::string& line)
{
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

// What goes to a stream for as long as it lives.
class Caught
{
public:
    explicit Caught(std::ostream& from) : stream(from), former(from.rdbuf(text.rdbuf())) {}
    ~Caught() { stream.rdbuf(former); }
    Caught(const Caught&) = delete;
    Caught& operator=(const Caught&) = delete;

    std::string Text() const { return text.str(); }

private:
    std::ostringstream text;
    std::ostream& stream;
    std::streambuf* former;
};

void Check(const std::string& printed, bool json)
{
    std::string lines = printed;
    std::erase(lines, '\n');
    Require(vxctl::Printable(lines) == lines, "what vxctl prints gives a terminal no orders");
    Require(!json || nlohmann::json::accept(printed), "with --json vxctl prints one object");
}

} // namespace

void RunCommand(const std::string& line, View file, bool json)
{
    const std::vector<std::string> words = Split(line);
    if (words.empty() || std::ranges::any_of(words, LeadsOut))
        return;
    for (const std::string& word : words)
        if (IsFileName(word))
            WriteFile(word, file);
    vxctl::Session session;
    const Caught out(std::cout);
    const Caught errors(std::cerr);
    std::vector<std::string> all = words;
    if (json)
        all.emplace_back("--json");
    try {
        session.report.Finish(vxctl::Execute(session, all));
    } catch (const vxctl::SignFailure& failure) {
        session.report.Finish(failure.code, failure.reason);
    } catch (const vxctl::UsageError& error) {
        session.report.UseJson(json);
        session.report.Refuse(error.what(), "");
    } catch (const CLI::ParseError&) {
        return;
    }
    Check(out.Text(), json);
}

} // namespace vxsign::fuzz
