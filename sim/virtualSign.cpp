#include "sim/virtualSign.h"

#include "sim/files/configFile.h"
#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kUnknown = "unknown";

// What the reply refuses the request with; kOk if it does not. Some answers travel as codes.
Code RefusalOf(const Reply& reply)
{
    const Code code = reply.status == 0 ? Code::kOk : static_cast<Code>(Load16(reply.payload, 0));
    const bool isAnswer = code == Code::kProcessOk || code == Code::kBuffer3Ready || code == Code::kBuffer1Ready ||
                          code == Code::kBuffer2Ready;
    return isAnswer ? Code::kOk : code;
}

fs::path MakeKeptFolder(const fs::path& folder)
{
    fs::path kept = folder / "sign";
    fs::create_directories(kept);
    // What a sign that was switched off in a transfer left behind.
    for (const auto& entry : fs::directory_iterator(kept)) {
        if (entry.path().extension() == ".tmp")
            fs::remove(entry.path());
    }
    return kept;
}

} // namespace

VirtualSign::VirtualSign(const SignSettings& wanted)
    : settings(wanted), drives(settings.folder, settings.drives), kept(MakeKeptFolder(settings.folder)),
      database(kept / "logs.sqlite", SignDatabase::kBusyMs, settings.databases), log(database),
      time(settings.localSecondsAtZero, settings.controller), light(kept / "brightness.bin", time.Clock()),
      monitor(settings.folder, drives, database, time, light, settings.width, settings.height),
      wall(kept, settings.width, settings.height), board(wall, monitor),
      reports(drives, monitor, database, observers, settings.width, settings.height,
              [this](std::uint64_t nowMs) { return FaceText(nowMs); }),
      records(kept, light, observers), restarts(light, families, observers), control(light, observers),
      transfers(drives, kept, observers), files(drives, transfers, observers, [this] { PrepareSystemFiles(); }),
      updates(kept), tests(settings.width, settings.height), play(drives, kept / "radar.log"), ticker(settings.width),
      traffic(drives, time, monitor, settings.controller),
      login(settings.users, settings.loginHoldMs, settings.address, settings.port), buses(drives, board),
      ports(drives, board), direct(board),
      pixelCheck(drives, database, monitor, time.Clock(), settings.width, settings.height),
      video(kept / "video.bin", settings.width, settings.height), zones(drives, kept, settings.width, settings.height),
      extraBoards(kept, monitor), programs(drives, kept, settings.width, settings.height)
{
    families = {&reports, &records, &restarts,   &control, &transfers, &files,       &updates,
                &tests,   &time,    &play,       &ticker,  &traffic,   &login,       &buses,
                &ports,   &direct,  &pixelCheck, &video,   &zones,     &extraBoards, &programs};
    SignEvents told;
    told.sequenceWritten = [this] { play.ReturnToMainList(); };
    observers.Add(std::move(told));
    database.Observe([this](const std::string& what) { observers.Tell(&SignEvents::failed, what); });
    PrepareSystemFiles();
}

std::vector<std::uint8_t> VirtualSign::Answer(std::span<const std::uint8_t> request, const Arrival& arrival)
{
    if (const auto frame = ParseFrame(request))
        return Answer(*frame, arrival);
    reports.CountMalformed();
    return {};
}

std::vector<std::uint8_t> VirtualSign::Answer(const Frame& request, const Arrival& arrival)
{
    const Command command = FindCommand(families, request);
    const std::string_view name = command.row != nullptr ? command.row->name : kUnknown;
    if (login.IsHeldBack(request, arrival)) {
        observers.Tell(&SignEvents::heldBack, name);
        return {};
    }
    Reply reply;
    std::string author = login.UserAt(arrival);
    try {
        reply = Execute(command, request, arrival);
    } catch (const std::exception&) { // no memory, or a file system that fails where it should not
        reply = Reply::WithCode(Code::kOpenFailed);
    }
    const Exchange exchange{request, name, RefusalOf(reply), reply.remark};
    if (author.empty()) // a login has just made one
        author = login.UserAt(arrival);
    if (author.empty())
        author = arrival.host == 0 ? "serial line" : AddressText(arrival.host);
    if (command.row != nullptr && command.row->logged)
        log.Command(exchange, author, time.Clock().At(arrival.nowMs));
    observers.Tell(&SignEvents::answered, exchange);
    return BuildReply(request, reply);
}

Reply VirtualSign::Execute(const Command& command, const Frame& request, const Arrival& arrival)
{
    if (!login.IsOpen(request, arrival))
        return Reply::WithCode(Code::kLoginFirst);
    if (command.row == nullptr)
        return Reply::WithCode(UnknownCode(families, request));
    return command.family->Execute({request, arrival, *command.row});
}

void VirtualSign::KeepUp(std::uint64_t nowMs)
{
    monitor.KeepUp(nowMs);
    for (CommandFamily* family : families)
        family->KeepUp(nowMs);
}

const TileWall& VirtualSign::Tiles(std::uint64_t nowMs)
{
    board.KeepUp(nowMs);
    return wall;
}

void VirtualSign::NotePlay(const std::string& signPath, std::uint64_t beginMs, std::uint64_t nowMs)
{
    log.Play(play.ListName(), signPath, (nowMs - std::min(nowMs, beginMs) + 500) / 1000, time.Clock().At(beginMs));
}

std::vector<CommandRow> VirtualSign::Commands() const
{
    std::vector<CommandRow> all;
    for (const CommandFamily* family : families)
        all.insert(all.end(), family->Commands().begin(), family->Commands().end());
    std::ranges::stable_sort(all, {},
                             [](const CommandRow& row) { return std::pair(row.major.number, row.minors.first); });
    return all;
}

void VirtualSign::PrepareSystemFiles() const
{
    if (const auto config = drives.FileIn('C', "", "CONFIG.SYS"))
        PrepareConfigFile(*config, {drives.Has('F'), settings.address, settings.port});
}

} // namespace vxsim
