#include "vxctl/cli/answer.h"
#include "vxctl/cli/command.h"

#include <vxsign/login.h>

#include <memory>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Access";
constexpr std::size_t kLongestUser = 13;
constexpr std::size_t kLongestPassword = 6;

// What is longer would be cut on its way: no other program could then tell what the password is.
void CheckLength(const std::string& text, std::size_t longest, const char* what)
{
    if (text.size() > longest)
        throw UsageError(std::string(what) + " has " + std::to_string(longest) + " characters at most");
}

// A password that the command line may have. Where it has not, it is asked for.
struct Password
{
    std::string text;
    CLI::Option* option = nullptr;

    void AddTo(CLI::App& command, const std::string& name, const std::string& description)
    {
        option = command.add_option(name, text, description)->type_name("TEXT");
    }

    bool IsGiven() const { return option->count() != 0; }

    void Complete(const std::string& question)
    {
        if (!IsGiven())
            text = Ask(question, Echo::kOff);
        CheckLength(text, kLongestPassword, "a password");
    }
};

CLI::Option* AddUser(CLI::App& command, std::string& user)
{
    return command.add_option("USER", user, "the name of the user, 13 characters at most")->required();
}

struct LoginRequest
{
    std::string user;
    Password password;
};

void AddLogin(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "login", "Log in to a sign that asks for it",
         R"(The sign remembers who is logged in: the commands that follow need nothing more. Without --password the password is
asked for, or is a line of standard input when that is no terminal. --password can be seen in the list of processes.

Examples:
  vxctl login operator
  vxctl login operator <password.txt)"});
    const auto login = std::make_shared<LoginRequest>();
    AddUser(*command, login->user);
    login->password.AddTo(*command, "--password", "the password, 6 characters at most");
    command->callback([&session, login] {
        CheckLength(login->user, kLongestUser, "a user");
        login->password.Complete("Password for " + login->user + ": ");
        session.Connect();
        Check(vxLogin(login->user.c_str(), login->password.text.c_str()));
    });
}

void AddLogout(CLI::App& app, Session& session)
{
    AddCommand(app, {kGroup, "logout", "End the login", "Example:\n  vxctl logout"})->callback([&session] {
        session.Connect();
        Check(vxLogout());
    });
}

struct PasswordChange
{
    std::string user;
    Password former;
    Password next;
};

void ChangePassword(const Session& session, PasswordChange& change)
{
    CheckLength(change.user, kLongestUser, "a user");
    change.former.Complete("Old password for " + change.user + ": ");
    change.next.Complete("New password: ");
    if (!change.next.IsGiven() && IsAsked() && Ask("New password once more: ", Echo::kOff) != change.next.text)
        throw UsageError("the two new passwords differ");
    session.Connect();
    Check(vxChangePSW(change.user.c_str(), change.former.text.c_str(), change.next.text.c_str()));
}

void AddPasswd(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "passwd", "Change a password",
         R"(Passwords that are not given are asked for, or are lines of standard input, the old one first, when that is no
terminal. What is given as an option can be seen in the list of processes.

Examples:
  vxctl passwd operator
  printf 'old1\nnew2\n' | vxctl passwd operator)"});
    const auto change = std::make_shared<PasswordChange>();
    AddUser(*command, change->user);
    change->former.AddTo(*command, "--password", "the old password, 6 characters at most");
    change->next.AddTo(*command, "--new-password", "the new password, 6 characters at most");
    command->callback([&session, change] { ChangePassword(session, *change); });
}

} // namespace

void AddAccessCommands(CLI::App& app, Session& session)
{
    AddLogin(app, session);
    AddLogout(app, session);
    AddPasswd(app, session);
}

} // namespace vxctl
