#include <windows.h>

#include <stdio.h>

int wmain(int argc, wchar_t* argv[])
{
    printf("wmain in C [%ls]\n", argc > 1 ? argv[1] : L"");
    return 7;
}
