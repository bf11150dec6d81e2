// Makes random arguments.
#include "hostile/arguments.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vxsign::test {

namespace {

constexpr std::uint64_t kEdges[] = {0, 1, 2, 127, 128, 255, 256, 257, 1020, 1024, 4608, 32767, 65535, 65536, ~0ULL};

} // namespace

std::uint64_t Random::Number()
{
    const std::uint64_t kind = Below(10);
    return kind < 5 ? Below(12) : kind < 8 ? kEdges[Below(std::size(kEdges))] : engine();
}

void Random::Fill(std::uint8_t* to, std::size_t size)
{
    constexpr std::size_t kMostFilled = 5000; // large buffers are large, and not interesting further on
    const std::uint64_t kind = Below(6);
    if (size == 0)
        return;
    std::memset(to, kind == 0 ? 0 : 255, size);
    for (std::size_t at = 0; kind > 1 && at + sizeof(std::uint64_t) <= std::min(size, kMostFilled); at += 8) {
        const std::uint64_t bytes = engine();
        std::memcpy(to + at, &bytes, sizeof bytes);
    }
    for (std::size_t at = size - std::min<std::size_t>(size, 7); at < size; ++at)
        to[at] = static_cast<std::uint8_t>(engine());
}

Parameter::Parameter(std::string_view word) : name(word.substr(0, word.find(':')))
{
    const auto says = [marks = word.substr(name.size())](std::string_view mark) {
        return marks.find(mark) != std::string_view::npos;
    };
    isOut = says("out");
    isOptional = says("optional");
    isSized = says("sized");
    isText = says("text");
    isLength = says("length");
    isFew = says("few");
}

bool Arguments::InputsStand() const
{
    return std::ranges::all_of(inputs, [](const auto& input) {
        return std::memcmp(input.first, input.second.data(), input.second.size()) == 0;
    });
}

std::uint64_t Arguments::Number(std::uint64_t most)
{
    if (parameters[place - 1].isLength)
        return Length(most);
    if (Name(place - 1) == "port" && Name(place - 2) == "host")
        return port;
    // An int of the caller's may be negative.
    return random.Number() & (most | random.Below(2) * ~most);
}

std::uint64_t Arguments::Length(std::uint64_t most)
{
    if (parameters[place - 1].isFew)
        return random.Below(200);
    constexpr std::size_t kMost[] = {0, 1, 20, 300, 5000, 70000};
    return std::min<std::uint64_t>(random.Below(kMost[random.Below(std::size(kMost))] + 1), most);
}

void* Arguments::Record(std::size_t size)
{
    if (!parameters[place - 1].isLength)
        return Filled(size);
    const std::uint64_t length = Length(65535);
    return std::memcpy(std::memset(Allocate(size), 0, size), &length, std::min(size, sizeof length));
}

void* Arguments::Filled(std::size_t size)
{
    void* const made = Allocate(size);
    if (!parameters[place - 1].isOut || random.Chance(50))
        random.Fill(static_cast<std::uint8_t*>(made), size);
    return Note(made, size);
}

void* Arguments::Allocate(std::size_t size)
{
    return blocks.emplace_back(new std::uint8_t[size]).get();
}

void* Arguments::Note(void* block, std::size_t size)
{
    if (!parameters[place - 1].isOut)
        inputs.emplace_back(block, std::string(static_cast<const char*>(block), size));
    return block;
}

void* Arguments::Keep(void* pointer)
{
    return Note(std::memcpy(Allocate(sizeof pointer), &pointer, sizeof pointer), sizeof pointer);
}

char* Arguments::CopyOf(const std::string& text)
{
    const std::size_t size = text.size() + 1;
    return static_cast<char*>(Note(std::memcpy(Allocate(size), text.c_str(), size), size));
}

const char** Arguments::Texts(std::size_t size)
{
    auto* const made = static_cast<const char**>(Allocate(size));
    for (std::size_t i = 0; i < size / sizeof *made; ++i)
        made[i] = CopyOf(Text());
    return static_cast<const char**>(Note(made, size));
}

std::string Arguments::Text()
{
    if (Name(place - 1) == "host")
        return "127.0.0.1";
    if (Name(place - 1) == "serialName")
        return "none";
    const std::string texts[] = {"",
                                 std::string(random.Below(1200), 'n'),
                                 "made" + std::to_string(random.Below(3)),
                                 "D:\\T\\A.NMG",
                                 "hostile/",
                                 "%s%n \xFF\xFE\n",
                                 "/GROUP/",
                                 "missing/none"};
    const std::size_t kind = random.Below(14); // mostly one of the files
    return kind < std::size(texts) ? texts[kind] : "hostile/" + std::to_string(random.Below(16));
}

} // namespace vxsign::test
