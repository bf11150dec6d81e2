// Makes a play list of local files and sends it with them; then it plays: playlist URL FILE...
//
//     c++ -std=c++17 playlist.cpp $(pkg-config --cflags --libs vxsign) -o playlist
#include <iostream>
#include <vxsign/sign.hpp>

static int Complain(const vxsign::Error& error)
{
    std::cerr << error.text << '\n';
    return 1;
}

int main(int count, char** arguments)
{
    constexpr std::uint16_t kSeconds = 10; // for each picture
    if (count < 3) {
        std::cerr << "usage: playlist URL FILE...\n";
        return 2;
    }
    const auto sign = vxsign::Sign::Open(arguments[1]);
    if (!sign)
        return Complain(sign.Error());
    const std::vector<std::filesystem::path> files(arguments + 2, arguments + count);
    if (const auto sent = sign->Playlist(files, kSeconds); !sent)
        return Complain(sent.Error());
    const auto playing = sign->Playing();
    if (!playing)
        return Complain(playing.Error());
    std::cout << "plays " << playing->value_or("nothing") << '\n';
    return 0;
}
