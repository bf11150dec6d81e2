// login, logout, passwd.
#include "vxctl/cli/answer.h"
#include "vxctl/cli/login.h"
#include "vxctl/cli/tables.h"

#include <vxsign/login.h>

namespace vxctl {

namespace {

std::string UserOf(const Args& args)
{
    return CheckedUser(args.Text("USER"));
}

// A password that the command line may have. Where it has not, it is asked for.
std::string Password(const Args& args, const char* option, const std::string& question)
{
    return CheckedPassword(args.Has(option) ? args.Text(option) : Ask(question, Echo::kOff));
}

std::uint32_t Login(Session& /*session*/, const Args& args)
{
    const std::string user = UserOf(args);
    return vxLogin(user.c_str(), Password(args, "--password", "Password for " + user + ": ").c_str());
}

std::uint32_t ChangePassword(Session& /*session*/, const Args& args)
{
    const std::string user = UserOf(args);
    const std::string former = Password(args, "--password", "Old password for " + user + ": ");
    const std::string next = Password(args, "--new-password", "New password: ");
    if (!args.Has("--new-password") && IsAsked() && Ask("New password once more: ", Echo::kOff) != next)
        throw UsageError("the two new passwords differ");
    return vxChangePSW(user.c_str(), former.c_str(), next.c_str());
}

constexpr Argument kUser = Text("USER", "the name of the user, 13 characters at most");

const Command kCommands[] = {
    {
        .name = "login",
        .help = "Log in to a sign that asks for it",
        .details =
            R"(The sign remembers who is logged in: the commands that follow need nothing more. Without --password the password is
asked for, or is a line of standard input when that is no terminal. --password can be seen in the list of processes.)",
        .examples = R"(vxctl login operator
vxctl login operator <password.txt)",
        .arguments = {kUser, Text("--password", "the password, 6 characters at most")},
        .run = Login,
    },
    {
        .name = "logout",
        .help = "End the login",
        .examples = "vxctl logout",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxLogout(); },
    },
    {
        .name = "passwd",
        .help = "Change a password",
        .details =
            R"(Passwords that are not given are asked for, or are lines of standard input, the old one first, when that is no
terminal. What is given as an option can be seen in the list of processes.)",
        .examples = R"(vxctl passwd operator
printf 'old1\nnew2\n' | vxctl passwd operator)",
        .arguments = {kUser, Text("--password", "the old password, 6 characters at most"),
                      Text("--new-password", "the new password, 6 characters at most")},
        .run = ChangePassword,
    },
};

} // namespace

const CommandTable kAccessCommands{"Access", kCommands};

} // namespace vxctl
