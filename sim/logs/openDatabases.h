// Which databases of many signs are open.
#pragma once

#include <cstddef>
#include <list>

namespace vxsim {

class SignDatabase;

// Databases that open when they are needed, a few of them at a time. Outlives them all.
class OpenDatabases
{
public:
    static constexpr std::size_t kMost = 16;

    // With `areKept`, rows that still wait at the end are written then.
    explicit OpenDatabases(bool areKept) : kept(areKept) {}

    bool AreKept() const { return kept; }

    // Closes the one that was opened first if there are too many.
    void Enter(SignDatabase& opened);
    void Leave(SignDatabase& closed) { open.remove(&closed); }

private:
    bool kept;
    std::list<SignDatabase*> open;
};

} // namespace vxsim
