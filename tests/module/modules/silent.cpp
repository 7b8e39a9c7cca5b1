// A module without DllMain. The program exports a variable of the same name as one here: which of them the module sees
// tells how it was bound. The function that nobody defines tells that functions are bound when they are first called.
#include "kest/export.h"

extern "C"
{
    extern KEST_API int moduleTestBinding;
    KEST_API int silentBinding();
    KEST_API void silentCallsWhatNobodyDefines();
    void moduleTestDefinedNowhere();
}

int moduleTestBinding = 2;

int silentBinding()
{
    return moduleTestBinding;
}

void silentCallsWhatNobodyDefines()
{
    moduleTestDefinedNowhere();
}
