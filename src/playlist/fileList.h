// The sign's list of its content files, FILELSTI.LST: a code for each, which tells whether a file has changed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vxsign::playlist {

/// A file as the list knows it: the code of its name in the low half, that of its contents in the high half.
using FileListCode = std::uint32_t;

/// The code of a local file under a name; 0 when it cannot be opened. Only the first 1024 bytes of a file of more than
/// 2048 count, as in the lists that signs have.
FileListCode CodeOfLocalFile(const std::string& path, std::string_view name);

/// The list: one block, searched from its beginning.
class FileList
{
public:
    static constexpr std::size_t kSize = 4104;
    static constexpr std::size_t kMost = 1023;

    /// The list that a local file holds; what the file lacks is zero. Without the file the list is empty.
    static FileList Load(const std::string& path);
    /// False when not all could be written.
    bool Save(const std::string& path) const;

    /// The code of the first entry for a name, 0 if there is none.
    FileListCode Find(std::string_view name) const;
    /// Replaces the entry for the same name, or adds one. A full list loses its last entry.
    void Store(FileListCode code);

private:
    std::size_t Count() const;
    std::size_t IndexOf(std::uint16_t nameCode) const; // Count() if there is none

    std::array<std::uint8_t, kSize> bytes{};
};

} // namespace vxsign::playlist
