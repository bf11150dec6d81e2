#include "sim/files/transferCommands.h"

#include "sim/files/limits.h"
#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace vxsim {
namespace {

// Folders of bare names.
constexpr char kRoot[] = "";
constexpr char kFonts[] = "FONT";
constexpr char kTexts[] = "T";
constexpr char kStrings[] = "S";
constexpr char kPictures[] = "P";
constexpr char kArrays[] = "A";

char DriveOf(const Call& call, const FileLayout& layout)
{
    const std::size_t at = layout.path != kNoField ? layout.path : layout.drive;
    return at == kNoField ? 'C' : static_cast<char>(call.payload[at]);
}

// A full drive has a code of its own.
Code NoSpaceOn(char drive)
{
    const char letter = Upper(drive);
    if (letter < 'C' || letter > 'G')
        return Code::kNoSpace;
    return static_cast<Code>(static_cast<int>(Code::kNoSpaceOnC) + letter - 'C');
}

// A packet number, or the count of packets.
std::uint32_t NumberAt(const Call& call, const FileLayout& layout, std::size_t at)
{
    return layout.numberSize == kLongNumber ? Load32(call.payload, at) : Load16(call.payload, at);
}

FileRecord RecordOf(const Call& call, const FileLayout& layout)
{
    return {call.minor,
            call.payload,
            layout.number,
            layout.numberSize,
            Load16(call.payload, layout.chunkSize),
            NumberAt(call, layout, layout.number)};
}

} // namespace

TransferCommands::TransferCommands(const Drives& signDrives, const std::filesystem::path& keptFolder,
                                   const SignObservers& tell)
    : drives(signDrives), flash(keptFolder / "data-flash.bin"), observers(tell), receiver(keptFolder)
{
}

std::span<const CommandRow> TransferCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {1, 2, "read system file", 16, 0, kUnlogged, Run<&TransferCommands::Read, &kNamedRead, kRoot>,
         "gives `C:\\NAME` in chunks of 64 to 1280 bytes"},
        {1, 3, "read font file", 16, 0, kUnlogged, Run<&TransferCommands::Read, &kNamedRead, kFonts>,
         "likewise `C:\\FONT\\NAME`"},
        {1, 4, "read text", 20, 0, kUnlogged, Run<&TransferCommands::Read, &kOnDriveRead, kTexts>,
         "likewise `T\\NAME` of the drive named"},
        {1, 5, "read string", 20, 0, kUnlogged, Run<&TransferCommands::Read, &kOnDriveRead, kStrings>,
         "likewise `S\\NAME`"},
        {1, 6, "read picture", 20, 0, kUnlogged, Run<&TransferCommands::Read, &kOnDriveRead, kPictures>,
         "likewise `P\\NAME`"},
        {1, 7, "read array picture", 20, 0, kUnlogged, Run<&TransferCommands::Read, &kOnDriveRead, kArrays>,
         "likewise `A\\NAME`"},
        {1, 8, "read file", 8, 0, kUnlogged, Run<&TransferCommands::Read, &kPathRead, kRoot>,
         "likewise a file by its path"},
        {1, 9, "read play log", 4, 0, kUnlogged, Run<&TransferCommands::Read, &kPlayLogRead, kRoot>,
         "likewise `C:\\PLAY.LOG`, which the sign does not write itself"},
        {1, 17, "read file", 12, 0, kUnlogged, Run<&TransferCommands::Read, &kLongPathRead, kRoot>,
         "as 1, 8, with a packet number of 32 bits"},
        {1, 28, "read data flash size", 0, 0, kUnlogged, Run<&TransferCommands::TellFlashSize>,
         "page size and count of pages of the data flash"},
        {1, 29, "read data flash", 8, 0, kUnlogged, Run<&TransferCommands::Read, &kFlashRead, kRoot>,
         "gives the data flash, `sign/data-flash.bin`"},
        {1, 31, "read file", 12, 0, kUnlogged, Run<&TransferCommands::Read, &kLongPathRead, kRoot>, "as 1, 17"},

        {2, 2, "write system file", 24, 0, kUnlogged, Run<&TransferCommands::Write, &kNamedWrite, kRoot>,
         "takes `C:\\NAME`"},
        {2, 3, "write font file", 24, 0, kUnlogged, Run<&TransferCommands::Write, &kNamedWrite, kFonts>,
         "takes `C:\\FONT\\NAME`"},
        {2, 4, "write text", 24, 0, kUnlogged, Run<&TransferCommands::Write, &kOnDriveWrite, kTexts>,
         "takes `T\\NAME` of the drive named"},
        {2, 5, "write string", 24, 0, kUnlogged, Run<&TransferCommands::Write, &kOnDriveWrite, kStrings>,
         "takes `S\\NAME`"},
        {2, 6, "write picture", 24, 0, kUnlogged, Run<&TransferCommands::Write, &kOnDriveWrite, kPictures>,
         "takes `P\\NAME`"},
        {2, 7, "write array picture", 24, 0, kUnlogged, Run<&TransferCommands::Write, &kOnDriveWrite, kArrays>,
         "takes `A\\NAME`"},
        {2, 8, "write file", 12, 0, kUnlogged, Run<&TransferCommands::Write, &kPathWrite, kRoot>,
         "takes a file by its path"},
        {2, 13, "write file", 16, 0, kUnlogged, Run<&TransferCommands::Write, &kWindowWrite, kRoot>,
         "as 2, 8, with packets in any order; acknowledged by the code 36864"},
        {2, 19, "write data flash", 16, 0, kUnlogged, Run<&TransferCommands::Write, &kFlashWrite, kRoot>,
         "takes the data flash, below 16 MB"},
    };
    return kRows;
}

