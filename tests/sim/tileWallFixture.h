// The tiles of the virtual sign, reached over buses and ports and directly.
#pragma once

#include "support/calibrations.h"
#include "support/signFixture.h"

namespace vxsign::test {

class TileWall : public StageTest
{
protected:
    // As Ask, with the bus in the source address.
    Bytes OnBus(unsigned bus, unsigned minor, const Bytes& payload, const Bytes& extended = {})
    {
        Bytes request = MakeRequest(12, minor, payload, extended, ++id);
        request[6] = static_cast<std::uint8_t>(bus);
        return sign->Answer(Checked(request, SumField(request)), arrival);
    }

    Bytes Direct(unsigned minor, unsigned tile, const Bytes& payload, const Bytes& extended = {})
    {
        Bytes request = MakeRequest(124, minor, payload, extended, ++id, static_cast<std::uint16_t>(tile));
        request[1] = 0xB1;
        return sign->Answer(Checked(request, CrcField(request)), arrival);
    }

    static Bytes Checked(Bytes request, unsigned check)
    {
        std::ranges::copy(Little(check, 2), request.begin() + 2);
        return request;
    }

    // The extended part of the answer that asks for a task's result a minute after its start.
    Bytes ResultOf(const Bytes& started)
    {
        EXPECT_EQ(started.at(15), 0) << "not started";
        arrival.nowMs += 60000;
        return ExtendedOf(OnBus(0, 2, PayloadOf(started)));
    }
    // The word of a task, 3073 for any success.
    unsigned WordOf(const Bytes& started)
    {
        const Bytes result = ResultOf(started);
        return result.size() > 2 ? 3073U : result.at(0) + 256U * result.at(1);
    }
    // State and detail of a task of the ports: 4 for success, else 5 and the word.
    unsigned PortEnd(const Bytes& started)
    {
        EXPECT_EQ(started.at(15), 0) << "not started";
        arrival.nowMs += 60000;
        const Bytes state = ExtendedOf(Ask(28, 3, PayloadOf(started) + Bytes(4, 0)));
        return state.at(1) == 4 ? 4U : state.at(1) * 10000U + state.at(2) + 256U * state.at(3);
    }

    Bytes OnPort(unsigned minor, unsigned tile, unsigned third, const Bytes& extended = {}, unsigned port = 1)
    {
        return Ask(28, minor, Little(tile, 2) + Little(port, 1) + Little(third, 1) + Bytes(4, 0), extended);
    }

    // The task that installs a file of the first bus, staged on drive C.
    Bytes Install(const Bytes& file, std::uint32_t offset)
    {
        Make("C/R_DATA/X.DAT", file);
        return OnBus(0, 15, Little(offset, 4) + Bytes{0, 0, 1, 0}, Path("C:\\R_DATA\\X.DAT"));
    }

    Bytes Flash(std::uint32_t offset, unsigned size = 264)
    {
        return ResultOf(OnBus(0, 1, Little(offset, 4) + Little(size, 2) + Bytes{1, 0}));
    }

    // The code of the first piece that was refused.
    unsigned WriteDirectly(Bytes file, unsigned type, unsigned tile = 1)
    {
        file.resize((file.size() + 263) / 264 * 264);
        unsigned code = 0;
        for (std::uint32_t at = 0; at < file.size() && code == 0; at += 264)
            code =
                CodeOf(Direct(2, tile, Bytes{1} + Little(type, 1) + Little(at, 4) + Bytes(6, 0), Part(file, at, 264)));
        return code;
    }

    Bytes ReadPiece(unsigned type, std::uint32_t offset, unsigned tile = 1)
    {
        return Direct(1, tile, Bytes{1} + Little(type, 1) + Bytes{8, 1} + Little(offset, 4) + Bytes(4, 0));
    }
    Bytes ReadDirectly(unsigned type)
    {
        Bytes file;
        Bytes piece = ReadPiece(type, 0);
        for (std::uint32_t at = 264; CodeOf(piece) == 0 && at < 10000; piece = ReadPiece(type, at), at += 264)
            file = file + ExtendedOf(piece);
        return file;
    }

    // Tells the sign what is wrong with it.
    void Tell(const std::string& lines) { SignTest::Tell(arrival.nowMs += 1000, lines); }
};

inline const Request kWhiteTest{3, 11, Bytes{255, 255, 255} + Bytes(13, 0)};

// A calibration for the buses: the record of each pixel lets the colours through whose bits are set.
inline Bytes BusFile(const std::vector<int>& colours, const Bytes& sum)
{
    Bytes file = Bytes{0xAA, 0x55, 0x20, 0, 2, 0, 10, 0} + sum + Bytes(8, 0) +
                 Little(static_cast<std::uint32_t>(colours.size() * 18), 4) + Bytes(10, 0);
    for (const int bits : colours)
        for (const int bit : {1, 2, 4})
            file = file + ((bits & bit) != 0 ? Bytes{0xFF, 0xFF} : Bytes{0, 0}) + Bytes(bit == 4 ? 0 : 6, 0);
    return file;
}

} // namespace vxsign::test
