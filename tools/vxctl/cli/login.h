// Users of signs, and where their passwords are kept.
#pragma once

#include <optional>
#include <string>

namespace vxctl {

// The password is the first line of a file, or what an environment variable has.
struct Login
{
    std::string user;
    std::string passwordFile;     // or
    std::string passwordVariable; // one of the two is empty

    bool operator==(const Login&) const = default;
};

// Both as they fit a sign: what is longer would be cut on its way, and no other program could then tell what the
// password is. Throw UsageError for what is too long.
std::string CheckedUser(std::string user);
std::string CheckedPassword(std::string password);

// What a file keeps in its first line, whatever ends that. Nothing for a file that cannot be read or is empty.
std::optional<std::string> FirstLineOf(const std::string& file);

// Throws UsageError that names the file or variable that gives none.
std::string PasswordOf(const Login& login);

} // namespace vxctl
