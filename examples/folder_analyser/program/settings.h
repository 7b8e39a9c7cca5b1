// The settings file and what it says.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct Settings
{
    std::vector<std::wstring> plugins;
    std::vector<std::wstring> skippedFolders; // patterns of folder names that are not entered
    std::size_t topEntries = 0;
};

// Reads the settings; what the file does not say has a default.
Settings readSettings(const std::wstring& file);
