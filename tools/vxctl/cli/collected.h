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

// The callback for a call that begins now: what an earlier one that failed has left is forgotten.
template <class Record>
auto Collecting()
{
    CollectedOfThread<Record>().clear();
    return +[](const Record* record) -> std::uint32_t {
        CollectedOfThread<Record>().push_back(*record);
        return 0;
    };
}

template <class Record>
auto CollectingForUser()
{
    CollectedOfThread<Record>().clear();
    return +[](std::uint32_t /*user*/, const Record* record) -> std::uint32_t {
        CollectedOfThread<Record>().push_back(*record);
        return 0;
    };
}

// What has been collected since the last call.
template <class Record>
std::vector<Record> TakeCollected()
{
    return std::exchange(CollectedOfThread<Record>(), {});
}

} // namespace vxctl
