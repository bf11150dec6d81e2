// Reads a log of a sign as CSV: logs URL [LOG] >log.csv, the log being play, system, temperature, tile or event
//
//     c++ -std=c++17 logs.cpp $(pkg-config --cflags --libs vxsign) -o logs
#include <iostream>
#include <vxsign/sign.hpp>

// Each field in quotes, those in it doubled.
static void PrintLine(const std::vector<std::string>& fields)
{
    const char* between = "";
    for (const std::string& field : fields) {
        std::cout << between << '"';
        for (const char character : field)
            std::cout << (character == '"' ? "\"\"" : std::string(1, character));
        std::cout << '"';
        between = ",";
    }
    std::cout << '\n';
}

int main(int count, char** arguments)
{
    if (count < 2) {
        std::cerr << "usage: logs URL [LOG]\n";
        return 2;
    }
    const auto sign = vxsign::Sign::Open(arguments[1]);
    const auto log = sign ? sign->Logs(count > 2 ? arguments[2] : "system") : sign.Error();
    if (!log) {
        std::cerr << log.Error().text << '\n';
        return 1;
    }
    PrintLine(log->columns);
    for (const auto& row : log->rows)
        PrintLine(row);
    return 0;
}
