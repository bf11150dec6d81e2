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

std::string PasswordOf(const Login& login)
{
    if (!login.passwordVariable.empty()) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here sets variables
        const char* const value = std::getenv(login.passwordVariable.c_str());
        if (value == nullptr)
            throw UsageError("the variable " + login.passwordVariable + ", which has the password, is not set");
        return CheckedPassword(value);
    }
    std::ifstream file(login.passwordFile);
    std::string password;
    if (!std::getline(file, password))
        throw UsageError(login.passwordFile + ", which has the password, cannot be read or is empty");
    while (!password.empty() && password.back() == '\r')
        password.pop_back();
    return CheckedPassword(std::move(password));
}

} // namespace vxctl
