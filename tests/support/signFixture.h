// The virtual sign as its own tests have it: a folder, its face, raw packets, and time as they will.
#pragma once

#include "sim/protocol/frame.h"
#include "sim/stage/stage.h"
#include "sim/state/condition.h"
#include "sim/virtualSign.h"
#include "support/packets.h"
#include "support/playFiles.h"
#include "support/tempFolder.h"

#include <memory>
#include <tuple>

namespace vxsign::test {

inline constexpr auto& Text = FromText;

// A text with its end, as paths travel.
inline Bytes Path(std::string_view text)
{
    return Text(text) + Bytes{0};
}

// Lays out a sum-checked request from its parts, as a host would. `id` tells the requests apart.
inline Bytes MakeRequest(unsigned major, unsigned minor, Bytes payload, const Bytes& extended = {}, std::uint8_t id = 1,
                         std::uint16_t destination = 0)
{
    payload.resize((payload.size() + 3) / 4 * 4);
    const auto byte = [](std::size_t value) { return static_cast<std::uint8_t>(value); };
    Bytes packet = Bytes{0x55, 0xA7, 0, 0} + Little(static_cast<std::uint32_t>(extended.size()), 2) + Bytes{0, 0} +
                   Little(destination, 2) + Bytes{id, 0, byte(major), byte(minor), byte(payload.size() / 4), 0} +
                   payload + extended;
    packet[2] = byte(SumField(packet));
    packet[3] = byte(SumField(packet) >> 8);
    return packet;
}

// The code of a reply: 0 for status 0, else what stands in front of the payload.
inline unsigned CodeOf(const Bytes& reply)
{
    return reply.size() < 16 ? 0xFFFFFFFF : reply[15] == 0 ? 0U : Packet{reply}.Word(16);
}

inline Bytes PayloadOf(const Bytes& reply)
{
    return Packet{reply}.Payload();
}

inline Bytes ExtendedOf(const Bytes& reply)
{
    return Packet{reply}.Extended();
}

// A request in short; none at all as {}.
struct Request
{
    int major = -1;
    unsigned minor = 0;
    Bytes payload = {};
    Bytes extended = {};
    std::uint16_t destination = 0;
};

class SignTest : public testing::Test
{
protected:
    SignTest() { Restart("CDEF"); }

    void Restart(const std::string& drives)
    {
        sign.reset();
        settings.folder = folder.path;
        settings.drives = drives;
        sign = std::make_unique<vxsim::VirtualSign>(settings);
    }

    Bytes Ask(unsigned major, unsigned minor, const Bytes& payload = {}, const Bytes& extended = {},
              std::uint16_t destination = 0)
    {
        return sign->Answer(MakeRequest(major, minor, payload, extended, ++id, destination), arrival);
    }
    Bytes AskAt(std::uint64_t nowMs, unsigned major, unsigned minor, const Bytes& payload = {},
                const Bytes& extended = {})
    {
        arrival.nowMs = nowMs;
        return Ask(major, minor, payload, extended);
    }

    // Each of the requests is answered with that code.
    void Expect(unsigned code, const std::vector<Request>& requests)
    {
        for (const Request& request : requests)
            EXPECT_EQ(CodeOf(Ask(static_cast<unsigned>(request.major), request.minor, request.payload, request.extended,
                                 request.destination)),
                      code)
                << "request " << request.major << '.' << request.minor << ", "
                << testing::PrintToString(request.payload);
    }
    // Each of the requests, which are good, is answered with that payload.
    void ExpectPayload(const Bytes& payload, const std::vector<Request>& requests)
    {
        Expect(0, requests);
        for (const Request& request : requests)
            EXPECT_EQ(PayloadOf(Ask(static_cast<unsigned>(request.major), request.minor, request.payload)), payload)
                << "request " << request.major << '.' << request.minor;
    }

    // One packet of a file written by path: minor 8 with the narrow record, minor 13 with the wide one.
    unsigned Put(unsigned minor, const std::string& path, const Bytes& file, std::uint32_t number,
                 std::uint32_t chunk = 64)
    {
        const auto size = static_cast<std::uint32_t>(file.size());
        const std::size_t width = minor == 13 ? 4 : 2;
        const Bytes record = Little(size, 4) + Little(chunk, 2) + Little((size + chunk - 1) / chunk, width) +
                             Little(number, width) + Path(path);
        return CodeOf(Ask(2, minor, record, Part(file, std::size_t{chunk} * (number - 1), chunk)));
    }

