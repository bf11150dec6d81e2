// Reads values of the book.
#include "vxctl/book/bookEntry.h"

#include "vxctl/book/signBook.h"

#include <array>
#include <charconv>

namespace vxctl {

namespace {

template <class Figure>
std::string Digits(Figure figure)
{
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), figure).ptr};
}

} // namespace

void RefuseAt(const std::string& file, const toml::source_position& place, const std::string& what)
{
    throw UsageError(file + ":" + Digits(place.line) + ":" + Digits(place.column) + ": " + what);
}

void BookEntry::Refuse(const std::string& what) const
{
    RefuseAt(file, Place(), what);
}

std::string BookEntry::Text() const
{
    const auto* const text = value.as_string();
    if (text == nullptr || text->get().empty() || text->get().find('\0') != std::string::npos)
        Refuse(std::string(key) + " is a text");
    return text->get();
}

std::string BookEntry::Name() const
{
    std::string name = Text();
    if (!IsBookName(name))
        Refuse("'" + name + "' is no name: they have " + std::string(kBookNames));
    return name;
}

std::string BookEntry::AnyText() const
{
    if (const auto* const whole = value.as_integer())
        return Digits(whole->get());
    if (const auto* const fraction = value.as_floating_point())
        return Digits(fraction->get());
    if (const auto* const truth = value.as_boolean())
        return truth->get() ? "true" : "false";
    return Text();
}

std::uint32_t BookEntry::Number(const Argument& like) const
{
    if (!value.is_integer())
        Refuse(std::string(key) + " is a whole number");
    const std::string text = AnyText();
    Reading([&] { return ReadArgument(like.With(&Argument::name, key), {text}); });
    return static_cast<std::uint32_t>(value.as_integer()->get());
}

} // namespace vxctl
