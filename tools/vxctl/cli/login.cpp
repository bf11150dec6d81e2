// Fetches passwords.
#include "vxctl/cli/login.h"

#include "vxctl/cli/failure.h"

#include <cstdlib>
#include <fstream>
#include <utility>

namespace vxctl {

namespace {

constexpr std::size_t kLongestUser = 13;
constexpr std::size_t kLongestPassword = 6;

std::string Limited(std::string text, std::size_t longest, const char* what)
{
    if (text.size() > longest)
        throw UsageError(std::string(what) + " has " + std::to_string(longest) + " characters at most");
    return text;
}

} // namespace

std::string CheckedUser(std::string user)
{
    return Limited(std::move(user), kLongestUser, "a user");
}

std::string CheckedPassword(std::string password)
{
    return Limited(std::move(password), kLongestPassword, "a password");
}

std::optional<std::string> FirstLineOf(const std::string& file)
{
    std::ifstream stream(file);
    std::string line;
    if (!std::getline(stream, line))
        return std::nullopt;
    while (line.ends_with('\r'))
        line.pop_back();
    return line;
}

std::string PasswordOf(const Login& login)
{
    if (!login.passwordVariable.empty()) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here sets variables
        const char* const value = std::getenv(login.passwordVariable.c_str());
        if (value == nullptr)
            throw UsageError("the variable " + login.passwordVariable + ", which has the password, is not set");
        return CheckedPassword(value);
    }
    std::optional<std::string> password = FirstLineOf(login.passwordFile);
    if (!password)
        throw UsageError(login.passwordFile + ", which has the password, cannot be read or is empty");
    return CheckedPassword(std::move(*password));
}

} // namespace vxctl
