// Records that the library hands to a callback, one after the other.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace vxctl {

// A callback has room for 32 bits of the caller's at most, so that its records go to a list of the thread's.
template <class Record>
std::vector<Record>& CollectedOfThread()
{
    thread_local std::vector<Record> records;
    return records;
}

template <class Record>
std::uint32_t Collect(const Record* record)
{
    CollectedOfThread<Record>().push_back(*record);
    return 0;
}

template <class Record>
std::uint32_t CollectForUser(std::uint32_t /*user*/, const Record* record)
{
    return Collect(record);
}

// What has been collected since the last call.
template <class Record>
std::vector<Record> TakeCollected()
{
    return std::exchange(CollectedOfThread<Record>(), {});
}

} // namespace vxctl
