// Who is seen over whom.
#pragma once

#include "sim/content/player.h"
#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/play/playback.h"
#include "sim/stage/caption.h"
#include "sim/stage/programScreen.h"
#include "sim/stage/tickerPicture.h"
#include "sim/stage/zoneScreen.h"
#include "sim/virtualSign.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

// What is to be seen on a sign: the list that plays, and over it ticker, tests and darkness, all in the light that is
// set. Observes the sign and plays for it, so it outlives the last Answer.
class Stage : public Playback
{
public:
    // Stages of one thread may share a font. Throws std::runtime_error if the font is missing.
    explicit Stage(VirtualSign& sign, std::shared_ptr<Font> font = std::make_shared<Font>());

    // The face at that time, in milliseconds of the clock that requests are timed by. Valid until the next call.
    const Canvas& Draw(std::uint64_t nowMs);

    // The face as it was drawn last; unlit at first.
    const Canvas& Face() const { return Made(); }

    // What is written over the face from now on, asked for at each picture.
    void CaptionWith(std::function<Caption()> source) { caption = std::move(source); }

    // The list that plays, and the file in it whose turn it is; null if it is the turn of none. Valid until the next
    // call.
    const Sequence& List() const { return player.List(); }
    const FileEntry* ListedFile() { return player.ListedFile(); }

    // Passes the turns that are over, for a sign that nobody looks at.
    void KeepUp(std::uint64_t nowMs);

    // When it has to be kept up next although nobody looks and nobody asks; nothing where nothing plays. What it looks
    // for in vain is not urgent then.
    std::optional<std::uint64_t> NextMs(std::uint64_t nowMs) const;

    void Steer(PlayStep step, std::uint64_t nowMs) override;
    void PlayList(const std::filesystem::path& sequence, std::uint64_t nowMs) override;
    bool PlayOnce(const std::string& signPath, std::uint64_t nowMs) override;
    std::string CurrentFile(std::uint64_t nowMs) override;
    std::string NextFile(std::uint64_t nowMs) override;
    std::vector<std::uint8_t> Screenshot(std::uint64_t nowMs) override;

private:
    Canvas& Made() const;
    void DrawContent(std::uint64_t nowMs, Canvas& face);
    void NoteTurn(std::uint64_t nowMs);

    VirtualSign& sign;
    std::shared_ptr<Font> font;
    Player player;
    TickerPicture ticker{*font};
    ZoneScreen zones;
    ProgramScreen programs;
    mutable std::optional<Canvas> made; // the face, from the first look at it on
    std::function<Caption()> caption;
    std::optional<std::uint64_t> restartAtMs = 0; // when the list plays anew; 0 is at once
    std::filesystem::path numberedList;           // what plays instead of the main list; empty if that does
    std::string turnFile;                         // what the log of plays has not yet
    std::uint64_t turn = 0;
    std::uint64_t turnMs = 0;
};

} // namespace vxsim
