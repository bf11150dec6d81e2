// A value of the book, with the place where it stands: every complaint names that.
#pragma once

#include "vxctl/cli/argument.h"
#include "vxctl/cli/failure.h"

#include <toml++/toml.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace vxctl {

inline constexpr std::string_view kBookNames = "letters, digits, '-', '_' and '.', 64 at most, and not 'all'";

class BookEntry
{
public:
    // The text of the file's name, and the key, live longer than this.
    BookEntry(const std::string& bookFile, std::string_view entryKey, const toml::node& entryValue)
        : file(bookFile), key(entryKey), value(entryValue)
    {
    }

    std::string_view Key() const { return key; }
    const std::string& File() const { return file; }
    toml::source_position Place() const { return value.source().begin; }

    [[noreturn]] void Refuse(const std::string& what) const;

    // As its type wants it. Each refuses what is none.
    std::string Text() const;
    std::string Name() const;
    std::string AnyText() const; // of a text, number or truth
    std::uint32_t Number(const Argument& like) const;

    // The elements of a list, and the members of a table.
    template <class Take>
    void ForEach(const Take& take) const
    {
        const toml::array* const list = value.as_array();
        if (list == nullptr)
            Refuse(std::string(key) + " is a list of texts");
        for (const toml::node& element : *list)
            take(BookEntry(file, key, element));
    }

    template <class Take>
    void ForEachMember(const Take& take) const
    {
        const toml::table* const table = value.as_table();
        if (table == nullptr)
            Refuse(std::string(key) + " is a table such as { KEY = VALUE }");
        for (const auto& [name, member] : *table)
            take(BookEntry(file, name.str(), member));
    }

    // What `read` gives; refuses with its complaint.
    template <class Read>
    auto Reading(const Read& read) const
    {
        try {
            return read();
        } catch (const UsageError& error) {
            Refuse(error.what());
        }
    }

private:
    const std::string& file;
    std::string_view key;
    const toml::node& value;
};

// The complaint about a place: "signs.toml:12:7: ...".
[[noreturn]] void RefuseAt(const std::string& file, const toml::source_position& place, const std::string& what);

} // namespace vxctl
