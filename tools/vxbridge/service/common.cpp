#include "vxbridge/service/common.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace vxbridge {

std::shared_ptr<const vxctl::SignBook> BookShelf::Get() const
{
    const std::lock_guard lock(mutex);
    return current;
}

void BookShelf::Put(vxctl::SignBook book)
{
    const std::lock_guard lock(mutex);
    current = std::make_shared<const vxctl::SignBook>(std::move(book));
}

std::shared_ptr<const vxctl::BookSign> BookShelf::Find(const std::string& sign) const
{
    const auto book = Get();
    const auto found = std::ranges::find(*book, sign, &vxctl::BookSign::name);
    return found == book->end() ? nullptr : std::shared_ptr<const vxctl::BookSign>(book, &*found);
}

bool OwnSigns::Has(const std::string& sign) const
{
    const std::lock_guard lock(mutex);
    return names.contains(sign);
}

std::size_t OwnSigns::Count() const
{
    const std::lock_guard lock(mutex);
    return names.size();
}

std::set<std::string> OwnSigns::Put(std::set<std::string> signs)
{
    const std::lock_guard lock(mutex);
    return std::exchange(names, std::move(signs));
}

vxctl::Outcome Timed(Counters& counters, const char* kind, const vxctl::Options& sign, const vxctl::Order& order)
{
    const auto begin = std::chrono::steady_clock::now();
    vxctl::Outcome outcome = vxctl::RunOn(sign, order);
    counters.AddTime(kind, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    return outcome;
}

} // namespace vxbridge
