// Text as a terminal may have it.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {
class Canvas;
}

namespace vxctl {

// The text with a question mark for each character that a terminal obeys or that makes text read otherwise than it
// stands: controls of 7 and of 8 bits, ends of lines and paragraphs, marks and overrides of the direction of writing. A
// byte that is no UTF-8 may be such a control too, and becomes a question mark.
std::string Printable(std::string_view text);

bool IsUtf8(std::string_view text);

// Whether standard output is a terminal, and the environment does not ask for no colours with NO_COLOR.
bool IsColoured();

// No colours for the texts of this thread for as long as it lives: they do not go to a terminal as they are.
class Colourless
{
public:
    Colourless() { ++count; }
    ~Colourless() { --count; }
    Colourless(const Colourless&) = delete;
    Colourless& operator=(const Colourless&) = delete;

    static bool IsWanted() { return count != 0; }

private:
    static inline thread_local int count = 0;
};

enum class Tone
{
    kPlain,
    kFine,
    kDoubtful,
    kWrong
};

// Any text becomes one by conversion, and printable by it: texts come from signs, files and shells. Only colours of
// vxctl's own get past that, and faces that it draws.
class Shown
{
public:
    Shown() = default;
    template <std::convertible_to<std::string_view> Source>
    Shown(const Source& source) : text(Printable(source)) // NOLINT(*-explicit-*): text is what people write down
    {
    }

    const std::string& Text() const { return text; }
    bool IsEmpty() const { return text.empty(); }

    friend Shown operator+(Shown left, const Shown& right)
    {
        left.text += right.text;
        return left;
    }

    // In the colour of its tone where colours are wanted; else as it is.
    friend Shown Toned(Shown shown, Tone tone);

    friend std::vector<Shown> DrawnFace(const vxsim::Canvas& face);

private:
    std::string text;
};

Shown Toned(Shown shown, Tone tone);

} // namespace vxctl
