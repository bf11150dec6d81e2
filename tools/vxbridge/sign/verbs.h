// What can be asked of a sign by a message: each verb is a command of vxctl.
#pragma once

#include "vxbridge/sign/sharedFolder.h"
#include "vxctl/cli/command.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxbridge {

struct Verb
{
    std::string_view name;         // as in the topic, and as vxctl calls the command
    std::string_view leftOut = {}; // arguments that a message cannot have
    bool isPolledAfter = true;     // the sign tells something else afterwards
    bool needsLeave = false;       // --allow-raw
};

std::span<const Verb> AllVerbs();
const Verb* FindVerb(std::string_view name);

// What a key of the payload is: an argument of the command.
struct Key
{
    std::string name; // "mustFit" for --must-fit
    const vxctl::Argument* argument;
};

std::vector<Key> KeysOf(const Verb& verb);

// "boolean", "integer" or "string".
std::string_view TypeOf(const vxctl::Argument& argument);

// The words of vxctl for a payload, which is a JSON object, or nothing. Throws vxctl::UsageError.
std::vector<std::string> WordsOf(const Verb& verb, const std::string& payload, const SharedFolder& folder);

// The verbs and their keys, for docs/vxbridge.md.
std::string VerbTable();

} // namespace vxbridge
