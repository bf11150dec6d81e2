#pragma once

#include "sim/protocol/frame.h"
#include "sim/virtualSign.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim_tests {

using Bytes = std::vector<std::uint8_t>;

// Lays out a sum-checked request from its parts, as a host would. `id` tells the requests apart.
inline Bytes MakeRequest(unsigned major, unsigned minor, Bytes payload, const Bytes& extended = {}, std::uint8_t id = 1,
                         std::uint16_t destination = 0)
{
    payload.resize((payload.size() + 3) / 4 * 4);
    Bytes packet(16 + payload.size() + extended.size());
    const std::pair<std::size_t, std::size_t> fields[] = {{0, 0x55},
                                                          {1, 0xA7},
                                                          {4, extended.size() & 0xFF},
                                                          {5, extended.size() >> 8},
                                                          {8, destination & 0xFF},
                                                          {9, destination >> 8},
                                                          {10, id},
                                                          {12, major},
                                                          {13, minor},
                                                          {14, payload.size() / 4}};
    for (const auto& [at, value] : fields)
        packet[at] = static_cast<std::uint8_t>(value);
    std::copy(extended.begin(), extended.end(), std::copy(payload.begin(), payload.end(), packet.begin() + 16));
    const unsigned sum = std::accumulate(packet.begin() + 4, packet.end(), 0U);
    packet[2] = static_cast<std::uint8_t>(sum);
    packet[3] = static_cast<std::uint8_t>(sum >> 8);
    return packet;
}

inline Bytes Text(std::string_view text)
{
    return {text.begin(), text.end()};
}

inline Bytes operator+(Bytes a, const Bytes& b)
{
    std::copy(b.begin(), b.end(), std::back_inserter(a));
    return a;
}

inline Bytes Little(std::uint32_t value, std::size_t size)
{
    Bytes bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    return bytes;
}

// The code of a reply: 0 for status 0, else what stands in front of the payload.
inline unsigned CodeOf(const Bytes& reply)
{
    if (reply.size() < 16)
        return 0xFFFFFFFF;
    return reply[15] == 0 ? 0U : static_cast<unsigned>(reply.at(16) | reply.at(17) << 8);
}

inline Bytes PayloadOf(const Bytes& reply)
{
    return {reply.begin() + 16, reply.begin() + 16 + 4L * reply.at(14)};
}

inline Bytes ExtendedOf(const Bytes& reply)
{
    return {reply.begin() + 16 + 4L * reply.at(14), reply.end()};
}

inline Bytes FileBytes(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Bytes that differ from one chunk to the next.
inline Bytes Pattern(std::size_t size)
{
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    return bytes;
}

// A fresh folder that is gone after the test.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = std::filesystem::temp_directory_path() / "vxsim-test-XXXXXX";
        path = ::mkdtemp(name.data());
    }
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
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

    // One packet of a file written by path: minor 8 with the narrow record, minor 13 with the wide one.
    unsigned Put(unsigned minor, const std::string& path, const Bytes& file, std::uint32_t number,
                 std::uint32_t chunk = 64)
    {
        const std::uint32_t total = (static_cast<std::uint32_t>(file.size()) + chunk - 1) / chunk;
        const std::size_t width = minor == 13 ? 4 : 2;
        const std::size_t from = std::min(std::size_t{chunk} * (number - 1), file.size());
        const std::size_t to = std::min<std::size_t>(from + chunk, file.size());
        const Bytes record = Little(static_cast<std::uint32_t>(file.size()), 4) + Little(chunk, 2) +
                             Little(total, width) + Little(number, width) + Text(path) + Bytes{0};
        return CodeOf(Ask(
            2, minor, record,
            Bytes(file.begin() + static_cast<std::ptrdiff_t>(from), file.begin() + static_cast<std::ptrdiff_t>(to))));
    }

    // One piece of a file by its path.
    Bytes Get(unsigned minor, const std::string& path, std::uint32_t number, std::uint32_t chunk = 64)
    {
        const Bytes head = minor == 8 ? Little(chunk, 2) + Little(number, 2) : Little(chunk, 4) + Little(number, 4);
        return Ask(1, minor, head + Text(path) + Bytes{0});
    }

    TemporaryFolder folder;
    vxsim::SignSettings settings;
    std::unique_ptr<vxsim::VirtualSign> sign;
    vxsim::Arrival arrival; // of what is asked next
    std::uint8_t id = 0;
};

} // namespace vxsim_tests
