// Every result word with its text.
#include <vxsign/result.h>

#include <algorithm>
#include <iterator>

namespace {

struct ResultWord
{
    std::uint32_t code;
    const char* text;
};

constexpr ResultWord kResultWords[] = {
#define VX_WORD(name, text, advice) {name, text},
#include "words/resultWords.def"
};

// For the search below.
constexpr bool Ascending()
{
    for (std::size_t i = 1; i < std::size(kResultWords); ++i)
        if (kResultWords[i - 1].code >= kResultWords[i].code)
            return false;
    return true;
}
static_assert(Ascending());

// A name of result.h that has no row does not compile: -Wswitch sees it.
constexpr bool HasWord(vxResult result)
{
    switch (result) {
#define VX_WORD(name, text, advice) case name:
#include "words/resultWords.def"
        return true;
    }
    return false;
}
static_assert(HasWord(VX_OK));

} // namespace

const char* vxErrorDesc(std::uint32_t code)
{
    const auto* const end = std::end(kResultWords);
    const auto* const word = std::lower_bound(std::begin(kResultWords), end, code,
                                              [](const ResultWord& w, std::uint32_t c) { return w.code < c; });
    return word != end && word->code == code ? word->text : "Unknow Error!";
}
