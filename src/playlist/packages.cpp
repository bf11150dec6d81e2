// Opens packages and takes their files out.
#include "playlist/packages.h"

#include "playlist/localPath.h"
#include "playlist/recordFile.h"
#include "playlist/sequenceFile.h"
#include "util/littleEndian.h"
#include "util/pathText.h"
#include "util/text.h"

#include <vxsign/local.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace vxsign::playlist {
namespace {

constexpr std::size_t kPackageHead = 12;
constexpr std::size_t kFlatFields = 24; // of an entry, in front of its name
constexpr std::size_t kTreeFields = 8;  // likewise, in front of its schedules
constexpr std::size_t kNameSize = 64;
constexpr std::size_t kPackedSchedule = 20; // week mask, three bytes that nobody reads, begin, end
constexpr std::size_t kPiece = 4096;
constexpr std::size_t kSignPathSize = 64;
constexpr char kSequenceName[] = "SEQUENT.SYS";
constexpr char kSequencePath[] = "C:\\SEQUENT.SYS";

// The directory of a package, with its last separator. A plain name has none and stands for it itself.
std::string DirectoryOf(const std::string& path)
{
    std::size_t separator = LastOf(path, "/");
    if (separator == path.npos)
        separator = LastOf(path, "\\");
    return separator == path.npos ? path : path.substr(0, separator + 1);
}

struct Package
{
    vxApiConfig& config;
    PackageForm form;
    std::string directory;
    RecordFile file;
};

// One file of a package.
struct PackageEntry
{
    std::array<std::uint8_t, kFlatFields> fields{};
    std::uint64_t schedules = 0; // where they stand, in the tree form
    std::uint16_t scheduleCount = 0;
    std::string name;
    std::uint64_t data = 0; // where its contents stand

    char Folder() const { return static_cast<char>(fields[4]); }
    std::uint64_t End() const { return data + Load32(fields.data()); }
};

// False when the package ends inside the fields of the entry. Its contents may be cut short all the same.
bool ReadEntry(Package& package, std::uint64_t at, PackageEntry& entry)
{
    std::uint64_t nameAt = at + kFlatFields;
    if (package.form == PackageForm::kFlat)
        package.file.Read(at, entry.fields.data(), kFlatFields);
    else {
        package.file.Read(at, entry.fields.data(), kTreeFields);
        entry.schedules = at + kTreeFields;
        entry.scheduleCount = Load16(entry.fields.data() + 6);
        nameAt = entry.schedules + std::uint64_t{kPackedSchedule} * entry.scheduleCount;
    }
    char name[kNameSize];
    package.file.Read(nameAt, name, sizeof name);
    entry.name = FieldText(name, sizeof name);
    entry.data = nameAt + sizeof name;
    return entry.data <= package.file.Size();
}

bool Unpack(Package& package, const PackageEntry& entry, const std::string& local)
{
    File file = OpenFile(local.c_str(), "wb");
    bool written = file != nullptr;
    const std::uint64_t end = std::min(entry.End(), package.file.Size());
    for (std::uint64_t at = entry.data; at < end && written; at += kPiece) {
        std::array<std::uint8_t, kPiece> piece;
        const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(piece.size(), end - at));
        package.file.Read(at, piece.data(), size);
        written = WriteAll(file, piece.data(), size);
    }
    return CloseFile(file) && written;
}

bool WriteFlatRecord(const PackageEntry& entry, std::string_view shortName, const File& sequence)
{
    std::array<std::uint8_t, 16> beginAndEnd{};
    std::copy_n(entry.fields.begin() + 8, beginAndEnd.size(), beginAndEnd.begin());
    const auto record = sequence::MakeEntry('D', entry.fields[4], shortName, entry.fields[5], beginAndEnd);
    return WriteAll(sequence, record.data(), record.size());
}

