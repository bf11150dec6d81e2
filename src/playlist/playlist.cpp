// Makes the file records of a play list and takes them over.
#include "playlist/playlist.h"

#include <cstdlib>

static_assert(sizeof(SCH) == 18 && offsetof(SCH, b_year) == 2 && offsetof(SCH, e_year) == 10);
static_assert(sizeof(VXPLAYLIST_FILE_INFO) == 5384);
static_assert(offsetof(VXPLAYLIST_FILE_INFO, schCount) == 256 && offsetof(VXPLAYLIST_FILE_INFO, Drive) == 258);
static_assert(offsetof(VXPLAYLIST_FILE_INFO, PicStaySec) == 260 && offsetof(VXPLAYLIST_FILE_INFO, SCH) == 264);
static_assert(offsetof(VXPLAYLIST_FILE_INFO, pcFileName) == 4872);
static_assert(sizeof(VXPLAYLIST_ITEM) == 257);

namespace vxsign::playlist {
namespace {

struct Free
{
    void operator()(VXPLAYLIST_FILE_INFO* record) const noexcept { std::free(record); }
};
using Record = std::unique_ptr<VXPLAYLIST_FILE_INFO, Free>;

} // namespace

FilePointer MakeFile()
{
    Record record(static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO))));
    FilePointer file = TakeFile(record.get());
    static_cast<void>(record.release());
    return file;
}

FilePointer TakeFile(VXPLAYLIST_FILE_INFO* record)
{
    const auto holder = std::make_shared<Record>();
    holder->reset(record);
    return {holder, record};
}

} // namespace vxsign::playlist
