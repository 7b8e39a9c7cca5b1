// What test modules call in the program that loads them. Weak, since shared libraries of this project have no undefined
// symbols otherwise; the program always defines them.
#pragma once

#include "kest/base_types.h"
#include "kest/export.h"

extern "C"
{
    KEST_API __attribute__((weak)) void moduleTestDllMain(HMODULE module, DWORD reason, LPVOID reserved);
    KEST_API __attribute__((weak)) void moduleTestConstructed();
    KEST_API __attribute__((weak)) void moduleTestDestroyed();
}
