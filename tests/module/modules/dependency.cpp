// A shared library that other modules are linked against, with a DllMain of its own.
#include "module/modules/hooks.h"

#include <cerrno>

extern "C"
{
    KEST_API BOOL DllMain(HMODULE module, DWORD reason, LPVOID reserved);
    KEST_API int dependencyAnswer();
}

BOOL DllMain(HMODULE module, DWORD reason, LPVOID reserved)
{
    moduleTestDllMain(module, reason, reserved);
    errno = 55; // the mark by which this DllMain is told from the recorder's
    return 1;
}

int dependencyAnswer()
{
    return 43;
}
