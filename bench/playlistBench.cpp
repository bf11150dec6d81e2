// A play list of 10,000 files through its XML file, beside what tinyxml2 alone takes to parse and to print the same
// file; and sequence files of many records.
#include "thread/tempFile.h"

#include <vxsign/vxsign.h>

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <tinyxml2.h>

namespace vxsign::bench {
namespace {

constexpr int kFiles = 10000;

/// Binds the thread's list to a file and fills it.
class List
{
public:
    explicit List(int files)
    {
        std::string whole = xml.Path();
        std::string folder = std::filesystem::path(whole).parent_path().string();
        std::string name = std::filesystem::path(whole).filename().string();
        vxPLInit(folder.data(), name.data());
        std::string root = "/";
        for (int i = 0; i < files; ++i) {
            auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
            if (info == nullptr)
                return;
            ("file" + std::to_string(i) + ".nmg").copy(info->fileName, sizeof info->fileName - 1);
            info->schCount = 1;
            vxPLAddFile(root.data(), 0, info);
        }
        vxPLSave();
    }
    const char* Path() const { return xml.Path(); }

private:
    TempFile xml{"xml"};
};

void LoadList(benchmark::State& state)
{
    const List list(kFiles);
    for (auto round : state)
        if (vxLoadSYSFromXML(nullptr) != VX_OK)
            state.SkipWithError("no list");
}

void ParseAlone(benchmark::State& state)
{
    const List list(kFiles);
    for (auto round : state) {
        tinyxml2::XMLDocument document;
        if (document.LoadFile(list.Path()) != tinyxml2::XML_SUCCESS)
            state.SkipWithError("no document");
    }
}

void SaveList(benchmark::State& state)
{
    const List list(kFiles);
    for (auto round : state)
        vxPLSave();
}

void PrintAlone(benchmark::State& state)
{
    const List list(kFiles);
    tinyxml2::XMLDocument document;
    document.LoadFile(list.Path());
    const TempFile copy("xml");
    for (auto round : state)
        document.SaveFile(copy.Path());
}

// Grows with the square of the list, since each name is looked for among all others.
void AddFiles(benchmark::State& state)
{
    for (auto round : state)
        const List list(static_cast<int>(state.range(0)));
}

// A flat sequence file of that many records.
void LoadSequence(benchmark::State& state)
{
    const auto count = static_cast<std::uint16_t>(state.range(0));
    const TempFile sequence("sys");
    {
        std::ofstream file(sequence.Path(), std::ios::binary);
        const char header[] = {'S', 'Q', 4, 0, static_cast<char>(count & 0xFF), static_cast<char>(count >> 8), 0, 0};
        file.write(header, sizeof header);
        for (int i = 0; i < count; ++i)
            file << std::string("DT\x0F\x7F", 4) + std::string(20, '\0') + "ABCDEFGH.NMG";
    }
    for (auto round : state)
        vxLoadSYSFromLED(sequence.Path());
    state.SetItemsProcessed(std::int64_t{count} * state.iterations());
}

BENCHMARK(LoadList)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveList)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(AddFiles)->Arg(2500)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSequence)->Arg(8191)->Arg(65535)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vxsign::bench
