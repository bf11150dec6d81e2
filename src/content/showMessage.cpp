// Quick show of one message: a text or a picture under a fixed name, and the sequence file that plays it.
#include "content/nmg.h"
#include "content/quickShow.h"
#include "playlist/sequenceFile.h"
#include "thread/tempFile.h"
#include "util/file.h"
#include "util/localCall.h"

#include <vxsign/quickshow.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

#include <string>

namespace {

using namespace vxsign;
using namespace vxsign::quickShow;

constexpr char kFolder = 'T';
constexpr char kTextName[] = "QMSG.Nmg";
constexpr char kPictureName[] = "PMSG.Nmg";

struct Text
{
    const std::uint8_t* bytes;
    std::uint32_t size;
    nmg::Attributes attributes;

    std::span<const std::uint8_t> All() const { return {bytes, size}; }
};

// Brings the style's content source to that of the drive. What the sign answers does not count.
void WriteContentSource(Target& target)
{
    std::uint8_t& source = target.style[style::kContentSource];
    if (source == target.contentSource)
        return;
    source = target.contentSource;
    vxWriteDefDisplayStyle(target.style.data());
}

std::uint32_t SendMessage(const Target& target, const char* name, const TempFile& message)
{
    const std::string path = std::string{target.drive} + ":\\" + kFolder + "\\" + name;
    return vxWriteSpecFile(path.c_str(), message.Path());
}

// Makes the sign play the one message.
std::uint32_t Play(const Target& target, const char* name, const TempFile& list, bool sendSequence)
{
    File file = OpenFile(list.Path(), "wb");
    if (!file)
        return VX_OPEN_FILE;
    const sequence::Header header = sequence::MakeHeader(sequence::kFlatForm, 1, 0);
    const sequence::Entry entry = sequence::MakeEntry(target.drive, kFolder, name);
    if (!WriteAll(file, header.data(), header.size()) || !WriteAll(file, entry.data(), entry.size()) ||
        !CloseFile(file))
        return VX_CALL;
    return sendSequence ? vxWriteSystemFile("SEQUENT.SYS", list.Path()) : static_cast<std::uint32_t>(VX_OK);
}

std::uint32_t ShowText(const Text& text, const Connection& connection, std::uint32_t toE, int sendSequence,
                       bool staysWhenRefused)
{
    if (text.bytes == nullptr || !connection.Complete())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] {
        // Named before the new configuration comes: the thread's former onTempPath still counts.
        TempFile message("nmg");
        const TempFile list("sys");
        std::uint32_t result = nmg::WriteText(message.Path(), nmg::Form::kTransmission, text.attributes, text.All());
        if (result != VX_OK)
            return result;
        message.Stay(true); // when the sign cannot be reached
        std::optional<Target> target;
        result = Reach(connection, toE, target);
        if (result != VX_OK || !target)
            return result;
        WriteContentSource(*target);
        message.Stay(staysWhenRefused);
        result = SendMessage(*target, kTextName, message);
        if (result != VX_OK)
            return result;
        message.Stay(false);
        return Play(*target, kTextName, list, sendSequence != 0);
    });
}

std::uint32_t ShowPicture(const std::uint8_t* picture, std::uint32_t size, std::uint32_t mode, std::uint32_t staySec,
                          const Connection& connection, std::uint32_t toE)
{
    if (picture == nullptr || !connection.Complete())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] {
        std::optional<Target> target;
        std::uint32_t result = Reach(connection, toE, target);
        if (result != VX_OK || !target)
            return result;
        WriteContentSource(*target);
        const TempFile message("nmg");
        const TempFile list("sys");
        result = nmg::WritePicture(message.Path(), nmg::Form::kTransmission, {mode, staySec}, {picture, size});
        if (result == VX_OK)
            result = SendMessage(*target, kPictureName, message);
        return result == VX_OK ? Play(*target, kPictureName, list, true) : result;
    });
}

} // namespace

std::uint32_t vxShowMsg(const std::uint8_t* text, std::uint32_t size, std::uint32_t font, std::uint32_t colour,
                        std::uint32_t mode, std::uint32_t staySec, const char* host, std::uint32_t port,
                        std::uint32_t toE, int sendSequence)
{
    return ShowText({text, size, {mode, staySec, font, colour}}, {host, port}, toE, sendSequence, true);
}

std::uint32_t vxShowMsgEx(const std::uint8_t* text, std::uint32_t size, std::uint32_t font, std::uint32_t colour,
                          std::uint32_t mode, std::uint32_t staySec, const char* host, std::uint32_t port,
                          std::uint32_t toE, int sendSequence, std::uint32_t kind, const char* serialName,
                          std::uint32_t baudRate, std::uint16_t destinationAddress)
{
    return ShowText({text, size, {mode, staySec, font, colour}},
                    {host, port, kind, serialName, baudRate, destinationAddress}, toE, sendSequence, false);
}

std::uint32_t vxShowMsgTimeout(const std::uint8_t* text, std::uint32_t size, std::uint32_t font, std::uint32_t colour,
                               std::uint32_t mode, std::uint32_t staySec, const char* host, std::uint32_t port,
                               std::uint32_t toE, int sendSequence, std::uint8_t retries, std::uint32_t timeoutMs,
                               std::uint32_t kind, const char* serialName, std::uint32_t baudRate,
                               std::uint16_t destinationAddress)
{
    return ShowText({text, size, {mode, staySec, font, colour}},
                    {host, port, kind, serialName, baudRate, destinationAddress, retries, timeoutMs}, toE, sendSequence,
                    false);
}

std::uint32_t vxShowPic(const std::uint8_t* buf, std::uint32_t size, std::uint32_t mode, std::uint32_t staySec,
                        const char* host, std::uint32_t port, std::uint32_t toE)
{
    return ShowPicture(buf, size, mode, staySec, {host, port}, toE);
}

std::uint32_t vxShowPicEx(const std::uint8_t* buf, std::uint32_t size, std::uint32_t mode, std::uint32_t staySec,
                          const char* host, std::uint32_t port, std::uint32_t toE, std::uint32_t kind,
                          const char* serialName, std::uint32_t baudRate, std::uint16_t destinationAddress)
{
    return ShowPicture(buf, size, mode, staySec, {host, port, kind, serialName, baudRate, destinationAddress}, toE);
}
