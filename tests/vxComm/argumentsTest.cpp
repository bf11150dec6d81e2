// What no export takes: each export with a pointer, by the table from the headers, gives "Arguments Error" without it
// and sends nothing; then values that no request holds.
#include "support/flatRows.h"

#include <type_traits>

namespace vxsign::test {
namespace {

/// Something to point at, or a small number. As a text it is "x", as a record it counts what follows.
template <class T>
T Sample()
{
    alignas(16) static std::array<std::uint8_t, 8192> something;
    something.fill(1);
    something[0] = 'x';
    something[1] = 0;
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<T>(something.data());
    else if constexpr (std::is_class_v<T>)
        return *Sample<T*>();
    else
        return T{1};
}

std::vector<std::string> Split(const char* text)
{
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

struct PointerRow
{
    const char* name;
    std::vector<std::string> parameters; // with what their marks say
    std::vector<bool> pointers;
    std::function<std::uint32_t(std::size_t missing)> call;
};

template <class... P>
PointerRow Row(const char* name, const char* parameters, std::uint32_t (*call)(P...))
{
    const auto callWithout = [call](std::size_t missing) {
        [[maybe_unused]] std::size_t place = 0;
        [[maybe_unused]] const auto pick = [&]<class T>(T value) -> T {
            if constexpr (std::is_pointer_v<T>)
                return ++place == missing ? nullptr : value;
            return ++place, value;
        };
        const std::tuple<P...> arguments{pick(Sample<P>())...}; // in their order, between braces
        return std::apply(call, arguments);
    };
    return {name, Split(parameters), {std::is_pointer_v<P>...}, callWithout};
}

/// What gives no result word has no word for it either.
template <class R, class... P>
PointerRow Row(const char* name, const char* /*parameters*/, R (*)(P...))
{
    return {name, {}, {}, {}};
}

std::set<std::string> Words(const char* text)
{
    const std::vector<std::string> words = Split(text);
    return {words.begin(), words.end()};
}

/// Parameters, from 1 on, whose lack has another word: the tests of their subjects say which.
const std::set<std::string> kOtherWord = Words(R"(
    vxChkSum/1 vxFSDelete/1 vxGetShortFileName/1 vxLoadPLSFromPC/1 vxLoadSYSFromLED/1 vxOSCopyFile/1 vxOSCopyFile/2
    vxOSCreateDir/1 vxOSGetFileSize/1 vxRWFile/1 vxReadFileLine/1 vxReadFileLine/2)");

/// These have a word of their own for it.
const std::set<std::string> kOwnWord =
    Words("vxTrafficRFlow vxReadTrafficStatus vxReadTrafficMonitor vxReadTrafficRealStatus vxGetProperty");

TEST(Arguments, EachPointerThatIsNeeded)
{
    const PointerRow rows[] = {
#define EXPORT(name, parameters, ...) Row(#name, parameters, name),
#include "exports.inc"
#undef EXPORT
    };
    for (const PointerRow& row : rows)
        for (std::size_t i = 1; i <= row.pointers.size(); ++i) {
            const std::string parameter = row.name + ("/" + std::to_string(i));
            const bool isOptional = row.parameters[i - 1].find("optional") != std::string::npos;
            if (!row.pointers[i - 1] || isOptional || kOtherWord.contains(parameter))
                continue;
            SCOPED_TRACE(parameter);
            ScriptedSign sign;
            EXPECT_EQ(row.call(i), kOwnWord.contains(row.name) ? 3u : 2u);
            EXPECT_TRUE(sign.requests.empty());
            EXPECT_EQ(sign.opened, sign.closed);
        }
}

TEST(Arguments, ValuesThatNoRequestHolds)
{
    const Bytes much(5000);
    const std::string p1020(1020, 'p');
    const std::string local = "x";
    void* none = nullptr;
    std::uint8_t* noEntries = nullptr;
    constexpr ZoneHead kTwoZones{{}, 2, {}};
    const auto zones = [&](std::uint8_t count) { return vxDivideZone(1, 2, {{}, count, {}}, much.data()); };
    const auto display = [&](std::uint16_t size) { return vxSetDisplay(1, 2, 3, {{}, size, {}}, much.data()); };
    const auto content = [&](std::uint16_t size) { return vxSetContentDisplay(1, 2, {{}, size}, much.data()); };
    const auto special = [&](std::uint16_t count) { return vxDivideSpeZone(1, {{}, count, {}}, much.data()); };
    const auto property = [&](std::uint8_t* out) { return vxCoreGetFileProperty(Bytes(4000, 'x').data(), out, 4); };
    const std::pair<const char*, std::function<std::uint32_t(std::uint8_t * out)>> calls[] = {
        {CALL(vxUploadBuffer(much.data(), 0))},
        {CALL(vxPatternTest(1))},
        {CALL(vxPatternTest(16))},
        {CALL(vxLocationTest(1, 2, 3, 4, much.data(), 1521, 5))},
        {CALL(vxLocationTest(1, 2, 3, 4, much.data(), 0x80000001, 5))},
        {CALL(vxWriteUrgentMsg(1, 2, much.data(), 3053))},
        {CALL(vxLCSetUpdateStatus(0, 0, 3))},
        {CALL(vxLCSetUpdateStatus(1, 0, 1))},
        {CALL(vxLCReadUpdateStatus(1, 0, out, nullptr))},
        {CALL(vxClearAllPlayFiles(1, nullptr))},
        {CALL(vxReadStats(1, out, 0))},
        {CALL(vxGetSNMAC(out, 11, out, 6))},
        {CALL(vxGetSNMAC(out, 12, out, 5))},
        {CALL(vxGetSNMAC(out, 12, nullptr, 6))},
        {CALL(vxCustomTest(1, 1, nullptr, 1, nullptr, 0, 0, nullptr, nullptr, nullptr, nullptr))},
        {CALL(vxCreateDir(p1020.c_str()))},
        {CALL(vxIsFileExist(std::string(1 << 20, 'p').c_str()))},
        {CALL(vxPlaySoundFile(1, p1020.substr(7).c_str()))},
        {CALL(vxCoreGetFileProperty(much.data(), out, 0))},
        {CALL(property(out))},
        {CALL(vxCoreWinMode(1, much.data(), 4000))},
        {CALL(vxCoreGetPlayInfo(out, 0))},
        {CALL(vxCoreSwitchProgram(much.data(), 3))},
        {CALL(vxCoreSwitchMode(3))},
        {CALL(zones(128))},
        {CALL(display(3021))},
        {CALL(content(65535))},
        {CALL(special(761))},
        {CALL(vxGetZoneBase(out, 0))},
        {CALL(vxDivideZone4j(1, 2, &kTwoZones, &none))},
        {CALL(vxGetZone4j(reinterpret_cast<ZoneHead*>(out), &noEntries, 1, 1))},
        {CALL(vxTarsisGetTileStat(495, Long(out)))},
        {CALL(vxTarsisTileTest(495, 1, Long(out)))},
        {CALL(vxTarsisTileTest(65534, 1, Long(out)))},
        {CALL(vxTarsisSetTileCmd(65534, 1))},
        {CALL(vxOndraTileCMD(1, 2, 3, much.data(), 3049))},
        {CALL(vxOndraReadTileFile(local.c_str(), 0, 1, 65535, 1, nullptr))},
        {CALL(vxOndraReadTileFileTimeout(local.c_str(), 11, 1, 1, 1, nullptr, 1))},
        {CALL(vxOndraReadTileFileExt(local.c_str(), 0, 255, 1, 0, 1, nullptr))},
        {CALL(vxOndraWriteTileFile(local.c_str(), 11, 1, 1, nullptr))},
        {CALL(vxOndraWriteTileFileExt(local.c_str(), 0, 255, 1, 0, nullptr))},
        {CALL(vxOndraWritePxlCal(local.c_str(), 255, 1, 0, nullptr, nullptr))},
        {CALL(vxOndraWritePxlCalBurn(local.c_str(), 255, 1, 0, 0, nullptr, nullptr))},
        {CALL(vxDirectTileCMD(1, 1, 1, much.data(), 3053))},
        {CALL(vxShowFiles(Sample<const char**>(), 0, '1', 1, "127.0.0.1", 1, 0))},
        {CALL(vxTubeSet(1, much.data(), 1021))},
        {CALL(vxShowMsgToNmg(much.data(), 0, local.c_str(), 0, 0, 0, 0))}};
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        ScriptedSign sign;
        std::array<std::uint8_t, 256> out;
        EXPECT_EQ(call(out.data()), 2u);
        EXPECT_TRUE(sign.requests.empty());
        EXPECT_EQ(sign.opened, sign.closed);
    }
}

} // namespace
} // namespace vxsign::test
