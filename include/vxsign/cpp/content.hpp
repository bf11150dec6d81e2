// Content on the face at once: it goes to the sign, and a sequence file that plays it.
#ifndef VXSIGN_CPP_CONTENT_HPP
#define VXSIGN_CPP_CONTENT_HPP

#include <vxsign/content.h>
#include <vxsign/cpp/bytes.hpp>
#include <vxsign/cpp/codes.hpp>
#include <vxsign/cpp/local.hpp>
#include <vxsign/cpp/view.hpp>
#include <vxsign/properties.h>
#include <vxsign/write.h>

#include <array>
#include <vector>

namespace vxsign::detail {

// The drive that content goes to: F where the sign has it, else D.
inline char DriveOfSign()
{
    std::uint8_t hasDriveF = 0;
    vxGetProperty(&hasDriveF, sizeof hasDriveF, VX_PROPERTY_HAS_DRIVE_F);
    return hasDriveF != 0 ? 'F' : 'D';
}

// The sign's default style, which has the mode and the stay time of a list, and where content plays from.
class Style
{
public:
    Style()
    {
        vxGetProperty(bytes.data(), static_cast<std::uint32_t>(bytes.size()), VX_PROPERTY_DISPLAY_STYLE);
        wanted = bytes;
        wanted[kContentSource] = 'C';
    }

    void SetModeAndStay(std::uint32_t mode, std::uint32_t staySeconds)
    {
        wanted[kEntryMode] = static_cast<std::uint8_t>(mode);
        wanted[kExitMode] = static_cast<std::uint8_t>(mode);
        const bool isLong = bytes[kShortStay] == kLongStay;
        const std::uint32_t stay = isLong ? Load32(&bytes[kStay]) : bytes[kShortStay];
        if (stay == staySeconds)
            return;
        wanted[kShortStay] = kLongStay;
        Store(&wanted[kStay], staySeconds, 4);
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
        Store(&bytes[4], ++count, 2);
    }

    void Send() const
    {
        const TempFolder folder;
        const std::string local = folder.File("sequence");
        WriteLocal(local, bytes.data(), bytes.size());
        Check(vxWriteSystemFile("SEQUENT.SYS", local.c_str()));
    }

private:
    std::vector<std::uint8_t> bytes{'S', 'Q', 4, 0, 0, 0, 0, 0};
    std::uint32_t count = 0;
};

inline void ShowMessage(const std::string& local, const std::string& name)
{
    Check(vxInitProperty());
    const char drive = DriveOfSign();
    Style().Write();
    Check(vxWriteSpecFile((std::string(1, drive) + ":\\T\\" + name).c_str(), local.c_str()));
    Sequence sequence;
    sequence.Add(drive, 'T', name);
    sequence.Send();
}

// "\n" and "\r\n" break the line, for which the sign has a return.
inline std::string WithLineBreaks(std::string_view text)
{
    std::string broken;
    for (const char character : text)
        if (character != '\n')
            broken += character;
        else if (broken.empty() || broken.back() != '\r')
            broken += '\r';
    return broken;
}

// What the codes of a text mean is looked at ahead of the first packet.
struct TextStyle
{
    TextStyle(std::string_view colourText, std::string_view fontText, std::string_view modeText)
        : colour(ParseColour(colourText)), font(ParseFont(fontText)), mode(ParseMode(modeText))
    {
    }

    std::uint32_t colour;
    std::uint32_t font;
    std::uint32_t mode;
};

// A text in the encoding of the sign.
inline void ShowText(const std::string& text, const TextStyle& style, std::uint32_t staySeconds)
{
    const TempFolder folder;
    const std::string local = folder.File("message");
    if (text.empty())
        Refuse("the text is empty");
    Check(vxShowMsgToNmg(reinterpret_cast<const std::uint8_t*>(text.data()), static_cast<std::uint32_t>(text.size()),
                         local.c_str(), static_cast<int>(style.font), style.colour, style.mode, staySeconds));
    // It goes over with other first bytes than a message file has.
    std::fstream(local, std::ios::binary | std::ios::in | std::ios::out) << "\x01Z00\x02\x41\x41";
    ShowMessage(local, "QMSG.Nmg");
}

inline void ShowPicture(const fs::path& picture, std::uint32_t mode, std::uint32_t staySeconds)
{
    const TempFolder folder;
    const std::string local = folder.File("message");
    Check(vxShowBmpToNmg(LocalFile(picture).c_str(), local.c_str(), mode, staySeconds));
    ShowMessage(local, "PMSG.Nmg");
}

// The folder and the short name that a local file gets on the sign, and with them its path.
struct Place
{
    Place(const std::string& local, char drive)
    {
        char name[13] = {}; // and an end
        char text[64] = {};
        Check(vxMakeSignPath(local.c_str(), text, sizeof text, static_cast<std::uint8_t>(drive), &folder, name));
        shortName = name;
        path = text;
    }

    std::uint8_t folder = 0;
    std::string shortName;
    std::string path;
};

inline void ShowFiles(View<fs::path> files, std::uint32_t mode, std::uint32_t staySeconds)
{
    constexpr std::size_t kMost = 128;
    if (files.size() == 0 || files.size() > kMost)
        Refuse("a list has 1 to " + std::to_string(kMost) + " files");
    for (const fs::path& file : files)
        LocalFile(file);
    Check(vxInitProperty());
    const char drive = DriveOfSign();
    Style style;
    style.SetModeAndStay(mode, staySeconds);
    style.Write();
    Sequence sequence;
    for (const fs::path& file : files) {
        const std::string local = LocalFile(file);
        const Place place(local, drive);
        Check(vxWriteSpecFile(place.path.c_str(), local.c_str()));
        sequence.Add(drive, place.folder, place.shortName);
    }
    sequence.Send();
}

} // namespace vxsign::detail

#endif
