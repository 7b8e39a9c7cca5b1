// The command line: what to analyse, and how.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct CommandLine
{
    std::vector<std::wstring> paths;
    std::vector<std::wstring> plugins; // empty: those of the settings
    std::wstring pluginFolder;         // empty: beside the program
    std::wstring settingsFile;         // empty: beside the program
    std::wstring reportFile;           // empty: standard output
    std::size_t topEntries = 0;        // 0: as the settings say
    bool help = false;
};

extern const wchar_t* const usage;

// Fills commandLine; false with a message in problem when the arguments make no sense.
bool parseCommandLine(int argc, wchar_t** argv, CommandLine& commandLine, std::wstring& problem);
