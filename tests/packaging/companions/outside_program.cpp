// Calls companions through the Windows-named headers.
#include <shellapi.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

int main()
{
    int count = 0;
    LPWSTR* const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    const bool found = arguments != nullptr && count > 0;
    std::free(arguments);
    HANDLE const output = GetStdHandle(STD_OUTPUT_HANDLE);
    std::fputs(found && output == stdout ? "the companions answer\n" : "something else answers\n", stdout);
    return found ? 0 : 1;
}
