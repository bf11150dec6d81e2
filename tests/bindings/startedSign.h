// vxsim as a program of its own, for tests of what uses the library as applications do.
#pragma once

#include "support/tempFolder.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <map>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vxsign::test {

/// The virtual sign with a folder of its own, on lines that the system picks.
class StartedSign
{
public:
    /// last: the kind of the place that vxsim names last, with these options.
    explicit StartedSign(const std::vector<std::string>& options = {}, const std::string& last = "tcp")
    {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            throw std::runtime_error("no pipe");
        process = ::fork();
        if (process == 0)
            Become(ends[1], options);
        ::close(ends[1]);
        lines = ::fdopen(ends[0], "r");
        ReadPlaces(last);
    }
    ~StartedSign()
    {
        ::kill(process, SIGTERM);
        int status = 0;
        ::waitpid(process, &status, 0);
        EXPECT_EQ(status, 0) << "vxsim fails";
        static_cast<void>(std::fclose(lines));
    }
    StartedSign(const StartedSign&) = delete;
    StartedSign& operator=(const StartedSign&) = delete;

    std::string Url() const { return "udp://" + places.at("udp"); }
    std::string Place(const std::string& kind) const { return places.at(kind); }
    /// What lies on a drive, as "D/T/NAME".
    std::string Read(const std::string& name) const { return folder.Read(name); }
    bool Has(const std::string& name) const { return folder.Has(name); }

private:
    [[noreturn]] void Become(int output, const std::vector<std::string>& options)
    {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM); // a test that crashes leaves no sign
        ::dup2(output, STDOUT_FILENO);
        std::vector<std::string> words{VXSIM, "--port", "0", "--dir", folder.Path()};
        words.insert(words.end(), options.begin(), options.end());
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        ::execv(VXSIM, arguments.data());
        ::_exit(127);
    }

    // Lines such as "udp 127.0.0.1:4711".
    void ReadPlaces(const std::string& last)
    {
        std::array<char, 256> line{};
        while (places.count(last) == 0 && std::fgets(line.data(), line.size(), lines) != nullptr) {
            const std::string text(line.data());
            const std::size_t blank = text.find(' ');
            places[text.substr(0, blank)] = text.substr(blank + 1, text.find('\n') - blank - 1);
        }
    }

    TempFolder folder;
    pid_t process = 0;
    FILE* lines = nullptr;
    std::map<std::string, std::string> places;
};

} // namespace vxsign::test
