// The DllMain of a module that has none of its own: without one the library would call that of a module it is linked
// against, and could not tell the module's file name.
#include <windows.h>

extern "C" __attribute__((weak)) BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}
