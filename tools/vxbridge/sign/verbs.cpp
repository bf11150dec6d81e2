#include "vxbridge/sign/verbs.h"

#include "vxctl/cli/commandLine.h"
#include "vxctl/cli/suggestion.h"
#include "vxctl/cli/tables.h"

#include <algorithm>
#include <cctype>

namespace vxbridge {

namespace {

using Json = nlohmann::json;
using vxctl::Argument;
using vxctl::UsageError;

constexpr std::size_t kLargestPayload = 65536;

constexpr Verb kVerbs[] = {
    {.name = "show", .leftOut = "--preview"},
    {.name = "blank"},
    {.name = "unblank"},
    {.name = "bright"},
    {.name = "power"},
    {.name = "clock", .isPolledAfter = false},
    {.name = "play"},
    {.name = "put"},
    {.name = "raw", .needsLeave = true},
};

bool IsLeftOut(const Verb& verb, const Argument& argument)
{
    const auto names = vxctl::Split(verb.leftOut, ' ');
    return std::ranges::find(names, argument.name) != names.end();
}

// "--must-fit" is mustFit, "--colour,--color" is colour, LEVEL is level. A file of this PC comes by its URL.
std::string KeyOf(const Argument& argument)
{
    if (argument.type->isLocal)
        return "url";
    const std::string_view name = vxctl::Split(argument.name, ',').front();
    std::string key;
    for (const char letter : name) {
        const bool isFirst = key.ends_with('-');
        if (isFirst)
            key.pop_back();
        const bool isUpper = isFirst && !key.empty();
        const auto code = static_cast<unsigned char>(letter);
        key += static_cast<char>(isUpper ? std::toupper(code) : std::tolower(code));
    }
    return key;
}

std::string TextOf(const Key& key, const Json& value, const SharedFolder& folder)
{
    const std::string_view wanted = TypeOf(*key.argument);
    const bool fits = value.is_string()    ? wanted == "string"
                      : value.is_boolean() ? wanted == "boolean"
                                           : value.is_number_integer() && wanted != "boolean";
    if (!fits)
        throw UsageError("'" + key.name + "' is to be a value of type " + std::string(wanted));
    const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
    if (text.find('\0') != std::string::npos)
        throw UsageError("'" + key.name + "' has a character with the code 0");
    return key.argument->type->isLocal ? folder.Find(text) : text;
}

// "" for a flag that is false.
std::string WordOf(const Key& key, const Json& value, const SharedFolder& folder)
{
    std::string text = TextOf(key, value, folder);
    const std::string_view name = vxctl::Split(key.argument->name, ',').front();
    if (key.argument->IsFlag())
        return value.get<bool>() ? std::string(name) : "";
    if (key.argument->IsOption())
        return std::string(name) + "=" + text;
    if (text == "-")
        throw UsageError("'-' alone stands for the standard input of vxctl, which a message does not have");
    return text;
}

Json Parse(const std::string& payload)
{
    if (payload.empty())
        return Json::object();
    if (payload.size() > kLargestPayload)
        throw UsageError("the payload has " + std::to_string(payload.size()) + " bytes; " +
                         std::to_string(kLargestPayload) + " are the most");
    Json values = Json::parse(payload, nullptr, false);
    if (values.is_discarded())
        throw UsageError("the payload is no JSON");
    if (!values.is_object())
        throw UsageError("the payload is no JSON object");
    return values;
}

// For the table of the verbs.
std::string KeyText(const Key& key)
{
    const Argument& argument = *key.argument;
    const std::string values = vxctl::ValueText(argument);
    std::string text = "`" + key.name + "`";
    text.append(argument.isRequired ? ", required, " : ", ").append(TypeOf(argument));
    if (!argument.IsFlag() && !argument.type->isLocal && values != argument.name)
        text.append(" ").append(values);
    return text.append(": ").append(argument.help);
}

void RefuseUnknown(const Json& values, const Verb& verb, const std::vector<Key>& keys)
{
    for (const auto& item : values.items()) {
        if (std::ranges::find(keys, item.key(), &Key::name) != keys.end())
            continue;
        std::string all;
        for (const Key& key : keys)
            all.append(all.empty() ? "" : ", ").append(key.name);
        throw UsageError("'" + std::string(verb.name) + "' knows no key '" + item.key() +
                         (all.empty() ? "'; it takes none" : "'; it takes " + all));
    }
}

} // namespace

std::span<const Verb> AllVerbs()
{
    return kVerbs;
}

const Verb* FindVerb(std::string_view name)
{
    const Verb* const found = std::ranges::find(kVerbs, name, &Verb::name);
    return found == std::end(kVerbs) ? nullptr : found;
}

std::vector<Key> KeysOf(const Verb& verb)
{
    std::vector<Key> keys;
    for (const Argument& argument : vxctl::FindCommand(verb.name)->arguments) {
        if (!IsLeftOut(verb, argument))
            keys.push_back({KeyOf(argument), &argument});
    }
    return keys;
}

std::string_view TypeOf(const Argument& argument)
{
    return argument.IsFlag() ? "boolean" : argument.type == &vxctl::kNumber ? "integer" : "string";
}

// Values stand behind their names with '=', or behind "--": none of them is taken for an option.
std::vector<std::string> WordsOf(const Verb& verb, const std::string& payload, const SharedFolder& folder)
{
    const Json values = Parse(payload);
    const std::vector<Key> keys = KeysOf(verb);
    RefuseUnknown(values, verb, keys);
    std::vector<std::string> words{std::string(verb.name)};
    std::vector<std::string> byPlace{"--"};
    for (const Key& key : keys) {
        if (const auto found = values.find(key.name); found != values.end())
            (key.argument->IsOption() ? words : byPlace).push_back(WordOf(key, *found, folder));
        else if (key.argument->isRequired)
            throw UsageError("'" + key.name + "' is missing");
    }
    std::erase(words, ""); // flags that are false
    words.insert(words.end(), byPlace.begin(), byPlace.end());
    return words;
}

std::string VerbTable()
{
    std::string table = "| verb | what it does | keys |\n|---|---|---|\n";
    for (const Verb& verb : kVerbs) {
        std::string keys;
        for (const Key& key : KeysOf(verb))
            keys.append(keys.empty() ? "" : "<br>").append(KeyText(key));
        std::ranges::replace(keys, '|', '/');
        table.append("| `").append(verb.name).append("` | ").append(vxctl::FindCommand(verb.name)->help);
        table.append(verb.needsLeave ? "; only with `--allow-raw` | " : " | ").append(keys).append(" |\n");
    }
    return table;
}

} // namespace vxbridge
