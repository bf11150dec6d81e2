// Small files of the sign itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace vxsim {

// A small record of fixed size that the sign keeps over a restart, in a file of its own.
class StoredRecord
{
public:
    // Takes the content of the file, or `initial` if the file is missing or of another size.
    StoredRecord(std::filesystem::path file, std::vector<std::uint8_t> initial);

    std::span<const std::uint8_t> Bytes() const { return bytes; }

    // Replaces the content with the first bytes of `content`, which holds at least as many, here and in the file.
    // False if the file cannot be written; the record then stays as it was.
    bool Set(std::span<const std::uint8_t> content);

private:
    std::filesystem::path file;
    std::vector<std::uint8_t> bytes;
};

// Writes `bytes` as the file, under another name first, so that a reader sees the old file or the new one.
bool ReplaceFile(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);

// The first `most` bytes of the file, or fewer if it is shorter; none if it cannot be read.
std::vector<std::uint8_t> ReadFileStart(const std::filesystem::path& file, std::size_t most);

} // namespace vxsim
