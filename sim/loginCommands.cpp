#include "sim/loginCommands.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <utility>

namespace vxsim {
namespace {

constexpr std::uint8_t kMajor = 10;
enum : std::uint8_t
{
    kLogIn = 1,
    kLogOut = 2,
    kChangePassword = 3
};

constexpr std::size_t kPasswordAt = 14;
constexpr std::size_t kNewPasswordAt = 20;
constexpr std::size_t kServerRecord = 68;
constexpr std::size_t kServerPortAt = 64;

constexpr unsigned kFreeTries = 2;
constexpr unsigned kLongestWait = 30;       // seconds
constexpr std::uint64_t kForgetMs = 600000; // after the last wrong password
constexpr std::size_t kMostHosts = 256;

std::string FieldAt(const Call& call, std::size_t at, std::size_t size)
{
    return std::string(TextAt(call.payload.first(at + size), at));
}

} // namespace

LoginCommands::LoginCommands(Users known, std::uint64_t hold, std::uint32_t signAddress, std::uint16_t signPort)
    : users(std::move(known)), holdMs(hold), address(signAddress), port(signPort)
{
}

std::span<const CommandRow> LoginCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {kMajor, kLogIn, "log in", 20, 0, kLogged, Run<&LoginCommands::LogIn>, "begins a [login](#login)"},
        {kMajor, kLogOut, "log out", 0, 0, kLogged, Run<&LoginCommands::LogOut>, "ends the login"},
        {kMajor, kChangePassword, "change password", 28, 0, kLogged, Run<&LoginCommands::ChangePassword>,
         "the user, the old password and the new one"},
        {kMajor, 48, "server table", 0, 0, kUnlogged, Run<&LoginCommands::TellServers>,
         "one record of 68 bytes: the sign's address as text, at 64 its port (32 bits)"},
    };
    return kRows;
}

void LoginCommands::Restart(std::uint64_t, bool isCold)
{
    if (isCold)
        held.reset();
}

bool LoginCommands::IsHeld(std::uint64_t nowMs) const
{
    return held && nowMs - std::min(nowMs, held->lastMs) < holdMs;
}

bool LoginCommands::IsOpen(const Frame& request, const Arrival& arrival)
{
    // With a payload, logging out is an order to a traffic signal controller.
    const bool isOrder = request.minor == kLogOut && !request.payload.empty();
    if (users.empty() || (request.major == kMajor && request.minor <= kChangePassword && !isOrder))
        return true;
    if (!IsHeld(arrival.nowMs) || held->host != arrival.host)
        return false;
    held->lastMs = arrival.nowMs;
    return true;
}

std::uint64_t LoginCommands::Tries::WaitMs() const
{
    return 1000ULL * std::min(wrong - std::min(wrong, kFreeTries), kLongestWait);
}

bool LoginCommands::IsHeldBack(const Frame& request, const Arrival& arrival) const
{
    const auto former = tries.find(arrival.host);
    return request.major == kMajor && (request.minor == kLogIn || request.minor == kChangePassword) &&
           former != tries.end() && arrival.nowMs - former->second.lastMs < former->second.WaitMs();
}

// Whether the call has the right password. Counts the wrong ones of its host; the host that was wrong longest ago is
// forgotten first.
bool LoginCommands::IsPassword(const std::string& password, const Call& call)
{
    if (password == FieldAt(call, kPasswordAt, kLongestPassword)) {
        tries.erase(call.host);
        return true;
    }
    if (tries.size() >= kMostHosts && !tries.contains(call.host))
        tries.erase(std::ranges::min_element(tries, {}, [](const auto& one) { return one.second.lastMs; }));
    Tries& own = tries[call.host];
    if (call.nowMs - own.lastMs >= kForgetMs)
        own.wrong = 0;
    own = {own.wrong + 1, call.nowMs};
    return false;
}

Reply LoginCommands::LogOut(const Call& call)
{
    if (held && held->host == call.host)
        held.reset();
    return Reply::Done();
}

// The same user may go on from another host; another user has to wait.
Reply LoginCommands::LogIn(const Call& call)
{
    if (users.empty())
        return Reply::Done();
    const std::string user = FieldAt(call, 0, kLongestUser);
    const auto known = users.find(user);
    if (known == users.end())
        return Reply::WithCode(Code::kUnknownUser);
    if (!IsPassword(known->second, call))
        return Reply::WithCode(Code::kWrongPassword);
    if (IsHeld(call.nowMs) && held->host != call.host && held->user != user)
        return Reply::WithCode(Code::kUsedByOthers);
    held = Login{user, call.host, call.nowMs};
    return Reply::Done();
}

// The old password stands for the login.
Reply LoginCommands::ChangePassword(const Call& call)
{
    const auto known = users.find(FieldAt(call, 0, kLongestUser));
    if (known == users.end())
        return Reply::WithCode(Code::kNoSuchUser);
    if (!IsPassword(known->second, call))
        return Reply::WithCode(Code::kWrongOldPassword);
    const std::string wanted = FieldAt(call, kNewPasswordAt, kLongestPassword);
    if (wanted.empty())
        return Reply::WithCode(Code::kBadLength);
    known->second = wanted;
    return Reply::Done();
}

// The one server is the sign itself: its address as text, and its port.
Reply LoginCommands::TellServers(const Call&)
{
    Reply reply{0, {1, 0, 0, 0}, std::vector<std::uint8_t>(kServerRecord)};
    std::ranges::copy(AddressText(address), reply.extended.begin());
    Store32(reply.extended, kServerPortAt, port);
    return reply;
}

} // namespace vxsim
