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
    kChangePassword = 3,
    kServerTable = 48
};

constexpr std::size_t kPasswordAt = 14;
constexpr std::size_t kLoginSize = 20;
constexpr std::size_t kNewPasswordAt = 20;
constexpr std::size_t kChangeSize = 28;
constexpr std::size_t kServerRecord = 68;
constexpr std::size_t kServerPortAt = 64;

constexpr unsigned kFreeTries = 2;
constexpr unsigned kLongestWait = 30;       // seconds
constexpr std::uint64_t kForgetMs = 600000; // after the last wrong password
constexpr std::size_t kMostHosts = 256;

std::string FieldAt(const Frame& request, std::size_t at, std::size_t size)
{
    return std::string(TextAt(request.payload.first(at + size), at));
}

} // namespace

LoginCommands::LoginCommands(Users known, std::uint64_t hold, std::uint32_t signAddress, std::uint16_t signPort)
    : users(std::move(known)), holdMs(hold), address(signAddress), port(signPort)
{
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

// Whether the request has the right password. Counts the wrong ones of its host; the host that was wrong longest ago is
// forgotten first.
bool LoginCommands::IsPassword(const std::string& password, const Frame& request, const Arrival& arrival)
{
    if (password == FieldAt(request, kPasswordAt, kLongestPassword)) {
        tries.erase(arrival.host);
        return true;
    }
    if (tries.size() >= kMostHosts && !tries.contains(arrival.host))
        tries.erase(std::ranges::min_element(tries, {}, [](const auto& one) { return one.second.lastMs; }));
    Tries& own = tries[arrival.host];
    if (arrival.nowMs - own.lastMs >= kForgetMs)
        own.wrong = 0;
    own = {own.wrong + 1, arrival.nowMs};
    return false;
}

Reply LoginCommands::Execute(const Frame& request, const Arrival& arrival)
{
    switch (request.minor) {
    case kLogIn:
        return LogIn(request, arrival);
    case kLogOut:
        if (held && held->host == arrival.host)
            LogOut();
        return Reply::Done();
    case kChangePassword:
        return ChangePassword(request, arrival);
    case kServerTable:
        return ServerTable();
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

// The same user may go on from another host; another user has to wait.
Reply LoginCommands::LogIn(const Frame& request, const Arrival& arrival)
{
    if (request.payload.size() < kLoginSize)
        return Reply::WithCode(Code::kBadLength);
    if (users.empty())
        return Reply::Done();
    const std::string user = FieldAt(request, 0, kLongestUser);
    const auto known = users.find(user);
    if (known == users.end())
        return Reply::WithCode(Code::kUnknownUser);
    if (!IsPassword(known->second, request, arrival))
        return Reply::WithCode(Code::kWrongPassword);
    if (IsHeld(arrival.nowMs) && held->host != arrival.host && held->user != user)
        return Reply::WithCode(Code::kUsedByOthers);
    held = Login{user, arrival.host, arrival.nowMs};
    return Reply::Done();
}

// The old password stands for the login.
Reply LoginCommands::ChangePassword(const Frame& request, const Arrival& arrival)
{
    if (request.payload.size() < kChangeSize)
        return Reply::WithCode(Code::kBadLength);
    const auto known = users.find(FieldAt(request, 0, kLongestUser));
    if (known == users.end())
        return Reply::WithCode(Code::kNoSuchUser);
    if (!IsPassword(known->second, request, arrival))
        return Reply::WithCode(Code::kWrongOldPassword);
    const std::string wanted = FieldAt(request, kNewPasswordAt, kLongestPassword);
    if (wanted.empty())
        return Reply::WithCode(Code::kBadLength);
    known->second = wanted;
    return Reply::Done();
}

// The one server is the sign itself: its address as text, and its port.
Reply LoginCommands::ServerTable() const
{
    Reply reply{0, {1, 0, 0, 0}, std::vector<std::uint8_t>(kServerRecord)};
    std::ranges::copy(AddressText(address), reply.extended.begin());
    Store32(reply.extended, kServerPortAt, port);
    return reply;
}

} // namespace vxsim
