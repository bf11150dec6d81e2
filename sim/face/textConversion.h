// Texts of one encoding in another, by the iconv of the C library.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace vxsim {

bool IsUtf8Name(std::string_view encoding);

// Throws std::invalid_argument for an encoding that there is not, and for one in which controls, letters and digits are
// not the bytes of ASCII: the codes in a message would not be themselves.
void CheckEncoding(const std::string& encoding);

class TextConversion
{
public:
    // Throws std::invalid_argument for an encoding that there is not.
    TextConversion(const std::string& from, const std::string& to);

    // Takes the front of the text off, as far as it has characters of both encodings.
    void Take(std::string_view& text, std::string& converted);

    // Ends the text: some encodings wait for what may follow a letter.
    void Finish(std::string& converted);

private:
    bool Run(char** from, std::size_t* left, std::string& converted);

    std::unique_ptr<void, void (*)(void*)> conversion;
};

// As UTF-8, with U+FFFD for a byte that belongs to no character. Throws std::invalid_argument likewise.
std::string ToUtf8(std::string_view text, const std::string& encoding);

} // namespace vxsim
