// The records of each thread, and the functions that fill and hand them out.
#include "thread/threadRecords.h"

#include "platform/stop.h"

#include <vxsign/result.h>

#include <new>

// The record is a contract with applications that were built long ago.
static_assert(sizeof(vxApiConfig) == 192);
static_assert(offsetof(vxApiConfig, kind) == 0);
static_assert(offsetof(vxApiConfig, initialised) == 4);
static_assert(offsetof(vxApiConfig, host) == 8);
static_assert(offsetof(vxApiConfig, serialName) == 40);
static_assert(offsetof(vxApiConfig, port) == 56);
static_assert(offsetof(vxApiConfig, baudRate) == 60);
static_assert(offsetof(vxApiConfig, sourceAddress) == 80);
static_assert(offsetof(vxApiConfig, destinationAddress) == 82);
static_assert(offsetof(vxApiConfig, retries) == 84);
static_assert(offsetof(vxApiConfig, timeoutMs) == 88);
static_assert(offsetof(vxApiConfig, abortFlag) == 92);
static_assert(offsetof(vxApiConfig, progressTotal) == 96);
static_assert(offsetof(vxApiConfig, progressPos) == 98);
static_assert(offsetof(vxApiConfig, dataSize) == 100);
static_assert(offsetof(vxApiConfig, onOpen) == 128);
static_assert(offsetof(vxApiConfig, onClose) == 136);
static_assert(offsetof(vxApiConfig, onProgress) == 144);
static_assert(offsetof(vxApiConfig, onRead) == 152);
static_assert(offsetof(vxApiConfig, onWrite) == 160);
static_assert(offsetof(vxApiConfig, onLog) == 168);
static_assert(offsetof(vxApiConfig, onMessageToGif) == 176);
static_assert(offsetof(vxApiConfig, onTempPath) == 184);

namespace vxsign {
namespace {

struct Records
{
    Records() = default;
    Records(const Records&) = delete;
    Records& operator=(const Records&) = delete;
    ~Records() { platform::StopBy(nullptr); }

    std::unique_ptr<vxApiConfig> configuration;
    std::unique_ptr<vxApiState> state;
    std::unique_ptr<vxPlaylistState> playlist;
};
thread_local Records records;

template <class Record>
Record* OnDemand(std::unique_ptr<Record>& record) noexcept
{
    if (!record)
        record.reset(new (std::nothrow) Record{});
    return record.get();
}

} // namespace

vxApiConfig* ThreadConfig() noexcept
{
    if (!records.configuration && OnDemand(records.configuration) != nullptr)
        platform::StopBy(&records.configuration->abortFlag);
    return records.configuration.get();
}

vxApiState* ThreadState() noexcept
{
    return OnDemand(records.state);
}

vxPlaylistState* ThreadPlaylist() noexcept
{
    return OnDemand(records.playlist);
}

} // namespace vxsign

std::uint32_t vxInitAPI(const vxApiConfig* config)
{
    if (config == nullptr)
        return VX_ARGUMENTS;
    vxApiConfig* const own = vxsign::ThreadConfig();
    if (own == nullptr || vxsign::ThreadState() == nullptr)
        return VX_NO_RECORD;
    *own = *config;
    own->initialised = 1;
    return VX_OK;
}

std::uint32_t vxFreeAPI()
{
    return VX_OK;
}

void* vxTLSGet(int which)
{
    switch (which) {
    case VX_RECORD_CONFIGURATION:
        return vxsign::ThreadConfig();
    case VX_RECORD_STATE:
        return vxsign::ThreadState();
    case VX_RECORD_PLAY_LIST:
        return vxsign::ThreadPlaylist();
    default:
        return nullptr;
    }
}
