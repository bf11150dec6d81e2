// The drives of the sign, and the files behind its paths.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vxsim {

// The list that the sign plays.
inline constexpr std::string_view kSequencePath = "C:\\SEQUENT.SYS";

// The sign's drives: a folder for each letter below one root. Names compare without regard to case, as on the FAT
// drives of a sign, and no path leaves its drive.
class Drives
{
public:
    // Makes the folders, one for each letter. Throws std::filesystem::filesystem_error if it cannot, and
    // std::invalid_argument if `letters` has anything but letters or lacks C, where the system files live.
    Drives(const std::filesystem::path& root, std::string_view letters);

    // Throws std::invalid_argument as the making does; gives the letters in upper case, each once.
    static std::string CheckLetters(std::string_view letters);

    bool Has(char letter) const;
    const std::string& Letters() const { return letters; } // in upper case, each once

    // The file or folder behind a sign path such as "D:\T\QMSG.Nmg"; either separator does, and the one behind the
    // colon may be missing. An entry that exists is found whatever its case; what does not exist keeps the case given.
    // Nothing for a drive that the sign lacks and for a path that is no plain path on its drive: "..", a character that
    // FAT refuses, an over-long name, a link.
    std::optional<std::filesystem::path> Resolve(std::string_view signPath) const;

    // Whether the path is that of a folder which every drive has for its texts, pictures, strings, arrays or fonts,
    // there or not: no file may take its name.
    bool IsStandardFolder(const std::filesystem::path& path) const;

    // The file of kSequencePath; it may be missing.
    std::filesystem::path SequenceFile() const;

    // As Resolve for a bare file name in a folder of a drive; an empty `folder` is the drive itself.
    std::optional<std::filesystem::path> FileIn(char drive, std::string_view folder, std::string_view name) const;

private:
    std::filesystem::path root;
    std::string letters;
};

} // namespace vxsim
