// A recording: a capture file in the form pcapng with bare IP packets, written as it goes.
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

namespace vxctl {

// To the sign, or from it.
enum class Way : std::uint8_t
{
    kOut,
    kIn
};

// The recording of this program, for all threads. Each packet is in the file before it goes on to the sign or the
// library, so that a program that is killed leaves all that went.
class Recording
{
public:
    using Time = std::chrono::system_clock::time_point;

    // A file that is there already has to be a capture of this form, whole, and gets what comes behind it. Throws
    // UsageError where it is none, or cannot be written.
    Recording(const std::string& file, bool secretsStay);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    // What is recorded to; null where nothing is.
    static Recording* Current() { return current; }

    bool KeepsSecrets() const { return keepsSecrets; }

    // A line to a sign, with its number for Add.
    std::uint32_t AddLine(std::string_view name, std::string_view comment);

    // An IP packet.
    void Add(std::uint32_t line, Way way, Time time, std::span<const std::uint8_t> packet);

    // Why the recording is not whole; empty where it is.
    std::string Fault() const;

private:
    void BeginSection();
    void Write(const std::string& block);

    static inline Recording* current = nullptr;

    const std::string name;
    const bool keepsSecrets;
    int descriptor = -1;
    mutable std::mutex mutex;
    std::uint32_t lines = 0;
    int error = 0;
};

} // namespace vxctl
