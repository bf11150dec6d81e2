// Commands to log in, and who may use the sign.
#pragma once

#include "sim/command/commandFamily.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace vxsim {

// What fits the fields of a login.
inline constexpr std::size_t kLongestUser = 13;
inline constexpr std::size_t kLongestPassword = 6;

using Users = std::map<std::string, std::string>; // passwords by name

struct LoginHolder
{
    std::string user;
    std::uint32_t host = 0;

    bool operator==(const LoginHolder&) const = default;
};

// Major 10: who may use the sign. One user at a time holds it, known by the address of the host, since a host on UDP
// has a new port for each call. A login ends when nothing was asked under it for a while.
class LoginCommands : public CommandFamily
{
public:
    // Without users everybody may use the sign. `address` and `port` are where it listens.
    LoginCommands(Users users, std::uint64_t holdMs, std::uint32_t address, std::uint16_t port);

    // Whether this command is open to the host. If a login opens it, the login is prolonged.
    bool IsOpen(const Frame& request, const Arrival& arrival);

    // Whether a password of this host is not looked at yet. After three wrong ones it waits a second, and one more for
    // each further one, up to thirty; a host that repeats its request has an answer then.
    bool IsHeldBack(const Frame& request, const Arrival& arrival) const;

    std::span<const CommandRow> Commands() const override;
    void Restart(std::uint64_t nowMs, bool isCold) override;

    std::optional<LoginHolder> Holder(std::uint64_t nowMs) const
    {
        return IsHeld(nowMs) ? std::optional<LoginHolder>({held->user, held->host}) : std::nullopt;
    }

    // Who is logged in from that host; empty if nobody is.
    std::string UserAt(const Arrival& arrival) const
    {
        return IsHeld(arrival.nowMs) && held->host == arrival.host ? held->user : std::string();
    }

private:
    struct Login
    {
        std::string user;
        std::uint32_t host = 0;
        std::uint64_t lastMs = 0;
    };

    struct Tries
    {
        unsigned wrong = 0; // passwords
        std::uint64_t lastMs = 0;
        std::uint64_t WaitMs() const;
    };

    bool IsHeld(std::uint64_t nowMs) const;
    Reply LogIn(const Call& call);
    Reply LogOut(const Call& call);
    Reply ChangePassword(const Call& call);
    Reply TellServers(const Call& call);
    bool IsPassword(const std::string& password, const Call& call);

    Users users;
    std::uint64_t holdMs;
    std::uint32_t address;
    std::uint16_t port;
    std::optional<Login> held;
    std::map<std::uint32_t, Tries> tries; // by host, since its last right password
};

} // namespace vxsim
