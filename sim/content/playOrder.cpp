#include "sim/content/playOrder.h"

#include <algorithm>
#include <random>
#include <utility>

namespace vxsim {

namespace {

using Dice = std::mt19937_64;

void AppendFiles(const std::vector<SequenceItem>& items, std::uint8_t playType, Dice& dice,
                 std::vector<const FileEntry*>& files)
{
    std::vector<const SequenceItem*> order;
    order.reserve(items.size());
    for (const SequenceItem& item : items)
        order.push_back(&item);
    if (playType == kAtRandom) {
        for (std::size_t left = order.size(); left > 1; --left)
            std::swap(order[left - 1], order[static_cast<std::size_t>(dice() % left)]);
    }
    for (const SequenceItem* item : order) {
        if (item->file)
            files.push_back(&*item->file);
        else
            AppendFiles(item->children, item->playType, dice, files);
    }
}

bool HasRandomGroup(const std::vector<SequenceItem>& items)
{
    return std::ranges::any_of(items, [](const SequenceItem& item) {
        return !item.file && (item.playType == kAtRandom || HasRandomGroup(item.children));
    });
}

} // namespace

std::vector<const FileEntry*> FilesInOrder(const Sequence& sequence, std::uint64_t round)
{
    Dice dice(round);
    std::vector<const FileEntry*> files;
    AppendFiles(sequence.items, 0, dice, files);
    return files;
}

PlayOrder::PlayOrder(Sequence list)
    : sequence(std::move(list)), changes(HasRandomGroup(sequence.items)), files(FilesInOrder(sequence))
{
}

const FileEntry& PlayOrder::At(std::uint64_t turn)
{
    if (changes && turn / files.size() != round) {
        round = turn / files.size();
        files = FilesInOrder(sequence, round);
    }
    return *files[static_cast<std::size_t>(turn % files.size())];
}

} // namespace vxsim
