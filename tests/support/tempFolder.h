// A folder of a test's own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace vxsign::test {

/// A folder of the test's own, removed with all that is in it.
class TempFolder
{
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "vxsignXXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            ADD_FAILURE() << "no temporary folder: " << pattern;
        path = pattern;
    }
    ~TempFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// The full path of a name in the folder; of the folder itself, with a separator, for an empty one.
    std::string Path(std::string_view name = "") const { return (path / name).string(); }

    /// Makes a file with these bytes, and the folders to it, and returns its path.
    std::string Write(std::string_view name, std::string_view bytes) const
    {
        const std::string target = Path(name);
        std::filesystem::create_directories(std::filesystem::path(target).parent_path());
        std::ofstream file(target, std::ios::binary);
        file << bytes;
        file.close();
        EXPECT_TRUE(file) << target;
        return target;
    }

    /// The bytes of a file; fails the test if it is not there.
    std::string Read(std::string_view name) const
    {
        std::ifstream file(Path(name), std::ios::binary);
        EXPECT_TRUE(file) << Path(name);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool Has(std::string_view name) const { return std::filesystem::exists(path / name); }

    /// The names of what is in the folder, in order, with blanks between them.
    std::string Names() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path))
            names.insert(entry.path().filename().string());
        std::string text;
        for (const std::string& name : names)
            text += (text.empty() ? "" : " ") + name;
        return text;
    }

    bool IsEmpty() const { return std::filesystem::is_empty(path); }

    std::filesystem::path path;
};

/// The folder to work in for as long as this lives, which keeps back what is printed.
class WorkingIn
{
public:
    explicit WorkingIn(const TempFolder& folder)
    {
        std::filesystem::current_path(folder.path);
        testing::internal::CaptureStdout();
    }
    ~WorkingIn()
    {
        testing::internal::GetCapturedStdout();
        std::filesystem::current_path(former);
    }
    WorkingIn(const WorkingIn&) = delete;
    WorkingIn& operator=(const WorkingIn&) = delete;

private:
    const std::filesystem::path former = std::filesystem::current_path();
};

class FolderTest : public testing::Test
{
protected:
    const TempFolder folder;
};

} // namespace vxsign::test
