#include "vxbridge/service/commandDesk.h"

#include "vxbridge/journal/journal.h"
#include "vxbridge/mqtt/topics.h"

#include <chrono>
#include <functional>

namespace vxbridge {

namespace {

// What makes two deliveries the same command: the sender's own mark on it, with all that is asked. Senders do not know
// of each other's marks.
std::string KeyOf(const Message& message)
{
    return message.correlation + '\n' + message.topic + '\n' + message.responseTopic + '\n' +
           std::to_string(std::hash<std::string>()(message.payload));
}

} // namespace

void CommandDesk::Take(const Message& message)
{
    const auto topic = ParseCommandTopic(message.topic);
    if (!topic)
        return;
    const bool isRemembered = !message.correlation.empty();
    const Job job{isRemembered ? KeyOf(message) : std::to_string(++nameless),
                  isRemembered,
                  message.isRedelivered,
                  topic->site,
                  topic->sign,
                  topic->verb,
                  common.shelf.Find(topic->sign)};
    const auto tell = [this, to = message.responseTopic, correlation = message.correlation,
                       isRedelivered = message.isRedelivered, receipt = message.receipt](const std::string& answer) {
        if (!to.empty())
            common.link.Publish({to, answer, false, correlation, isRedelivered}, receipt);
    };
    if (!memory.Take(job.key, tell, std::chrono::steady_clock::now()))
        return common.counters.AddRepeated();
    if (message.isRedelivered)
        common.counters.AddRedelivered();
    Begin(job, message.payload);
}

void CommandDesk::Begin(const Job& job, const std::string& payload)
{
    const Verb* const verb = FindVerb(job.verb);
    if (verb == nullptr)
        return Refuse(job, "unknown verb '" + job.verb + "'");
    if (job.sign == nullptr || job.sign->site != job.site)
        return Refuse(job, "the book of this bridge has no sign '" + job.name + "' of the site '" + job.site + "'");
    if (verb->needsLeave && !common.settings.allowsRaw)
        return Refuse(job, "this bridge does not take '" + job.verb + "'");
    try {
        const vxctl::Order order(WordsOf(*verb, payload, common.settings.folder));
        const bool isTaken = common.queues.PutCommand(job.name, [=, this] { Execute(job, *verb, order); });
        if (!isTaken && !isClosed)
            Refuse(job, "too many commands wait for this sign");
    } catch (const vxctl::UsageError& error) {
        Refuse(job, error.what());
    }
}

void CommandDesk::Execute(const Job& job, const Verb& verb, const vxctl::Order& order)
{
    const vxctl::Outcome outcome = Timed(common.counters, "command", job.sign->options, order);
    if (isClosed && outcome.result == VX_ABORTED)
        return; // another bridge gets it
    Answer(job, outcome);
    if (verb.isPolledAfter && outcome.result == VX_OK)
        poller.Begin(job.sign);
}

void CommandDesk::Answer(const Job& job, const vxctl::Outcome& outcome)
{
    const auto orNull = [](const std::string& text) { return text.empty() ? Json() : Json(text); };
    const Json answer = {{"site", job.site},
                         {"sign", job.name},
                         {"verb", job.verb},
                         {"bridge", common.settings.id},
                         {"result", outcome.result},
                         {"text", vxErrorDesc(outcome.result)},
                         {"reason", orNull(outcome.reason)},
                         {"advice", orNull(outcome.advice)},
                         {"redelivered", job.isRedelivered},
                         {"values", outcome.values.is_object() ? outcome.values : Json::object()}};
    const bool isDone = outcome.result == VX_OK;
    const std::string_view known = FindVerb(job.verb) == nullptr ? "unknown" : std::string_view(job.verb);
    common.counters.AddCommand(known, isDone ? "ok" : outcome.isRefused ? "refused" : "failed");
    if (!isDone)
        Tell(job.name + ": " + job.verb + ": " + vxErrorDesc(outcome.result) +
             (outcome.reason.empty() ? "" : ": " + outcome.reason));
    memory.Answer(job.key, answer.dump(-1, ' ', false, Json::error_handler_t::replace),
                  std::chrono::steady_clock::now());
    if (!job.isRemembered)
        memory.Drop(job.key);
}

void CommandDesk::Refuse(const Job& job, const std::string& reason)
{
    Answer(job, {.result = VX_ARGUMENTS, .reason = reason, .isRefused = true});
}

} // namespace vxbridge
