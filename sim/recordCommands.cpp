#include "sim/recordCommands.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"

#include <cstddef>

namespace vxsim {
namespace {

constexpr std::size_t kIdentitySize = 32;
constexpr std::size_t kMostUrgent = 1024;
constexpr std::size_t kMostChecksums = 1024;
constexpr std::size_t kChecksumName = 32;
constexpr std::size_t kChecksumSize = kChecksumName + 6;

// Content from drive C, plain appearance and disappearance, three seconds of stay.
std::vector<std::uint8_t> InitialDisplayStyle()
{
    std::vector<std::uint8_t> style(kDisplayStyleSize);
    style[2] = 'C';
    style[11] = '0';
    style[12] = '0';
    style[14] = 3;
    Store32(style, 16, 3);
    return style;
}

// The serial number with its length in front, the hardware address from byte 16 on.
std::vector<std::uint8_t> InitialIdentity()
{
    return {11, 'V', 'X', 'S', 'I', 'M', '0', '0', '0', '0', '0', '1', 0, 0, 0, 0, // the number ends at byte 11
            2,  0,   0,   0,   0,   1,   0,   0,   0,   0,   0,   0,   0, 0, 0, 0};
}

} // namespace

RecordCommands::RecordCommands(const std::filesystem::path& keptFolder, FaceLight& faceLight, const SignObservers& tell)
    : light(faceLight), observers(tell), displayStyle(keptFolder / "display-style.bin", InitialDisplayStyle()),
      identity(keptFolder / "identity.bin", InitialIdentity())
{
}

std::span<const CommandRow> RecordCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {1, 12, "read identity", 0, 0, kUnlogged, Run<&RecordCommands::TellIdentity>, "the identity"},
        {1, 16, "read display style", 0, 0, kUnlogged, Run<&RecordCommands::TellDisplayStyle>,
         "the default display style"},
        {1, 22, "read brightness", 0, 0, kUnlogged, Run<&RecordCommands::TellBrightness>,
         "the brightness block: four bytes as payload, eight as extended part"},
        {2, 9, "write urgent message", 0, 0, kLogged, Run<&RecordCommands::KeepUrgentMessage>,
         "takes an urgent message of up to 1024 bytes"},
        {2, 10, "write brightness block", kBrightnessSize, 0, kLogged, Run<&RecordCommands::SetBrightness>,
         "takes the brightness block"},
        {2, 11, "write identity", 0, kIdentitySize, kLogged, Run<&RecordCommands::SetIdentity>, "takes the identity"},
        {2, 12, "write display style", kDisplayStyleSize, 0, kLogged, Run<&RecordCommands::SetDisplayStyle>,
         "takes the default display style"},
        {2, 14, "write checksum", kChecksumSize, 0, kUnlogged, Run<&RecordCommands::KeepChecksum>,
         "takes the size and checksum of up to 1024 file names"},
        {14, kAnyMinor, "tube data", 0, 0, kUnlogged, Run<&RecordCommands::KeepTubeData>,
         "keeps the data, the last of each minor"},
    };
    return kRows;
}

std::span<const std::uint8_t, kDisplayStyleSize> RecordCommands::DisplayStyle() const
{
    return displayStyle.Bytes().first<kDisplayStyleSize>();
}

Reply RecordCommands::TellIdentity(const Call&)
{
    return Reply::WithPayload(identity.Bytes());
}

Reply RecordCommands::TellDisplayStyle(const Call&)
{
    return Reply::WithPayload(displayStyle.Bytes());
}

Reply RecordCommands::TellBrightness(const Call&)
{
    Reply reply = Reply::WithPayload(light.Block().first(4));
    const auto rest = light.Block().subspan(4);
    reply.extended.assign(rest.begin(), rest.end());
    return reply;
}

Reply RecordCommands::KeepUrgentMessage(const Call& call)
{
    if (call.extended.size() > kMostUrgent)
        return Reply::WithCode(Code::kUrgentTooLong);
    urgentMessage.assign(call.extended.begin(), call.extended.end());
    return Reply::Done();
}

Reply RecordCommands::SetBrightness(const Call& call)
{
    return Reply::WithCode(light.SetBlock(call.payload) ? Code::kOk : Code::kWriteFailed);
}

Reply RecordCommands::SetIdentity(const Call& call)
{
    return Reply::WithCode(identity.Set(call.extended) ? Code::kOk : Code::kWriteFailed);
}

Reply RecordCommands::SetDisplayStyle(const Call& call)
{
    if (!displayStyle.Set(call.payload))
        return Reply::WithCode(Code::kWriteFailed);
    observers.Tell(&SignEvents::displayStyleSet, DisplayStyle());
    return Reply::Done();
}

Reply RecordCommands::KeepChecksum(const Call& call)
{
    const std::string name(TextAt(call.payload.first(kChecksumName), 0));
    if (checksums.size() == kMostChecksums && !checksums.contains(name))
        return Reply::WithCode(Code::kNoSpace);
    checksums[name] = {Load32(call.payload, kChecksumName), Load16(call.payload, kChecksumName + 4)};
    return Reply::Done();
}

Reply RecordCommands::KeepTubeData(const Call& call)
{
    auto& data = tubeData[call.minor];
    data.assign(call.payload.begin(), call.payload.end());
    data.insert(data.end(), call.extended.begin(), call.extended.end());
    return Reply::Done();
}

} // namespace vxsim
