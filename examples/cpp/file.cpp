// Sends a file to a sign and tells how far it is; Ctrl-C ends it: file URL LOCAL PATH
//
//     c++ -std=c++17 -pthread file.cpp $(pkg-config --cflags --libs vxsign) -o file
//     ./file udp://127.0.0.1:9520 hello.nmg D:/T/HELLO.NMG
#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>
#include <vxsign/sign.hpp>

static volatile std::sig_atomic_t isInterrupted = 0;

// A signal handler may not lock, as Cancel does: so a thread looks for what it has left.
class Watch
{
public:
    explicit Watch(const vxsign::Sign& sign)
        : thread([this, sign] {
              while (!isDone && !isInterrupted)
                  std::this_thread::sleep_for(std::chrono::milliseconds(50));
              sign.Cancel();
          })
    {
        std::signal(SIGINT, [](int) { isInterrupted = 1; });
    }
    ~Watch()
    {
        isDone = true;
        thread.join();
    }

private:
    std::atomic<bool> isDone{false};
    std::thread thread;
};

int main(int count, char** arguments)
{
    if (count != 4) {
        std::cerr << "usage: file URL LOCAL PATH\n";
        return 2;
    }
    vxsign::Options options;
    options.timeoutMs = 1000;
    options.onProgress = [](unsigned percent) { std::cout << '\r' << percent << " %" << std::flush; };
    const auto sign = vxsign::Sign::Open(arguments[1], options);
    if (!sign) {
        std::cerr << sign.Error().text << '\n';
        return 1;
    }
    const Watch watch(*sign);
    const auto sent = sign->Put(arguments[2], arguments[3]);
    std::cout << '\n';
    if (!sent)
        std::cerr << sent.Error().text << '\n';
    return sent ? 0 : 1;
}
