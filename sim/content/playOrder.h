// The order in which the files of a list have their turns.
#pragma once

#include "sim/content/sequence.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vxsim {

// The play type of a group whose members, files and sub-groups alike, change places from round to round. Any other
// group keeps the order of the list.
inline constexpr std::uint8_t kAtRandom = 1;

// All files of the tree in the order of that round, valid as long as the sequence. The same round of the same list is
// always the same.
std::vector<const FileEntry*> FilesInOrder(const Sequence& sequence, std::uint64_t round = 0);

// The turns of a list, counted from 0 through all rounds.
class PlayOrder
{
public:
    PlayOrder() = default;
    explicit PlayOrder(Sequence list);
    PlayOrder(PlayOrder&&) = default; // a copy would point into the original
    PlayOrder& operator=(PlayOrder&&) = default;

    // Files in a round.
    std::size_t Size() const { return files.size(); }

    const Sequence& List() const { return sequence; }

    // The file whose turn it is. Not for an empty list.
    const FileEntry& At(std::uint64_t turn);

private:
    Sequence sequence;
    bool changes = false; // from round to round
    std::uint64_t round = 0;
    std::vector<const FileEntry*> files; // of that round
};

} // namespace vxsim
