// The exports of major 122.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"
#include "vxComm/shared/joined.h"

#include <vxsign/player.h>

using namespace vxsign;

static_assert(sizeof(ProjectExtra) == 20);

namespace {

constexpr std::size_t kLongestText = 255;
constexpr std::uint8_t kLastSwitchMode = 2;

// A text of the player: no terminator, and a null has no bytes.
Block Text(const std::uint8_t* text, std::size_t longest = kLongestText)
{
    return text != nullptr ? Bytes(text, ::strnlen(reinterpret_cast<const char*>(text), longest)) : Block{};
}

Block WholeText(const std::uint8_t* text)
{
    return Text(text, kRequestSize); // what is as long as that fits no request
}

std::uint16_t Length(const Block& text)
{
    return static_cast<std::uint16_t>(text.bytes.size());
}

// Plays what the texts name. The last field is the length of the fourth of them, or a flag in its place.
std::uint32_t Play(std::uint8_t minor, const std::uint8_t* text1, const std::uint8_t* text2, const std::uint8_t* text3,
                   const Block& fourth, std::uint16_t last)
{
    return Call<vxPlayerLED>(Required(text1, text2), [&](vxPlayerLED& sign) {
        const Block first = Text(text1);
        const Block second = Text(text2);
        const Block third = Text(text3);
        return SendOn(sign, {122, minor}, Payload(Fields<8>(Length(first), Length(second), Length(third), last)),
                      Extended(Joined(first, second, third, fourth)));
    });
}

} // namespace

std::uint32_t vxCoreGetFileProperty(const std::uint8_t* name, std::uint8_t* out, std::uint32_t outLength)
{
    return Call<vxPlayerLED>(Required(out) && outLength != 0, [=](vxPlayerLED& sign) {
        const std::uint32_t result = SendOn(sign, {122, 1}, Payload(Fields<4>()), Extended(WholeText(name)));
        if (result == VX_OK)
            sign.Reply().Copy(out, 0, std::min<std::size_t>(outLength, sign.Reply().Extended().size()));
        return result;
    });
}

std::uint32_t vxCorePlayProgram(const std::uint8_t* text1, const std::uint8_t* text2, const std::uint8_t* text3,
                                std::uint8_t flag)
{
    return Play(2, text1, text2, text3, {}, flag);
}

std::uint32_t vxCorePlayWindowProgram(const std::uint8_t* text1, const std::uint8_t* text2, const std::uint8_t* text3,
                                      const std::uint8_t* text4)
{
    const Block fourth = Text(text4);
    return Play(2, text1, text2, text3, fourth, Length(fourth));
}

std::uint32_t vxCoreStopPlay(const std::uint8_t* name)
{
    const char* const text = reinterpret_cast<const char*>(name);
    const auto length = static_cast<std::uint8_t>(TextLength(text));
    return Send<vxPlayerLED>({122, 5}, Payload(Fields<8>(length)), Extended(Bytes(name, length)));
}

std::uint32_t vxCoreWinMode(std::uint8_t mode, const void* data, std::uint32_t length)
{
    return Send<vxPlayerLED>({122, 6}, Payload(Fields<8>(mode)), Extended(Bytes(data, data != nullptr ? length : 0)));
}

std::uint32_t vxCoreProjectInfo(const std::uint8_t* name, std::uint16_t value1, std::uint16_t value2)
{
    const Block text = Text(name);
    return Send<vxPlayerLED>({122, 7}, Payload(Fields<8>(Length(text), value1, value2)), Extended(text));
}

std::uint32_t vxCorePrjSyncProgress(std::uint8_t* out1, std::uint8_t* out2)
{
    return Send<vxPlayerLED>({122, 8}, Payload(Fields<4>()), Reply(Out<0>(out1), Out<1>(out2)));
}

std::uint32_t vxCoreGetPlayInfo(std::uint8_t* out, std::uint32_t outLength)
{
    return Call<vxPlayerLED>(Required(out) && outLength != 0, [=](vxPlayerLED& sign) {
        const std::uint32_t result = SendOn(sign, {122, 9}, Payload(Fields<4>()));
        if (result == VX_OK) {
            const ReplyView reply = sign.Reply();
            reply.Copy(out, 0, std::min<std::size_t>(outLength, reply.PayloadLength() + reply.Extended().size()));
        }
        return result;
    });
}

std::uint32_t vxCoreSwitchProgram(const std::uint8_t* name, std::uint8_t mode)
{
    return Call<vxPlayerLED>(Required(name) && mode <= kLastSwitchMode, [=](vxPlayerLED& sign) {
        const Block text = Text(name);
        return SendOn(sign, {122, 10}, Payload(Fields<8>(mode, Length(text))), Extended(text));
    });
}

std::uint32_t vxCoreSwitchMode(std::uint8_t mode)
{
    return Call<vxPlayerLED>(mode <= kLastSwitchMode, [=](vxPlayerLED& sign) {
        return SendOn(sign, {122, 11}, Payload(Fields<4>(mode)));
    });
}

std::uint32_t vxCorePlayEmergencyProgram(const std::uint8_t* text1, const std::uint8_t* text2,
                                         const std::uint8_t* text3)
{
    return Play(12, text1, text2, text3, {}, 0);
}

std::uint32_t vxCoreStopEmergencyProgram()
{
    return Send<vxPlayerLED>({122, 13});
}

std::uint32_t vxCoreProjectInfoEx(const std::uint8_t* name, std::uint16_t value1, std::uint16_t value2,
                                  const ProjectExtra* extra)
{
    const Block text = Text(name);
    return Send<vxPlayerLED>({122, 16},
                             Payload(Fields<28>(Length(text), value1, value2, Zeros<2>(), Copy<sizeof *extra>{extra})),
                             Extended(text));
}
