// Finding the files to analyse.
#pragma once

#include "program/problems.h"

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

struct FoundFile
{
    std::wstring path;  // under which it is opened
    std::wstring shown; // as the report shows it
    FILETIME lastWrite;
};

struct FileList
{
    std::vector<FoundFile> files;
    std::size_t folders = 0;
    std::size_t links = 0;   // symbolic links: not followed
    std::size_t devices = 0; // pipes, sockets and the like: not read
};

// Lists the files of folders, and files by name or pattern, in the order of their names. A link is followed only when
// it is named itself.
FileList listFiles(const std::vector<std::wstring>& paths, const std::vector<std::wstring>& skippedFolders,
                   Problems& problems);
