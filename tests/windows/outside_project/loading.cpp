// Loads each module it is told to and calls it.
#include <windows.h>

#include <cstdio>
#include <cwchar>

int wmain(int argc, wchar_t** argv)
{
    for (int place = 1; place < argc; ++place)
    {
        const HMODULE module = LoadLibraryW(argv[place]);
        std::printf("%ls: ", argv[place]);
        if (module == nullptr)
        {
            std::printf("not found\n");
            continue;
        }
        const auto answer = reinterpret_cast<int (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "Answer")));
        wchar_t file[4096] = {};
        GetModuleFileNameW(module, file, 4095);
        const wchar_t* const name = std::wcsrchr(file, L'/');
        std::printf("%d from %ls, hidden %d\n", answer != nullptr ? answer() : -1, name != nullptr ? name : file,
                    GetProcAddress(module, "HiddenAnswer") == nullptr);
        std::fflush(stdout);
        FreeLibrary(module);
    }
    return 0;
}
