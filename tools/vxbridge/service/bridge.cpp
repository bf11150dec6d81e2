#include "vxbridge/service/bridge.h"

#include "vxbridge/journal/journal.h"
#include "vxbridge/mqtt/topics.h"
#include "vxbridge/sign/homeAssistant.h"
#include "vxbridge/work/sharing.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/interrupt.h"

#include <vxsign/api.h>

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <thread>

namespace vxbridge {

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr milliseconds kLook{50};
constexpr milliseconds kPatience{2500}; // for commands that are under way at the end
constexpr milliseconds kLongestEnd{4500};

// What ends the waits of the calling thread.
SignQueues::Stopper StopperOfThread()
{
    auto* const record = static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    return [record] { std::atomic_ref(record->abortFlag).store(1); };
}

SignQueues::Limits LimitsFor(std::size_t threads)
{
    SignQueues::Limits limits;
    limits.threads = threads;
    limits.pollThreads = std::max<std::size_t>(1, threads - threads / 4);
    return limits;
}

vxctl::SignBook ReadBookOf(const Settings& settings)
{
    return vxctl::ReadBook(vxctl::BookFile(settings.bookFile));
}

// A broker that takes no connection may hold a thread for minutes.
void EndAtTheLatest()
{
    std::thread([] {
        std::this_thread::sleep_for(kLongestEnd);
        ::_exit(EXIT_SUCCESS);
    }).detach();
}

std::set<std::string> SitesOf(const vxctl::SignBook& book)
{
    std::set<std::string> sites;
    for (const vxctl::BookSign& sign : book)
        sites.insert(sign.site);
    return sites;
}

} // namespace

Bridge::Bridge(const Settings& wanted)
    : settings(wanted), shelf(ReadBookOf(wanted)), peers(wanted.id),
      link(wanted.broker,
           {"vxbridge-" + wanted.id, 0, Publication{OnlineTopic(wanted.id), Peers::Format(wanted.id, Self(false))}},
           EventsOfLink()),
      queues(LimitsFor(wanted.threads), StopperOfThread), common{settings, shelf, own, queues, board, counters, link},
      poller(common), desk(common, poller),
      succession(settings, peers, counters, [this](const Message& message) { desk.Take(message); }),
      commands(wanted.broker, {CommandClient(wanted.id), wanted.sessionSeconds}, EventsOfCommands())
{
    if (!settings.metrics.empty())
        server.emplace(settings.metrics,
                       ScrapeServer::Answers{[this] { return MetricsText(); },
                                             [this](const std::string& target) { return poller.Probe(target); }});
}

Peer Bridge::Self(bool isOnline) const
{
    const std::set<std::string> sites = SitesOf(*shelf.Get());
    return {isOnline, {sites.begin(), sites.end()}};
}

BrokerLink::Events Bridge::EventsOfLink()
{
    return {[this](bool) {
                link.Subscribe(kOnlineFilter);
                commands.Hurry();
                SayOnline();
                for (const Publication& publication : board.All())
                    link.Publish(publication);
                for (const vxctl::BookSign& sign : *shelf.Get()) {
                    if (own.Has(sign.name))
                        Introduce(sign);
                }
                Tell("connected to the broker");
                Notify("STATUS=connected");
            },
            [this](const Message& message) {
                if (const auto bridge = ParseOnlineTopic(message.topic))
                    TakePeer(*bridge, message.payload);
            }};
}

BrokerLink::Events Bridge::EventsOfCommands()
{
    return {[this](bool) {
                Subscribe();
                SayOnline();
            },
            [this](const Message& message) { desk.Take(message); }};
}

void Bridge::Subscribe()
{
    for (const std::string& site : SitesOf(*shelf.Get()))
        commands.Subscribe(CommandFilter(site));
}

// Who sees a bridge online may send commands.
void Bridge::SayOnline()
{
    if (commands.IsConnected() && !isEnding)
        link.Publish({OnlineTopic(settings.id), Peers::Format(settings.id, Self(true))});
}

// A bridge that finds itself called offline came back before its will was out.
void Bridge::TakePeer(const std::string& bridge, const std::string& payload)
{
    const auto peer = Peers::Parse(payload);
    if (!peer)
        return;
    if (bridge == settings.id && !peer->isOnline)
        return SayOnline();
    if (!peers.Take(bridge, *peer))
        return;
    isPlanOld = true;
    Tell(bridge + (peer->isOnline ? " is online" : " is offline"));
    if (!peer->isOnline)
        succession.Note(bridge, *peer, Clock::now());
}

void Bridge::Run()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        ::sigaddset(&signals, signal);
    pollfd watched{::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK), POLLIN, 0};
    link.Start();
    commands.Start();
    Tell("works on " + std::to_string(shelf.Get()->size()) + " signs" +
         (server ? ", metrics at " + server->Url() + "/metrics" : ""));
    Notify("READY=1\nSTATUS=waits for the broker");
    while (true) {
        signalfd_siginfo signal{};
        ::poll(&watched, 1, static_cast<int>(kLook.count()));
        if (::read(watched.fd, &signal, sizeof signal) == sizeof signal) {
            if (signal.ssi_signo != SIGHUP)
                break;
            Reload();
        }
        Look();
    }
    ::close(watched.fd);
    End();
}

