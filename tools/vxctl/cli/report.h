// What a command found: lines of text as it goes, or with --json one object at its end.
#pragma once

#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/codeNames.h"
#include "vxctl/cli/shown.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vxctl {

// What to try after a failure with this code; empty when there is nothing to say beyond its text.
std::string_view AdviceFor(std::uint32_t code);

// A time of the sign for programs: with zone, or null when there is none.
nlohmann::ordered_json JsonTime(const std::optional<ClockTime>& time);

// What --json prints of a result, ahead of what was found.
nlohmann::ordered_json JsonResult(std::uint32_t result, std::string_view reason, std::string_view advice);

class Report
{
public:
    using Json = nlohmann::ordered_json;

    void UseJson(bool wanted) { json = wanted; }
    bool IsJson() const { return json; }

    // From here on the lines for people go there, and nothing is printed.
    void KeepLines(std::string& lines) { kept = &lines; }

    // Whether a program wants the values, and nobody looks on who wants to see how far it is.
    bool IsForPrograms() const { return json || kept != nullptr; }

    // All values so far.
    const Json& Values() const { return values; }

    // What the report is about: the name of the command, and the URL of the sign where one is asked.
    void SetHead(std::string_view command, std::string_view sign);

    // For people alone: a line, or several with their ends.
    void Line(const Shown& line) const;
    void Lines(std::string_view lines) const;

    // A value for programs alone.
    void Put(const std::string& key, Json value) { values[key] = std::move(value); }

    // A value for both: the line has its name and, where the value itself does not read well, the text for it.
    void Value(const std::string& name, const std::string& key, Json value, const Shown& text = {});

    // A text for both, in JSON null where it is empty.
    void ValueOrNull(const std::string& name, const std::string& key, const std::string& value,
                     const std::string& ifEmpty);

    // A time of the sign for both, in JSON with zone; what is no time is null there, with the text behind it.
    void Time(const std::string& name, const std::string& key, const std::optional<ClockTime>& time,
              const std::string& text);

    // A code for both: its name, for programs with the number behind it, whose key ends in "Code".
    void Code(const std::string& name, const std::string& key, CodeNames names, std::uint32_t code,
              const Shown& text = {});

    // All has been told in objects of the command's own making: where all goes well its end tells no more.
    void EndsInLines() { isTold = true; }

    // The end of the command: JSON gets the result word, its text and all values. In text a failure goes to standard
    // error, with its reason and what to try next; where neither is known, with what helps against the result. False
    // when standard output did not take it all.
    bool Finish(std::uint32_t result, std::string_view reason = {}, std::string_view advice = {}) const;

    // The end of a command line that asks for what cannot be: nothing was sent.
    void Refuse(const std::string& complaint, const std::string& advice) const;

private:
    void PrintObject(std::uint32_t result, std::string_view reason, std::string_view advice) const;

    bool json = false;
    std::string* kept = nullptr;
    bool isTold = false;
    Json head = {{"command", nullptr}, {"sign", nullptr}};
    Json values = Json::object();
};

} // namespace vxctl
