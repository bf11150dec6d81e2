// One connection of a browser.
#pragma once

#include "sim/platform/descriptor.h"

#include <chrono>
#include <cstddef>
#include <httplib.h>
#include <string>

namespace vxsim {

// A connection with limits: nobody holds it for long by saying little or by not listening. The head of the request is
// gathered ahead, and only those of its lines are passed on that mean something here.
class HttpConnection : public httplib::Stream
{
public:
    // `stop` can be read when the server ends; all waiting ends then.
    HttpConnection(Descriptor connection, const Descriptor& stop);

    // Status 200 if a whole head is there, else that of the refusal; 0 if nobody asks any more.
    int ReadHead();

    // For what the server itself does not answer.
    void Refuse(int status, const std::string& why);

    // Says that no more comes, and hears out the peer for a moment, who else may lose the answer.
    void Finish();

    bool is_readable() const override { return true; }
    bool is_writable() const override;
    ssize_t read(char* bytes, std::size_t size) override;
    ssize_t write(const char* bytes, std::size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override { return connection.Get(); }

private:
    using Clock = std::chrono::steady_clock;

    bool WaitUntil(Clock::time_point until, short events) const;
    ssize_t Receive(char* bytes, std::size_t size);
    void Filter(std::size_t headSize);

    Descriptor connection;
    const Descriptor& stop;
    std::string input; // that has come, the head filtered
    std::size_t taken = 0;
    Clock::time_point inputEnd; // when all of the request must be there
};

} // namespace vxsim
