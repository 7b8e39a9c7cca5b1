// A module that tells the program of its DllMain calls, its construction and its destruction.
#include "module/modules/hooks.h"

namespace
{

struct Lifetime
{
    Lifetime() { moduleTestConstructed(); }
    ~Lifetime() { moduleTestDestroyed(); }
};
const Lifetime lifetime;

} // namespace

extern "C"
{
    KEST_API BOOL DllMain(HMODULE module, DWORD reason, LPVOID reserved);
    KEST_API int recorderAnswer();
}

BOOL DllMain(HMODULE module, DWORD reason, LPVOID reserved)
{
    moduleTestDllMain(module, reason, reserved);
    return KEST_TEST_DLL_MAIN_ANSWER;
}

int recorderAnswer()
{
    return 42;
}