    // One piece of a file by its path.
    Bytes Get(unsigned minor, const std::string& path, std::uint32_t number, std::uint32_t chunk = 64)
    {
        const Bytes head = minor == 8 ? Little(chunk, 2) + Little(number, 2) : Little(chunk, 4) + Little(number, 4);
        return Ask(1, minor, head + Path(path));
    }

    void PutFile(const std::string& path, const Bytes& bytes) { ASSERT_EQ(Put(8, path, bytes, 1, 1024), 0U); }

    // What lies at a place of the sign's folder.
    Bytes OnSign(std::string_view place) const { return FromText(folder.Read(place)); }
    void Make(std::string_view place, const Bytes& bytes = {1}) const { folder.Write(place, ToText(bytes)); }

    // Tells the sign of its condition as another program would.
    void Tell(std::uint64_t nowMs, const std::string& lines)
    {
        vxsim::ConditionFile(folder.path).Write(vxsim::ParseCondition(lines));
        sign->KeepUp(nowMs);
    }

    TempFolder folder;
    vxsim::SignSettings settings;
    std::unique_ptr<vxsim::VirtualSign> sign;
    vxsim::Arrival arrival; // of what is asked next
    std::uint8_t id = 0;
};

// A moment of a film: what the host asks then, if anything, and what is to be seen behind it.
struct Moment
{
    std::uint64_t ms;
    Request request;
    const char* seen = nullptr; // nobody looks
    const char* why = "";
};

// A sign of 16x16 with its face, and files of one colour for it to show.
class StageTest : public SignTest
{
protected:
    StageTest() { Rebuild(16, 16); }

    void Rebuild(int width, int height)
    {
        settings.width = width;
        settings.height = height;
        stage.reset();
        Restart("CDEF");
        stage = std::make_unique<vxsim::Stage>(*sign);
    }

    // What a film is made of, unless a test looks for something else: a letter for the lamp in the middle.
    virtual std::string Seen(std::uint64_t nowMs) { return {LetterOf(At(nowMs))}; }

    static char LetterOf(vxsim::Rgb colour)
    {
        const int lit = (colour.red != 0 ? 1 : 0) | (colour.green != 0 ? 2 : 0) | (colour.blue != 0 ? 4 : 0);
        return ".RGYBMCW"[lit];
    }

    void Film(const std::vector<Moment>& moments)
    {
        for (const Moment& moment : moments) {
            SCOPED_TRACE(std::to_string(moment.ms) + " ms, request " + std::to_string(moment.request.major) + "." +
                         std::to_string(moment.request.minor) + " " + moment.why);
            arrival.nowMs = moment.ms;
            if (moment.request.major >= 0)
                Expect(0, {moment.request});
            if (moment.seen != nullptr) {
                EXPECT_EQ(Seen(moment.ms), moment.seen);
            }
        }
    }

    // Red, green and blue, three seconds each.
    void PlayThree()
    {
        PutFile("D:\\T\\RED.BMP", Dot(kRed));
        PutFile("D:\\T\\GREEN.BMP", Dot(kGreen));
        PutFile("D:\\T\\BLUE.BMP", Dot(kBlue));
        PutFile("C:\\SEQUENT.SYS", FlatList({"RED.BMP", "GREEN.BMP", "BLUE.BMP"}));
    }

    vxsim::Rgb At(std::uint64_t nowMs, int x = 7, int y = 7) { return stage->Draw(nowMs).At(x, y); }

    // One line for each row: a letter for each lit lamp.
    std::string Drawing(std::uint64_t nowMs = 0)
    {
        std::string drawing;
        const vxsim::Canvas& face = stage->Draw(nowMs);
        for (int y = 0; y < face.Height(); ++y, drawing += '\n')
            for (int x = 0; x < face.Width(); ++x)
                drawing += LetterOf(face.At(x, y));
        return drawing;
    }

    std::unique_ptr<vxsim::Stage> stage;
};

// A sign whose clock shows 2020-05-13 10:20:30 at 0 ms, and its database.
class LogTest : public StageTest
{
protected:
    LogTest()
    {
        settings.localSecondsAtZero = 1589365230;
        Rebuild(32, 32);
    }

    Bytes AskDatabase(const std::string& sql, const Bytes& payload = {1, 0, 1, 0})
    {
        return Ask(1, 21, payload, Text(sql));
    }

    std::string RowsOf(const std::string& sql)
    {
        const Bytes reply = AskDatabase(sql);
        EXPECT_EQ(CodeOf(reply), 0U) << sql;
        const Bytes text = ExtendedOf(reply);
        return {text.begin(), text.end()};
    }
};

} // namespace vxsign::test
