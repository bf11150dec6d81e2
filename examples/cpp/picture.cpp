// Shows picture files on a sign, one after the other: picture URL FILE...
//
//     c++ -std=c++17 picture.cpp $(pkg-config --cflags --libs vxsign) -o picture
//
// The files go over as they are: each sign knows BMP, some know more.
#include <iostream>
#include <vxsign/sign.hpp>

int main(int count, char** arguments)
{
    if (count < 3) {
        std::cerr << "usage: picture URL FILE...\n";
        return 2;
    }
    const auto sign = vxsign::Sign::Open(arguments[1]);
    const std::vector<std::filesystem::path> files(arguments + 2, arguments + count);
    const auto shown = !sign ? sign.Error() : files.size() == 1 ? sign->Picture(files[0]) : sign->Files(files);
    if (!shown)
        std::cerr << shown.Error().text << '\n';
    return shown ? 0 : 1;
}
