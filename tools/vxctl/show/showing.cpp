// Sends content and a sequence file that plays it. The library's quick show does the same with a connection of its own,
// which has no callbacks: nothing could tell how far it is.
#include "vxctl/show/showing.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/files/readBack.h"
#include "vxctl/files/sending.h"
#include "vxctl/show/showOptions.h"

#include <vxsign/local.h>
#include <vxsign/properties.h>
#include <vxsign/write.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <span>

namespace vxctl {

namespace {

// The sign's default style, which has the mode and the stay time of a list, and where content plays from.
class Style
{
public:
    explicit Style(char drive)
    {
        vxGetProperty(bytes.data(), static_cast<std::uint32_t>(bytes.size()), VX_PROPERTY_DISPLAY_STYLE);
        wanted = bytes;
        wanted[kContentSource] = drive == 'E' ? 'E' : 'C';
    }

    void SetModeAndStay(std::uint32_t mode, std::uint32_t staySeconds)
    {
        const auto code = static_cast<std::uint8_t>(mode);
        const bool isLong = bytes[kShortStay] == kLongStay;
        const std::uint32_t stay = isLong ? Load32(bytes, kStay) : bytes[kShortStay];
        wanted[kEntryMode] = code;
        wanted[kExitMode] = code;
        if (stay == staySeconds && wanted == bytes)
            return;
        wanted[kShortStay] = kLongStay;
        Store(std::span(wanted).subspan(kStay, 4), staySeconds);
    }

    // What the sign answers does not count.
    void Write() const
    {
        if (wanted != bytes)
            IsDone(vxWriteDefDisplayStyle(wanted.data()));
    }

private:
    static constexpr std::size_t kContentSource = 2;
    static constexpr std::size_t kEntryMode = 11;
    static constexpr std::size_t kExitMode = 12;
    static constexpr std::size_t kShortStay = 14;
    static constexpr std::size_t kStay = 16; // in 32 bits, when the short one is 255
    static constexpr std::uint8_t kLongStay = 255;

    std::array<std::uint8_t, 52> bytes{};
    std::array<std::uint8_t, 52> wanted{};
};

// The sequence file, in its flat form.
class Sequence
{
public:
    void Add(char drive, std::uint8_t folder, const std::string& shortName)
    {
        constexpr std::size_t kNameAt = 24;
        constexpr std::size_t kNameSize = 12;
        std::array<std::uint8_t, 36> entry{static_cast<std::uint8_t>(drive), folder, 15, 255}; // without schedule
        std::copy_n(shortName.begin(), std::min(shortName.size(), kNameSize), entry.begin() + kNameAt);
        bytes.insert(bytes.end(), entry.begin(), entry.end());
        Store(std::span(bytes).subspan(4, 2), ++count);
    }

    void Send(Session& session) const
    {
        session.leftOver = "the files are on the sign, but do not play: show them once more";
        const TemporaryFolder folder;
        const std::string local = folder.Path() + "sequence";
        std::ofstream file(local, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        file.close();
        Check(file ? vxWriteSystemFile("SEQUENT.SYS", local.c_str()) : std::uint32_t{VX_OPEN_FILE});
        session.leftOver.clear();
    }

private:
    std::vector<std::uint8_t> bytes{'S', 'Q', 4, 0, 0, 0, 0, 0};
    std::uint32_t count = 0;
};

// The drive that content goes to.
char DriveFor(const Args& args)
{
    Check(vxInitProperty());
    return ToE(args) != 0 ? 'E' : DriveOfSign();
}

} // namespace

std::string ShowMessage(Session& session, const Args& args, const std::string& local, const std::string& name,
                        bool isPlayed)
{
    const char drive = DriveFor(args);
    Style(drive).Write();
    std::string path = std::string(1, drive) + ":\\T\\" + name;
    Check(SendFile(session, path, local, vxWriteSpecFile));
    Sequence sequence;
    sequence.Add(drive, 'T', name);
    if (isPlayed)
        sequence.Send(session);
    return path;
}

void ShowList(Session& session, const Args& args, const std::vector<std::string>& files, Parts parts)
{
    const char drive = DriveFor(args);
    Style style(drive);
    style.SetModeAndStay(ParseMode(args.Text("--mode")), args.Number("--stay"));
    style.Write();
    Sequence sequence;
    for (const std::string& local : files) {
        std::array<char, 64> path{};
        std::array<char, 13> shortName{}; // and an end
        std::uint8_t folder = 0;
        Check(vxMakeSignPath(local.c_str(), path.data(), path.size(), static_cast<std::uint8_t>(drive), &folder,
                             shortName.data()));
        if (parts != Parts::kSequenceAlone)
            Check(SendFile(session, path.data(), local, vxWriteSpecFile));
        sequence.Add(drive, folder, shortName.data());
    }
    if (parts != Parts::kFilesAlone)
        sequence.Send(session);
}

} // namespace vxctl
