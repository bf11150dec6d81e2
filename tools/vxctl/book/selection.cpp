// Finds the signs that words name.
#include "vxctl/book/signBook.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/suggestion.h"

#include <cstddef>
#include <map>

namespace vxctl {

namespace {

constexpr std::string_view kGroup = "group:";

using Places = std::map<std::string, std::vector<std::size_t>>; // in the book, of the signs that a word names

Places PlacesOf(const SignBook& book)
{
    Places places;
    for (std::size_t i = 0; i < book.size(); ++i) {
        places[std::string(kAllSigns)].push_back(i);
        places[book[i].name].push_back(i);
        for (const std::string& group : book[i].groups)
            places[std::string(kGroup) + group].push_back(i);
    }
    return places;
}

[[noreturn]] void RefuseWord(const Places& places, const std::string& word)
{
    std::vector<std::string_view> known;
    for (const auto& [other, signs] : places)
        known.push_back(other);
    throw UsageError(known.empty() ? "the book has no signs"
                                   : "the book has no '" + word + "'" + DidYouMean(Nearest(word, known)));
}

} // namespace

bool IsBookWord(std::string_view word)
{
    return word.starts_with(kGroup) || word == kAllSigns || IsBookName(word);
}

SignBook Select(const SignBook& book, const std::vector<std::string>& words)
{
    const Places places = PlacesOf(book);
    std::vector<bool> isMeant(book.size());
    for (const std::string& word : words) {
        const auto named = places.find(word);
        if (named == places.end())
            RefuseWord(places, word);
        for (const std::size_t place : named->second)
            isMeant[place] = true;
    }
    SignBook meant;
    for (std::size_t i = 0; i < book.size(); ++i) {
        if (isMeant[i])
            meant.push_back(book[i]);
    }
    return meant;
}

} // namespace vxctl
