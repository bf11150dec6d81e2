// Prints what a command found, and what to try after a failure.
#include "vxctl/cli/report.h"

#include "vxctl/cli/argument.h"
#include "vxctl/cli/jsonText.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/terminal.h"

#include <vxsign/result.h>

#include <algorithm>

namespace vxctl {

namespace {

struct Advice
{
    std::uint32_t code;
    std::string_view text;
};

constexpr Advice kAdvice[] = {
#define VX_WORD(name, text, advice) {name, advice},
#include "words/resultWords.def"
};

// How far the values of a list stand from its left edge.
constexpr std::size_t kNameWidth = 20;

} // namespace

std::string_view AdviceFor(std::uint32_t code)
{
    const auto* const found =
        std::find_if(std::begin(kAdvice), std::end(kAdvice), [code](const Advice& row) { return row.code == code; });
    return found == std::end(kAdvice) ? std::string_view() : found->text;
}

nlohmann::ordered_json JsonTime(const std::optional<ClockTime>& time)
{
    const std::string text = time ? IsoTime(*time) : "";
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

nlohmann::ordered_json JsonResult(std::uint32_t result, std::string_view reason, std::string_view advice)
{
    nlohmann::ordered_json object = {{"result", result}, {"text", vxErrorDesc(result)}, {"advice", advice}};
    if (!reason.empty())
        object["reason"] = reason;
    return object;
}

void Report::Line(const Shown& line) const
{
    if (kept != nullptr)
        kept->append(line.Text()).append("\n");
    else if (!json)
        PrintLine(Stream::kOut, line);
}

void Report::Lines(std::string_view lines) const
{
    for (const std::string_view line : Split(lines, '\n'))
        Line(line);
}

void Report::Value(const std::string& name, const std::string& key, Json value, const Shown& text)
{
    const std::size_t gap = name.size() < kNameWidth ? kNameWidth - name.size() : 1;
    const std::string front = name + std::string(gap, ' ');
    if (!text.IsEmpty())
        Line(front + text);
    else
        Line(front + (value.is_string() ? value.get<std::string>() : value.dump()));
    Put(key, std::move(value));
}

void Report::ValueOrNull(const std::string& name, const std::string& key, const std::string& value,
                         const std::string& ifEmpty)
{
    Value(name, key, value.empty() ? Json() : Json(value), value.empty() ? ifEmpty : value);
}

void Report::Time(const std::string& name, const std::string& key, const std::optional<ClockTime>& time,
                  const std::string& text)
{
    Json value = JsonTime(time);
    if (value.is_null() && !text.empty())
        Put(key + "Text", text);
    Value(name, key, std::move(value), text);
}

void Report::Code(const std::string& name, const std::string& key, CodeNames names, std::uint32_t code,
                  const Shown& text)
{
    Value(name, key, NameOf(names, code), text.IsEmpty() ? Words(NameOf(names, code)) : text);
    Put(key + "Code", code);
}

void Report::SetHead(std::string_view command, std::string_view sign)
{
    const auto orNull = [](std::string_view text) { return text.empty() ? Json() : Json(text); };
    head = {{"command", orNull(command)}, {"sign", orNull(sign)}};
}

bool Report::Finish(std::uint32_t result, std::string_view reason, std::string_view advice) const
{
    if (reason.empty() && advice.empty())
        advice = AdviceFor(result);
    if (json && !(isTold && result == VX_OK))
        PrintObject(result, reason, advice);
    const bool isTaken = Flush();
    if (!isTaken)
        PrintLine(Stream::kError, "vxctl: standard output takes no more");
    if (json || result == VX_OK)
        return isTaken;
    PrintLine(Stream::kError,
              "vxctl: error " + std::to_string(result) + " (" + FormatWord(result) + "): " + vxErrorDesc(result));
    for (const std::string_view line : {reason, advice}) {
        if (!line.empty())
            PrintLine(Stream::kError, "  " + std::string(line));
    }
    return isTaken;
}

void Report::Refuse(const std::string& complaint, const std::string& advice) const
{
    if (json)
        return PrintObject(VX_ARGUMENTS, complaint, advice);
    const std::string command = head["command"].is_string() ? head["command"].get<std::string>() + ": " : "";
    PrintLine(Stream::kError, "vxctl: " + command + complaint);
    PrintLine(Stream::kError, "  " + advice);
}

void Report::PrintObject(std::uint32_t result, std::string_view reason, std::string_view advice) const
{
    Json object = head;
    object.update(JsonResult(result, reason, advice));
    object.update(values);
    PrintLine(Stream::kOut, JsonText(object));
}

} // namespace vxctl
