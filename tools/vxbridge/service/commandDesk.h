// Takes commands as they come, has them executed, and answers.
#pragma once

#include "vxbridge/service/common.h"
#include "vxbridge/service/poller.h"
#include "vxbridge/sign/verbs.h"
#include "vxbridge/work/answerMemory.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace vxbridge {

class CommandDesk
{
public:
    CommandDesk(const Common& parts, Poller& polls) : common(parts), poller(polls) {}

    // Any thread. What is not a command is passed over.
    void Take(const Message& message);

    // From here on nothing is begun or answered any more: what is open goes to another bridge.
    void Close() { isClosed = true; }

private:
    struct Job
    {
        std::string key; // in the memory
        bool isRemembered = false;
        bool isRedelivered = false;
        std::string site;
        std::string name;
        std::string verb;
        std::shared_ptr<const vxctl::BookSign> sign;
    };

    void Begin(const Job& job, const std::string& payload);
    void Execute(const Job& job, const Verb& verb, const vxctl::Order& order);
    void Answer(const Job& job, const vxctl::Outcome& outcome);
    void Refuse(const Job& job, const std::string& reason);

    const Common& common;
    Poller& poller;
    AnswerMemory memory;
    std::atomic<std::uint64_t> nameless{0};
    std::atomic<bool> isClosed{false};
};

} // namespace vxbridge
