// The one place that writes to standard output and standard error.
#include "vxctl/cli/terminal.h"

#include "vxctl/platform/console.h"

#include <iostream>

namespace vxctl {

namespace {

std::ostream& Of(Stream stream)
{
    return stream == Stream::kOut ? std::cout : std::cerr;
}

} // namespace

void PrintLine(Stream stream, const Shown& line)
{
    Of(stream) << line.Text() << '\n';
}

void PrintLines(Stream stream, std::string_view lines)
{
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        PrintLine(stream, line);
        lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    }
}

void PrintQuestion(const Shown& question)
{
    std::cerr << question.Text() << std::flush;
}

void DrawLine(const Shown& line)
{
    std::cerr << '\r' << line.Text() << std::flush;
}

void EraseLine()
{
    std::cerr << "\r\x1b[K" << std::flush;
}

std::optional<ScreenSize> SizeOfScreen()
{
    if (!platform::IsTerminal(platform::Standard::kOut))
        return std::nullopt;
    const auto [columns, rows] = platform::ScreenSize().value_or(std::pair<std::uint16_t, std::uint16_t>(80, 24));
    return ScreenSize{columns, rows};
}

void DrawScreen(const std::vector<Shown>& lines, std::size_t former)
{
    if (former != 0)
        std::cout << "\x1b[" << former << 'A';
    for (const Shown& line : lines)
        std::cout << '\r' << line.Text() << "\x1b[K\n";
    std::cout << "\x1b[J" << std::flush;
}

bool Flush()
{
    std::cout.flush();
    return static_cast<bool>(std::cout);
}

} // namespace vxctl
