// Reads texts for the face.
#include "vxctl/show/messageText.h"

#include "vxctl/cli/failure.h"
#include "vxctl/show/markup.h"
#include "vxctl/show/showOptions.h"

#include <vxsign/content.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace vxctl {

namespace {

// More than any message that a sign takes.
constexpr std::size_t kLongestText = std::size_t{1} << 20U;

constexpr std::uint32_t kAtOnce = '0'; // the mode

std::string ReadToEnd()
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

// Once: all of many signs get the same.
const std::string& ReadStandardInput()
{
    static const std::string text = ReadToEnd();
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

std::string MessageText(const Args& args, std::string_view name)
{
    const std::string& typed = args.Text(name);
    std::string text = WithLineBreaks(typed == "-" ? ReadStandardInput() : WithoutEscapes(typed));
    if (text.empty() && !args.Has("--allow-empty"))
        throw UsageError("the text is empty; --allow-empty shows a dark face");
    return text;
}

Message MessageOf(const Session& session, const Args& args, std::string_view name)
{
    const std::string encoding = EncodingFor(session, args);
    Message message{MessageText(args, name), ParseFont(args.Text("--font")), ParseColour(args.Text("--colour")),
                    ParseMode(args.Text("--mode")), args.Number("--stay")};
    if (message.text.empty())
        message.text = " "; // as dark, and something for a file
    if (!args.Has("--markup")) {
        message.text = Encoded(message.text, encoding);
        return message;
    }
    MarkedText marked = ReadMarkup(message.text, {message.font, message.colour}, message.staySeconds, encoding);
    message.text = std::move(marked.text);
    if (!marked.flashes)
        return message;
    if (message.mode != kAtOnce)
        throw UsageError("what flashes comes and goes at once: --mode 0");
    message.staySeconds = 1;
    return message;
}

void WriteMessage(const Message& message, const std::string& local)
{
    Check(vxShowMsgToNmg(reinterpret_cast<const std::uint8_t*>(message.text.data()),
                         static_cast<std::uint32_t>(message.text.size()), local.c_str(), static_cast<int>(message.font),
                         message.colour, message.mode, message.staySeconds));
}

} // namespace vxctl
