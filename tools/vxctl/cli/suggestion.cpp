// Finds the nearest words.
#include "vxctl/cli/suggestion.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::size_t kMostSuggestions = 3;
constexpr std::size_t kLongestWord = 64; // more is no slip of the finger

// What begins as it was typed is as near as one slip.
std::size_t Remoteness(std::string_view typed, std::string_view word)
{
    return typed.size() > 2 && word.starts_with(typed) ? 1 : EditDistance(typed, word);
}

} // namespace

std::size_t EditDistance(std::string_view a, std::string_view b)
{
    // Rows of the usual table: the one before the last, the last, and the one that is filled.
    std::vector<std::size_t> older(b.size() + 1);
    std::vector<std::size_t> old(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        older.swap(old);
        old.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t other = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({old[j] + 1, row[j - 1] + 1, old[j - 1] + other});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], older[j - 2] + 1);
        }
    }
    return row[b.size()];
}

std::vector<std::string_view> Nearest(std::string_view typed, const std::vector<std::string_view>& words)
{
    const std::size_t size = typed.size() - std::min(typed.find_first_not_of('-'), typed.size());
    std::size_t nearest = (size + 1) / 3;
    std::vector<std::string_view> found;
    if (nearest == 0 || typed.size() > kLongestWord)
        return found;
    for (const std::string_view word : words) {
        const std::size_t remoteness = Remoteness(typed, word);
        if (remoteness > nearest)
            continue;
        if (remoteness < nearest)
            found.clear();
        nearest = remoteness;
        found.push_back(word);
    }
    return found;
}

std::string DidYouMean(std::vector<std::string_view> words)
{
    if (words.empty())
        return {};
    words.resize(std::min(words.size(), kMostSuggestions));
    std::string text;
    for (const std::string_view word : words)
        text.append(text.empty() ? " (did you mean " : " or ").append(word);
    return text + "?)";
}

} // namespace vxctl
