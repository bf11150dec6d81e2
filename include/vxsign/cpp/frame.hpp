// The frame of every call: makes the calling thread's record that of the sign, and lets Cancel find it.
#ifndef VXSIGN_CPP_FRAME_HPP
#define VXSIGN_CPP_FRAME_HPP

#include <vxsign/api.h>
#include <vxsign/cpp/encoding.hpp>
#include <vxsign/cpp/result.hpp>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace vxsign {

// The connection of a sign, beside its place.
struct Options
{
    std::uint32_t timeoutMs = 3000; // milliseconds for each try, 50 to 60000
    std::uint32_t retries = 3;      // tries for each packet, 1 to 100
    std::uint16_t chunk = 768;      // bytes of a file in each packet, 64 to 1280
    std::uint16_t destination = 0;  // address behind the line
    std::string encoding = "utf-8"; // that of the sign's texts, names and paths: gbk, shift_jis, windows-1251 ...
    std::function<void(unsigned percent)> onProgress = nullptr; // on the calling thread
};

namespace detail {

inline void StoreFlag(std::uint32_t& flag)
{
#if defined(__GNUC__)
    __atomic_store_n(&flag, 1U, __ATOMIC_SEQ_CST);
#else
    static_cast<volatile std::uint32_t&>(flag) = 1;
#endif
}

inline bool LoadFlag(const std::uint32_t& flag)
{
#if defined(__GNUC__)
    return __atomic_load_n(&flag, __ATOMIC_SEQ_CST) != 0;
#else
    return static_cast<const volatile std::uint32_t&>(flag) != 0;
#endif
}

// One sign: how it is reached, and the records of the threads that talk to it now.
struct Link
{
    explicit Link(const Options& options) : encoding(options.encoding), onProgress(options.onProgress)
    {
        config.timeoutMs = options.timeoutMs;
        config.retries = options.retries;
        config.dataSize = options.chunk;
        config.destinationAddress = options.destination;
    }

    void Cancel()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        for (vxApiConfig* const record : running)
            StoreFlag(record->abortFlag);
    }

    vxApiConfig config{};
    Encoding encoding;
    std::function<void(unsigned)> onProgress;
    std::mutex mutex;
    std::vector<vxApiConfig*> running;
};

class Frame
{
public:
    explicit Frame(std::shared_ptr<Link> sign)
        : link(std::move(sign)), record(static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION)))
    {
        auto* const state = static_cast<std::uint8_t*>(vxTLSGet(VX_RECORD_STATE));
        if (Running() != nullptr)
            Refuse("this thread is in a call already: a callback may cancel it, and nothing else");
        if (record == nullptr || state == nullptr)
            throw Failure(VX_NO_RECORD);
        if (!IsOf(link->config))
            *state = 0; // which has the properties of another sign
        vxApiConfig config = link->config;
        config.onProgress = OnProgress;
        config.onLog = OnLog;
        Check(vxInitAPI(&config));
        const std::lock_guard<std::mutex> lock(link->mutex);
        link->running.push_back(record);
        Running() = this;
    }
    // The record stays for functions that the thread calls by itself, which have callbacks of their own or none.
    ~Frame()
    {
        Running() = nullptr;
        record->onProgress = nullptr;
        record->onLog = nullptr;
        const std::lock_guard<std::mutex> lock(link->mutex);
        link->running.erase(std::find(link->running.begin(), link->running.end(), record));
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    // That of the calling thread; null outside of a call.
    static Frame*& Running()
    {
        thread_local Frame* running = nullptr;
        return running;
    }

    bool IsCancelled() const { return LoadFlag(record->abortFlag); }

    std::string Encode(std::string_view text) const { return link->encoding.Encode(text); }
    std::string Decode(std::string_view bytes) const { return link->encoding.Decode(bytes); }
    // As the library puts it right.
    std::uint32_t ChunkSize() const
    {
        return record->dataSize >= 64 && record->dataSize <= 1280 ? record->dataSize : std::uint16_t{768};
    }

    std::string failed;   // the last command that failed; a file that the sign does not have is none
    std::string refused;  // what a field device said of the last try
    unsigned percent = 0; // the last progress
    void* sink = nullptr; // where callbacks put what they get

private:
    bool IsOf(const vxApiConfig& config) const
    {
        return record->initialised == 1 && record->kind == config.kind && record->port == config.port &&
               record->destinationAddress == config.destinationAddress && record->baudRate == config.baudRate &&
               std::memcmp(record->host, config.host, sizeof config.host) == 0 &&
               std::memcmp(record->serialName, config.serialName, sizeof config.serialName) == 0;
    }

    // A callback that throws ends the call.
    static void OnProgress(vxApiConfig* config, std::uint32_t /*reserved*/, std::uint32_t percent)
    {
        Frame& frame = *Running();
        frame.percent = percent;
        try {
            if (frame.link->onProgress)
                frame.link->onProgress(percent);
        } catch (...) {
            StoreFlag(config->abortFlag);
        }
    }

    static void OnLog(vxApiConfig* config, const char* /*source*/, std::uint32_t /*line*/, std::uint32_t level,
                      const char* message)
    {
        constexpr std::uint32_t kFailedCommand = 3;
        constexpr std::string_view kRefused = "the device refused: ";
        const std::string_view text = message;
        try {
            if (text.substr(0, kRefused.size()) == kRefused)
                Running()->refused = text.substr(kRefused.size());
            else if (level == kFailedCommand && text != vxErrorDesc(VX_FILE_NOT_EXISTS))
                Running()->failed = text;
        } catch (...) {
            StoreFlag(config->abortFlag);
        }
    }

    std::shared_ptr<Link> link; // stays for as long as the call does
    vxApiConfig* record;
};

// Collects the records that a function hands to a callback while it runs.
template <class Record>
class Collected
{
public:
    Collected() { Frame::Running()->sink = &records; }
    ~Collected() { Frame::Running()->sink = nullptr; }
    Collected(const Collected&) = delete;
    Collected& operator=(const Collected&) = delete;

    static std::uint32_t Take(const Record* record) noexcept
    {
        static_cast<std::vector<Record>*>(Frame::Running()->sink)->push_back(*record);
        return 0;
    }
    static std::uint32_t TakeForUser(std::uint32_t /*user*/, const Record* record) noexcept { return Take(record); }

    std::vector<Record> records;
};

// Runs the parts of a call on a sign; nothing thrown gets past it.
template <class Body>
auto Run(const std::shared_ptr<Link>& link, const Body& body) -> Result<decltype(body(std::declval<Frame&>()))>
{
    bool isCancelled = false;
    try {
        Frame frame(link);
        try {
            if constexpr (std::is_void_v<decltype(body(frame))>) {
                body(frame);
                return {};
            } else {
                return body(frame);
            }
        } catch (...) {
            isCancelled = frame.IsCancelled();
            throw;
        }
    } catch (const Failure& failure) {
        // What was cut short in its last try ends like any other silence.
        return isCancelled && failure.error.code != VX_ARGUMENTS ? ErrorOf(VX_ABORTED) : failure.error;
    } catch (const std::exception& exception) {
        return Error{VX_CALL, exception.what(), {}}; // memory ran out
    }
}

} // namespace detail
} // namespace vxsign

#endif
