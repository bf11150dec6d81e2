// What the makers of first runs share: bytes of runs, and a virtual sign that talks while its words are kept.
#pragma once

#include "fuzz/line.h"
#include "fuzz/support.h"
#include "sim/stage/stage.h"
#include "sim/virtualSign.h"
#include "support/bytes.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace vxsign::fuzz {

using test::operator+;

inline Bytes Word(std::size_t value)
{
    return test::Little(static_cast<std::uint32_t>(value), 2);
}
/// Its length and the bytes, as Input::Block reads them.
Bytes Block(const Bytes& bytes);
/// A text and its end.
Bytes Text(std::string_view text);
Bytes FileOf(const std::filesystem::path& path);

/// Where the seeds go, a folder for each target.
void SeedInto(const std::filesystem::path& folder);
void Seed(const std::string& target, const std::string& name, const Bytes& bytes);

/// A virtual sign at the line of the thread, in a folder of the current one, and what goes over that line as runs have
/// it.
class SeedSign
{
public:
    explicit SeedSign(bool controller);

    Bytes answers;  // of the sign
    Bytes requests; // as steps of a host

    std::filesystem::path Drive(const std::string& path) const { return settings.folder / path; }

private:
    Bytes Answer(const test::Packet& request);

    vxsim::SignSettings settings;
    std::unique_ptr<vxsim::VirtualSign> sign;
    std::unique_ptr<vxsim::Stage> stage;
    const test::FakeClock clock;
    const std::uint64_t startMs = test::FakeClock::NowMs();
    const Line line{[this](const test::Packet& request) { return Answer(request); }, 3};
};

/// A message, a picture and a list of both, made on this PC and sent to the sign; its lines so far are forgotten.
struct Content
{
    explicit Content(SeedSign& sign);

    Bytes message;
    Bytes picture;
    Bytes wrapped; // the picture as a message
    Bytes list;    // as the sign has it
    Bytes xml;
};

} // namespace vxsign::fuzz
