// Commands for what hosts leave with the sign: its settings, and data that it only keeps.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/files/storedRecord.h"
#include "sim/state/faceLight.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

struct FileChecksum
{
    std::uint32_t size = 0;
    std::uint16_t crc = 0;
};

class RecordCommands : public CommandFamily
{
public:
    // Keeps the display style and the identity in the folder.
    RecordCommands(const std::filesystem::path& keptFolder, FaceLight& light, const SignObservers& observers);

    std::span<const CommandRow> Commands() const override;

    std::span<const std::uint8_t, kDisplayStyleSize> DisplayStyle() const;

    // Since the sign started: tube data (payload and extended part joined) by minor, the last urgent message, checksums
    // by file name.
    const std::map<std::uint8_t, std::vector<std::uint8_t>>& TubeData() const { return tubeData; }
    std::span<const std::uint8_t> UrgentMessage() const { return urgentMessage; }
    const std::map<std::string, FileChecksum>& Checksums() const { return checksums; }

private:
    Reply TellIdentity(const Call& call);
    Reply TellDisplayStyle(const Call& call);
    Reply TellBrightness(const Call& call);
    Reply KeepUrgentMessage(const Call& call);
    Reply SetBrightness(const Call& call);
    Reply SetIdentity(const Call& call);
    Reply SetDisplayStyle(const Call& call);
    Reply KeepChecksum(const Call& call);
    Reply KeepTubeData(const Call& call);

    FaceLight& light;
    const SignObservers& observers;
    StoredRecord displayStyle;
    StoredRecord identity;
    std::map<std::uint8_t, std::vector<std::uint8_t>> tubeData;
    std::vector<std::uint8_t> urgentMessage;
    std::map<std::string, FileChecksum> checksums;
};

} // namespace vxsim
