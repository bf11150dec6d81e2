// Shows a text on a sign: hello [URL [TEXT [COLOUR]]]
//
//     c++ -std=c++17 hello.cpp $(pkg-config --cflags --libs vxsign) -o hello
//     ./hello udp://127.0.0.1:9520 "HELLO 42" red
#include <iostream>
#include <vxsign/sign.hpp>

int main(int count, char** arguments)
{
    const auto sign = vxsign::Sign::Open(count > 1 ? arguments[1] : "udp://127.0.0.1:9520");
    const auto shown =
        sign ? sign->Show(count > 2 ? arguments[2] : "HELLO 42", count > 3 ? arguments[3] : "amber") : sign.Error();
    if (!shown)
        std::cerr << shown.Error().text << '\n' << shown.Error().advice << '\n';
    return shown ? 0 : 1;
}
