// Reads texts for the face.
#include "vxctl/show/messageText.h"

#include "vxctl/cli/failure.h"

#include <algorithm>
#include <cstdio>

namespace vxctl {

namespace {

// More than any message that a sign takes.
constexpr std::size_t kLongestText = std::size_t{1} << 20U;

// In a message a line feed ahead of I or O may be a mode; a return never is.
constexpr char kLineBreak = '\r';

std::string ReadStandardInput()
{
    std::string text(kLongestText + 1, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), stdin));
    if (text.size() > kLongestText)
        throw UsageError("standard input has more than a text of " + std::to_string(kLongestText) + " bytes");
    if (text.ends_with('\n'))
        text.pop_back();
    if (text.ends_with('\r'))
        text.pop_back();
    return text;
}

// "\n" as it is typed.
std::string WithoutEscapes(std::string_view typed)
{
    std::string text;
    while (!typed.empty()) {
        if (typed.starts_with("\\\\n")) {
            text += "\\n";
            typed.remove_prefix(3);
        } else if (typed.starts_with("\\n")) {
            text += '\n';
            typed.remove_prefix(2);
        } else {
            text += typed.front();
            typed.remove_prefix(1);
        }
    }
    return text;
}

std::string WithLineBreaks(std::string text)
{
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at))
        text.erase(at, 1);
    std::ranges::replace(text, '\n', kLineBreak);
    return text;
}

} // namespace

std::string MessageText(const Args& args)
{
    const std::string& typed = args.Text("TEXT");
    std::string text = WithLineBreaks(typed == "-" ? ReadStandardInput() : WithoutEscapes(typed));
    if (text.empty() && !args.Has("--allow-empty"))
        throw UsageError("the text is empty; --allow-empty shows a dark face");
    return text;
}

} // namespace vxctl
