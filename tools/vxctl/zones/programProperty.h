// What a player core tells of its projects and programs. The layout is the usual one.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vxctl {

struct ProgramProperty
{
    bool isProgram = false;
    bool plays = false;
    bool isComplete = false; // all its files are on the sign
    unsigned count = 0;      // of the names below, those included that had no room in the answer
    std::uint32_t bytes = 0;
    std::string changed;   // "YYYY-MM-DD HH:MM:SS"; empty when the sign does not tell
    unsigned programs = 0; // as announced
    unsigned version = 0;
    std::vector<std::string> names; // of projects or programs; of a program's files with "|SECONDS" behind them
};

// Asks the sign of this thread for the property of a program, or without one of its project, or without that of the
// player. Throws SignFailure.
ProgramProperty ReadProperty(const std::string& project, const std::string& program = {});

// A file of a program: its path, and the seconds that a picture stays.
std::pair<std::string, unsigned> SplitFile(const std::string& line);

// Where the sign keeps a project, and a program of it. Throws UsageError for what can be no such name.
std::string ProjectFolder(const std::string& project);
std::string ProgramPath(const std::string& project, const std::string& program);

// What plays where. Throws SignFailure.
struct PlayingProgram
{
    std::string place; // "face", "emergency", or the number of a window
    std::string project;
    std::string program;
    std::string file;
};

struct PlayingPrograms
{
    std::uint8_t state = 0; // 0 no program on the face, 1 a program, 2 an emergency
    std::uint8_t follow = 0;
    std::uint8_t windowMode = 0;
    std::vector<PlayingProgram> programs;
};

PlayingPrograms ReadPlaying();

} // namespace vxctl
