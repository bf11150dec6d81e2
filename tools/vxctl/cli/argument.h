// What commands take: one row for each argument, with its type. Parsing, help, documents and completion come from it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

struct Argument;

// A kind of arguments. `read` takes the text of the command line and gives what the command gets; it throws UsageError
// with what is wrong, to which the name of the argument is added.
struct ArgumentType
{
    std::string_view word; // stands for a value in help
    std::string (*read)(const Argument& argument, const std::string& text) = nullptr;
    bool isLocal = false; // a file of this PC
};

std::string ReadNumber(const Argument& argument, const std::string& text);
std::string ReadChoice(const Argument& argument, const std::string& text);
std::string ReadHex(const Argument& argument, const std::string& text);
std::string ReadSignPath(const Argument& argument, const std::string& text);
std::string ReadLocalFile(const Argument& argument, const std::string& text);

// For types that a function looks at, but leaves as they are.
template <auto parse>
std::string Checked(const Argument& /*argument*/, const std::string& text)
{
    parse(text);
    return text;
}

inline constexpr ArgumentType kFlag{""};
inline constexpr ArgumentType kText{"TEXT"};
inline constexpr ArgumentType kNumber{"NUMBER", ReadNumber};
inline constexpr ArgumentType kChoice{"", ReadChoice};
inline constexpr ArgumentType kHex{"HEX", ReadHex};
inline constexpr ArgumentType kSignPath{"PATH", ReadSignPath};        // shells eat the backslashes that the sign wants
inline constexpr ArgumentType kReadFile{"FILE", ReadLocalFile, true}; // is there and can be read
inline constexpr ArgumentType kWriteFile{"FILE", nullptr, true};

inline constexpr std::size_t kAnyTimes = SIZE_MAX;

struct Argument
{
    const ArgumentType* type = &kText;
    std::string_view name = {}; // "LEVEL" by its place; "--stay" or "-n,--count" by its name
    std::string_view help = {};
    std::uint32_t least = 0; // a number, or the bytes of HEX
    std::uint32_t most = 0;
    std::string_view choices = {};  // "on|off"
    std::string_view standard = {}; // what holds when it is not given
    std::string_view word = {};     // in place of the type's, such as a unit
    std::string_view environment = {};
    std::string_view excluded = {}; // other arguments, with blanks between
    std::string_view needed = {};
    bool isRequired = false;
    std::size_t fewestTimes = 1;
    std::size_t mostTimes = 1;

    // A copy that differs in one thing. Ahead of its uses, as constant expressions want it.
    template <class Value>
    constexpr Argument With(Value Argument::*member, Value value) const
    {
        Argument changed = *this;
        changed.*member = value;
        return changed;
    }

    constexpr bool IsOption() const { return name.starts_with('-'); }
    constexpr bool IsFlag() const { return type == &kFlag; }
    constexpr bool IsRepeated() const { return mostTimes > 1; }

    constexpr Argument Required(bool wanted = true) const { return With(&Argument::isRequired, wanted); }
    constexpr Argument Optional() const { return Required(false); }
    constexpr Argument Default(std::string_view text) const { return With(&Argument::standard, text); }
    constexpr Argument In(std::string_view unit) const { return With(&Argument::word, unit); }
    constexpr Argument From(std::string_view variable) const { return With(&Argument::environment, variable); }
    constexpr Argument Excludes(std::string_view other) const { return With(&Argument::excluded, other); }
    constexpr Argument Needs(std::string_view other) const { return With(&Argument::needed, other); }
    constexpr Argument Repeated(std::size_t fewest = 1, std::size_t highest = kAnyTimes) const
    {
        return With(&Argument::fewestTimes, fewest).With(&Argument::mostTimes, highest);
    }
};

// Arguments by their place are required unless they say otherwise.
constexpr Argument Of(const ArgumentType& type, std::string_view name, std::string_view help)
{
    return Argument{.type = &type, .name = name, .help = help}.Required(!name.starts_with('-'));
}

constexpr Argument Flag(std::string_view name, std::string_view help)
{
    return Of(kFlag, name, help);
}

constexpr Argument Text(std::string_view name, std::string_view help)
{
    return Of(kText, name, help);
}

// Decimal or with 0x.
constexpr Argument Number(std::string_view name, std::uint32_t least, std::uint32_t most, std::string_view help)
{
    Argument argument = Of(kNumber, name, help);
    argument.least = least;
    argument.most = most;
    return argument;
}

// One of the words, which stand as "on|off".
constexpr Argument Choice(std::string_view name, std::string_view words, std::string_view help)
{
    Argument argument = Of(kChoice, name, help);
    argument.choices = words;
    return argument;
}

// Bytes in hexadecimal, `least` to `most` of them.
constexpr Argument Hex(std::string_view name, std::uint32_t least, std::uint32_t most, std::string_view help)
{
    Argument argument = Number(name, least, most, help);
    argument.type = &kHex;
    return argument;
}

constexpr Argument SignPath(std::string_view name, std::string_view help)
{
    return Of(kSignPath, name, help);
}

constexpr Argument ReadFile(std::string_view name, std::string_view help)
{
    return Of(kReadFile, name, help);
}

constexpr Argument WriteFile(std::string_view name, std::string_view help)
{
    return Of(kWriteFile, name, help);
}

// The words of "on|off", and likewise the names of "-n,--count".
std::vector<std::string_view> Split(std::string_view text, char between);

// What the command line says, read by type. Throws UsageError that names the argument.
std::vector<std::string> ReadArgument(const Argument& argument, const std::vector<std::string>& texts);

} // namespace vxctl
