// What the program remembers from run to run, in the user's registry.
#pragma once

#include <windows.h>

#include <string>

// A run over some paths. Kept as it stands here.
struct Run
{
    unsigned long long number; // how often these paths have been analysed, 0 for never
    unsigned long long files;
    unsigned long long folders;
    unsigned long long bytes;
    SYSTEMTIME written;
};

// The last run over the paths.
Run recallRun(const std::wstring& paths);

// False when the registry cannot take it.
bool rememberRun(const std::wstring& paths, const Run& run);