std::optional<std::filesystem::path> TransferCommands::Locate(const Call& call, const FileLayout& layout,
                                                              const char* folder) const
{
    if (layout.isFlash)
        return flash;
    if (layout.path != kNoField)
        return drives.Resolve(TextAt(call.payload, layout.path));
    if (layout.name != kNoField)
        return drives.FileIn(DriveOf(call, layout), folder,
                             TextAt(call.payload.first(layout.name + kNameSize), layout.name));
    return drives.FileIn('C', "", "PLAY.LOG");
}

Reply TransferCommands::Write(const Call& call, const FileLayout* layout, const char* folder)
{
    if (call.payload.size() > kMaxRecord)
        return Reply::WithCode(Code::kBadLength);
    FileChunk chunk;
    chunk.arrival = call;
    chunk.record = RecordOf(call, *layout);
    chunk.fileSize = Load32(call.payload, layout->fileSize);
    chunk.total = NumberAt(call, *layout, layout->total);
    chunk.data = call.extended;
    chunk.anyOrder = layout->anyOrder;
    if (layout->isFlash) {
        if (chunk.fileSize > kFlashLimit)
            return Reply::WithCode(Code::kNoSpace);
        chunk.padUnit = kFlashPage;
    }
    const auto outcome = receiver.Take(chunk, [&] {
        const auto file = Locate(call, *layout, folder);
        return file && drives.IsStandardFolder(*file) ? std::nullopt : file;
    });
    if (outcome.finished)
        Tell(*outcome.finished);
    if (outcome.code == Code::kNoSpace && !layout->isFlash)
        return Reply::WithCode(NoSpaceOn(DriveOf(call, *layout)));
    if (outcome.code == Code::kOk && layout->anyOrder) // a host with packets in flight looks for the code
        return Reply::WithCode(Code::kProcessOk);
    return Reply::WithCode(outcome.code);
}

void TransferCommands::Tell(const std::filesystem::path& file)
{
    sender.Forget();
    observers.Tell(&SignEvents::fileWritten, file);
    if (file == drives.SequenceFile())
        observers.Tell(&SignEvents::sequenceWritten);
}

Reply TransferCommands::Read(const Call& call, const FileLayout* layout, const char* folder)
{
    if (call.payload.size() > kMaxRecord)
        return Reply::WithCode(Code::kBadLength);
    auto piece = sender.Give(RecordOf(call, *layout), [&] { return Locate(call, *layout, folder); });
    if (piece.code != Code::kOk)
        return Reply::WithCode(piece.code);
    // The old commands tell sizes up to 65535 in 16 bits; the path commands tell all sizes in 32 bits at offset 4.
    Reply reply;
    if (layout->path == kNoField && piece.fileSize <= std::numeric_limits<std::uint16_t>::max()) {
        reply.payload.resize(4);
        Store16(reply.payload, 0, static_cast<std::uint16_t>(piece.fileSize));
    } else {
        reply.payload.resize(8);
        Store32(reply.payload, 4, piece.fileSize);
    }
    reply.extended = std::move(piece.data);
    return reply;
}

Reply TransferCommands::TellFlashSize(const Call&)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(flash, error);
    const auto pages = error ? 0 : std::min(size, std::uintmax_t{kFlashLimit}) / kFlashPage;
    std::array<std::uint8_t, 12> record{};
    Store16(record, 0, kFlashPage);
    Store16(record, 2, static_cast<std::uint16_t>(pages));
    return Reply::WithExtended(record);
}

} // namespace vxsim