// The record's path lies in the folder that the contents ask for, which may be another one than the entry's own.
bool WriteTreeRecord(Package& package, const PackageEntry& entry, const std::string& local, const File& sequence)
{
    char path[kSignPathSize] = {};
    vxMakeSignPath(local.c_str(), path, sizeof path, 'D', nullptr, nullptr);
    const std::string_view text(path);
    const auto record = sequence::MakeFileRecord(text, entry.scheduleCount, 1, 1, {}, text.size() + 1);
    bool written = WriteAll(sequence, record.data(), record.size());
    for (std::uint16_t i = 0; i < entry.scheduleCount && written; ++i) {
        std::array<std::uint8_t, kPackedSchedule> packed{};
        package.file.Read(entry.schedules + kPackedSchedule * i, packed.data(), packed.size());
        sequence::Schedule schedule{packed[0]};
        std::copy(packed.begin() + 4, packed.end(), schedule.begin() + 2);
        written = WriteAll(sequence, schedule.data(), schedule.size());
    }
    return written;
}

std::uint32_t Upload(const Package& package, const std::string& path, const std::string& local)
{
    const std::uint32_t result = vxWriteSpecFile(path.c_str(), local.c_str());
    if (result == VX_OK)
        ++package.config.progressPos;
    return result;
}

std::uint32_t SendEntry(Package& package, const PackageEntry& entry, const File& sequence)
{
    const std::string local = package.directory + entry.name;
    if (!StaysInside(entry.name) || !Unpack(package, entry, local))
        return VX_OPEN_FILE;
    char name[sequence::kShortNameSize] = {};
    vxGetShortFileName(local.c_str(), name, sizeof name);
    const std::string_view shortName = FieldText(name, sizeof name);
    const bool written = package.form == PackageForm::kFlat ? WriteFlatRecord(entry, shortName, sequence)
                                                            : WriteTreeRecord(package, entry, local, sequence);
    if (!written)
        return VX_CALL;
    return Upload(package, std::string("D:\\") + entry.Folder() + '\\' + std::string(shortName), local);
}

// Sends the files and makes the sequence file of them. Its count is put in last: it stays 0 when a file fails.
std::uint32_t Expand(Package& package, std::uint16_t most, const std::string& sequencePath)
{
    const std::uint8_t form = package.form == PackageForm::kFlat ? sequence::kFlatForm : sequence::kTreeForm;
    File file = OpenFile(sequencePath.c_str(), "wb");
    if (!file)
        return VX_OPEN_FILE;
    auto header = sequence::MakeHeader(form, 0, 0);
    if (!WriteAll(file, header.data(), header.size()))
        return VX_CALL;

    std::uint16_t count = 0;
    std::uint64_t at = kPackageHead;
    PackageEntry entry;
    while (count < most && ReadEntry(package, at, entry)) {
        const std::uint32_t result = SendEntry(package, entry, file);
        if (result != VX_OK)
            return result;
        at = entry.End();
        ++count;
    }
    header = sequence::MakeHeader(form, count, 0);
    const bool written = Seek(file, 0) && WriteAll(file, header.data(), header.size());
    return CloseFile(file) && written ? VX_OK : VX_CALL;
}

} // namespace

std::uint32_t SendPackage(vxApiConfig& config, const char* path, PackageForm form)
{
    File opened = OpenFile(path, "rb");
    if (!opened)
        return VX_OPEN_FILE;
    Package package{config, form, DirectoryOf(path), RecordFile(std::move(opened))};
    std::array<std::uint8_t, kPackageHead> head{};
    package.file.Read(0, head.data(), head.size());
    const bool good = std::memcmp(head.data(), form == PackageForm::kFlat ? "LP" : "MP", 2) == 0;
    const std::uint16_t count = good ? Load16(head.data() + 2) : std::uint16_t{0};
    config.progressTotal = static_cast<std::uint16_t>(count + 1);
    config.progressPos = 0;

    const std::string sequencePath = package.directory + kSequenceName;
    const std::uint32_t result = good ? Expand(package, count, sequencePath) : std::uint32_t{VX_OK};
    return result == VX_OK ? Upload(package, kSequencePath, sequencePath) : result;
}

} // namespace vxsign::playlist
