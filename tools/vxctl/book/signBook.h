// The book of signs: who they are and how to reach them, in a file of this PC.
#pragma once

#include "vxctl/cli/options.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

struct BookSign
{
    std::string name;
    std::string site;
    Options options;
    std::vector<std::string> groups;
    std::map<std::string, std::string> labels; // free ones, such as road and km
    std::uint32_t intervalSeconds = 0;         // between two looks of the bridge at the sign

    bool operator==(const BookSign&) const = default;
};

inline constexpr Argument kInterval =
    Number("--interval", 1, 86400, "seconds between two looks of vxbridge at it").In("SECONDS");

using SignBook = std::vector<BookSign>; // in the order of the file

// The file that is given, else that of VXBOOK, else that of the user: signs.toml in vxsign in the folder of
// configurations.
std::string BookFile(const std::string& given);

// Throws UsageError with the place, such as "signs.toml:12:7: ...".
SignBook ReadBook(const std::string& file);
SignBook ParseBook(std::string_view text, const std::string& file);

// The same of a file that may not be there yet, as text: "" then.
std::string ReadBookText(const std::string& file);

inline constexpr std::string_view kAllSigns = "all";

// Whether a word names signs of a book rather than being the URL of one.
bool IsBookWord(std::string_view word);

// The signs that "NAME", "group:NAME" and "all" name, each once, in the order of the book. Throws UsageError.
SignBook Select(const SignBook& book, const std::vector<std::string>& words);

// Whether it can name a sign, group or site: it becomes a part of file names, topics and words of the command line.
bool IsBookName(std::string_view name);

} // namespace vxctl
