// Faults of the line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace vxsim {

// How badly a line treats the sign's replies. Probabilities lie within 0 and 1.
struct FaultSettings
{
    double drop = 0;        // the reply never arrives
    double truncate = 0;    // it is cut, by at least one byte
    double wrongId = 0;     // it belongs to another request, with a right checksum
    double badSum = 0;      // its checksum is wrong
    std::size_t noise = 0;  // random bytes ahead of every reply, never 0x55; a host skips five of them in any case
    std::uint32_t seed = 1; // the same seed gives the same faults

    bool operator==(const FaultSettings&) const = default;
};

inline constexpr std::size_t kMostNoise = 64;

// Reads "drop=0.1,truncate=0.05,wrongid=0.05,badsum=0.05,noise=4,seed=7", each item at most once and in any order.
// Throws std::invalid_argument with a text that says what is wrong and what is allowed.
FaultSettings ParseFaults(std::string_view text);

// Does to one reply after the other what the settings say.
class FaultInjector
{
public:
    explicit FaultInjector(const FaultSettings& faults) : settings(faults), random(faults.seed) {}

    const FaultSettings& Settings() const { return settings; }

    // From now on; what comes at random goes on.
    void Use(const FaultSettings& other) { settings = other; }

    // What goes out for this reply; empty if nothing does.
    std::vector<std::uint8_t> Apply(std::vector<std::uint8_t> reply);

    // The same for a reply that is no packet: its last byte is changed in place of the checksum, and there is no id.
    std::vector<std::uint8_t> ApplyToBytes(std::vector<std::uint8_t> reply);

private:
    void AddNoise(std::vector<std::uint8_t>& reply);
    bool Happens(double probability);
    std::size_t Below(std::size_t limit); // 0 to limit - 1

    FaultSettings settings;
    std::mt19937 random;
};

} // namespace vxsim
