// Regular expressions over rows and lines of the sign.
#pragma once

#include <array>
#include <memory>
#include <string_view>

namespace vxsign {

/// The whole match, then the groups in their order; a group that took no part is empty. As many as the widest table has
/// columns, and the whole.
using Groups = std::array<std::string_view, 19>;

/// A compiled expression; upper and lower case are the same to it.
class Pattern
{
public:
    explicit Pattern(const char* expression);
    ~Pattern();
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;

    /// Whether the expression could be compiled. One that could not finds nothing.
    bool Good() const { return compiled != nullptr; }

    /// Looks for the first match in a text that ends with a NUL.
    bool Find(const char* text, Groups& groups) const;

private:
    // The library's header cannot stand beside the system's own <regex.h>.
    struct Compiled;
    std::unique_ptr<Compiled> compiled;
};

} // namespace vxsign
