// What doctor has found: a line for what is well, cause and commands for what is not.
#pragma once

#include "vxctl/cli/session.h"
#include "vxctl/state/doctorAdvice.h"

#include <string>

namespace vxctl {

class Findings
{
public:
    explicit Findings(Report& target) : report(target) {}

    void Add(const std::string& what, const std::string& text) { Add(what, Tone::kFine, text, Trouble::kNone); }

    // The cause is that of the trouble's advice, unless the sign or the system tells it; `brought` goes into the next
    // command. A plain tone is for what is not known.
    void Add(const std::string& what, Tone tone, const std::string& text, Trouble trouble,
             const std::string& toldCause = {}, const std::string& brought = {});

    // With the command that ends it; empty where it ends of itself.
    void AddWithEnd(const std::string& what, Tone tone, const std::string& text, std::string_view end);

    // False, and a finding, when the sign refuses. Throws SignFailure when the line fails.
    bool Answered(const std::string& what, std::uint32_t result, Trouble trouble);

    // Into the report.
    void Put() const;

    Tone Worst() const { return worst; }

private:
    void Note(const std::string& what, Tone tone, const std::string& text);
    void Tell(const char* key, const char* title, std::string_view text);

    Report& report;
    Report::Json findings = Report::Json::array();
    Tone worst = Tone::kFine;
};

} // namespace vxctl
