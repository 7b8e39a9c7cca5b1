// Tells what the library knows of the place of the program that this file becomes.
// Usage: location_program file|directory LOCALE
#include "kest/kernel/search_path.h"

#include <clocale>
#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    if (argc != 3 || std::setlocale(LC_ALL, argv[2]) == nullptr)
    {
        return 2;
    }
    CStdStr<wchar_t> path(L"before");
    const bool found = std::strcmp(argv[1], "file") == 0 ? getCurProcessFilePath(path) : getCurProcessDirPath(path);
    return std::printf("%d %ls", found ? 1 : 0, path.c_str()) < 0 ? 1 : 0;
}
