#include <windows.h>

#include <cstdio>

static int loads = 0;

extern "C" int HiddenAnswer()
{
    return 41;
}

extern "C" __declspec(dllexport) int Answer()
{
    return HiddenAnswer() + loads;
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
    {
        ++loads;
    }
    if (reason == DLL_PROCESS_DETACH)
    {
        std::printf("(unloaded) ");
    }
    return TRUE;
}