void Bridge::Look()
{
    const auto now = Clock::now();
    for (const std::size_t place : plan.TakeDue(now))
        poller.Begin({planned, &(*planned)[place]});
    if (isPlanOld.exchange(false))
        Share();
    queues.HurryPolls();
    succession.Look(now);
}

// Which signs are ours, by the bridges that are there.
void Bridge::Share()
{
    const auto book = shelf.Get();
    std::map<std::string, std::set<std::string>> bridges;
    for (const std::string& site : SitesOf(*book))
        bridges[site] = peers.With(site);
    std::vector<PollPlan::Interval> intervals;
    std::set<std::string> mine;
    for (const vxctl::BookSign& sign : *book) {
        const bool isMine = OwnerOf(sign.name, bridges[sign.site]) == settings.id;
        intervals.emplace_back(isMine ? std::chrono::seconds(sign.intervalSeconds) : std::chrono::seconds(0));
        if (isMine)
            mine.insert(sign.name);
    }
    plan.Make(intervals, Clock::now());
    planned = book;
    const std::set<std::string> former = own.Put(mine);
    for (const std::string& name : former) {
        if (!mine.contains(name))
            board.Forget(name);
    }
    for (const vxctl::BookSign& sign : *book) {
        if (mine.contains(sign.name) && !former.contains(sign.name))
            Introduce(sign);
    }
}

void Bridge::Introduce(const vxctl::BookSign& sign)
{
    if (settings.homeAssistant.empty())
        return;
    for (const Publication& publication : DiscoveryOf(sign, settings.homeAssistant))
        link.Publish(publication);
}

void Bridge::Remove(const vxctl::BookSign& sign)
{
    board.Forget(sign.name);
    for (const Publication& publication : SignBoard::Removal(sign))
        link.Publish(publication);
    if (settings.homeAssistant.empty())
        return;
    for (const Publication& publication : DiscoveryRemoval(sign, settings.homeAssistant))
        link.Publish(publication);
}

// A book that cannot be read leaves the one in force.
void Bridge::Reload()
{
    Notify("RELOADING=1");
    const auto former = shelf.Get();
    try {
        shelf.Put(ReadBookOf(settings));
        const auto book = shelf.Get();
        for (const vxctl::BookSign& sign : *former) {
            const auto now = std::ranges::find(*book, sign.name, &vxctl::BookSign::name);
            if (now == book->end() || now->site != sign.site)
                Remove(sign);
        }
        const std::set<std::string> sites = SitesOf(*book);
        for (const std::string& site : SitesOf(*former)) {
            if (!sites.contains(site))
                commands.Unsubscribe(CommandFilter(site));
        }
        Subscribe();
        SayOnline();
        isPlanOld = true;
        Tell("read the book anew: " + std::to_string(book->size()) + " signs");
    } catch (const std::exception& error) {
        Tell(std::string("the former book stays in force: ") + error.what());
    }
    Notify("READY=1");
}

// What is under way is finished and answered. What never began is not acknowledged: another bridge gets it, or this one
// when it is back.
void Bridge::End()
{
    Notify("STOPPING=1");
    isEnding = true;
    EndAtTheLatest();
    server.reset();
    queues.Close();
    desk.Close();
    if (!queues.AwaitIdle(kPatience)) {
        Tell("stops commands that are under way");
        vxctl::Abort();
        queues.AwaitIdle(kPatience / 5);
    }
    commands.Stop();
    succession.Close();
    link.Publish({OnlineTopic(settings.id), Peers::Format(settings.id, Self(false))});
    link.Stop();
}

std::string Bridge::MetricsText() const
{
    const SignQueues::Counts counts = queues.Count();
    auto families = counters.Collect();
    const auto add = [&families](std::vector<prometheus::MetricFamily> further) {
        std::ranges::move(further, std::back_inserter(families));
    };
    add(FamiliesOf({
        {"vxbridge_broker_connected", "Whether the broker is there", link.IsConnected() ? 1.0 : 0.0},
        {"vxbridge_bridges_online", "Bridges that the broker knows", static_cast<double>(peers.Online().size())},
        {"vxbridge_signs", "Signs of the book", static_cast<double>(shelf.Get()->size())},
        {"vxbridge_signs_polled", "Signs that this bridge polls", static_cast<double>(own.Count())},
        {"vxbridge_commands_waiting", "Commands that have not begun", static_cast<double>(counts.commands)},
        {"vxbridge_polls_waiting", "Polls that are not done", static_cast<double>(counts.polls)},
        {"vxbridge_threads_busy", "Threads that work with a sign", static_cast<double>(counts.running)},
    }));
    add(ProcessFamilies());
    add(SignFamilies(*shelf.Get(), board, ""));
    return TextOf(families);
}

} // namespace vxbridge
