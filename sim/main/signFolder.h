// Where a sign keeps what it has.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace vxsim {

// The folder of the sign: the one that was asked for, or a fresh one that goes with the program.
class SignFolder
{
public:
    explicit SignFolder(const std::string& wanted) : path(wanted), fresh(wanted.empty())
    {
        if (!fresh)
            return;
        std::string name = std::filesystem::temp_directory_path() / "vxsim-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr)
            throw std::system_error(errno, std::generic_category(), "cannot make a folder");
        path = name;
    }
    ~SignFolder()
    {
        std::error_code error;
        if (fresh)
            std::filesystem::remove_all(path, error);
    }
    SignFolder(const SignFolder&) = delete;
    SignFolder& operator=(const SignFolder&) = delete;

    const std::filesystem::path& Path() const { return path; }

private:
    std::filesystem::path path;
    bool fresh;
};

} // namespace vxsim
