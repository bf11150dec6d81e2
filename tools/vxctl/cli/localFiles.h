// Files on this PC.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vxctl {

// The whole file. Throws SignFailure for one that cannot be read or is empty.
std::vector<std::uint8_t> ReadWhole(const std::string& path);

// Where a file that is read goes while it is on its way: beside its target, so that a read that fails leaves a file
// that was there before alone. What is no ordinary file, such as a pipe, is written straight.
class LocalTarget
{
public:
    // In a folder the file gets the given name.
    LocalTarget(const std::string& local, const std::string& nameInFolder);
    ~LocalTarget();
    LocalTarget(const LocalTarget&) = delete;
    LocalTarget& operator=(const LocalTarget&) = delete;

    const std::filesystem::path& Final() const { return final; }
    const std::filesystem::path& Temporary() const { return temporary; }

    // Bytes that have come, unless it is no ordinary file.
    std::optional<std::uint64_t> Size() const;

    // Why it takes no more of them, in the words of this PC. Nothing is tried with what is no ordinary file.
    std::string WhyFull() const;

    // The read went well. Throws SignFailure when the file cannot take its place.
    void Keep() const;

private:
    std::filesystem::path final;
    std::filesystem::path temporary;
};

// Puts a text in the place of what a file has; in a folder the file gets the given name. Throws SignFailure when it
// cannot be written, and the file is as it was.
void ReplaceText(const std::string& local, const std::string& nameInFolder, const std::string& text);

// Why this PC keeps no file in a folder, such as "cannot write in /tmp: No space left on device"; empty where it does.
std::string FolderFault(const std::filesystem::path& folder);

// A folder of its own for files that the library wants to put somewhere. It goes with the object. Throws SignFailure
// when it cannot be made.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Ends in a separator.
    const std::string& Path() const { return path; }

private:
    std::string path;
};

// The folder of a file, or the file alone, under names that no other thread uses: the library writes files of its own
// beside those that it sends. The copies are links, which go with the object. Throws SignFailure when they cannot be
// made.
enum class Linked
{
    kFile,
    kFolder
};

class LinkedFile
{
public:
    LinkedFile(const std::string& file, Linked what);

    const std::string& Path() const { return path; }

private:
    TemporaryFolder folder;
    std::string path;
};

} // namespace vxctl
