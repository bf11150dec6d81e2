// Programs on drive C.
#pragma once

#include "sim/files/drives.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {

inline constexpr std::size_t kLongestProject = 32; // bytes of a name
inline constexpr std::size_t kLongestProgram = 20;
inline constexpr std::size_t kMostProjects = 32;
inline constexpr std::size_t kMostPrograms = 64; // of a project
inline constexpr std::size_t kMostProgramFiles = 64;

struct ProgramFile
{
    std::string path;              // on the drives
    std::uint16_t staySeconds = 0; // of a picture; 0 for the sign's own time
};

struct Program
{
    std::string project; // both names as the drive has them
    std::string name;
    std::vector<ProgramFile> files;
    std::uint16_t date = 0; // of the last change, as in listings
    std::uint16_t time = 0;
};

// The programs on drive C: C:\PLAYER\PROJECT\PROGRAM.PRG is a text of UTF-8 with a file of the sign in each line,
// "PATH" or "PATH|SECONDS". A folder is a project as soon as it has a program. Names compare without regard to case.
class ProgramStore
{
public:
    explicit ProgramStore(const Drives& signDrives) : drives(signDrives) {}

    // Whether a project can have that name.
    bool IsProjectName(std::string_view name) const { return FolderOf(name).has_value(); }

    // Names in their order; no more than the sign can have.
    std::vector<std::string> Projects() const;
    std::vector<std::string> Programs(std::string_view project) const;

    // Nothing if there is none of that name, or if a name is none.
    std::optional<Program> Find(std::string_view project, std::string_view name) const;

    // Bytes of the files that the program names, without those that are missing.
    struct Content
    {
        std::uint64_t bytes = 0;
        std::size_t files = 0;
    };
    Content ContentOf(const Program& program) const;

private:
    std::optional<std::filesystem::path> FolderOf(std::string_view project) const;

    const Drives& drives;
};

} // namespace vxsim
