// Gives an exported function a second symbol: one body under its plain and its type-encoded name.
#pragma once

// Place it after the definition of `target`, in the same file (an alias needs its target there).
// `declaration` repeats the function's declaration under any free identifier; `second` is the new symbol, whatever
// the linkage: with C linkage Clang would warn of functions that return classes.
#define KEST_SECOND_NAME(declaration, target, second)                                                                  \
    extern declaration __asm__(second) __attribute__((alias(target), visibility("default")))

// How encoded names spell a va_list, to be put behind the rest of `second`.
#if defined(__aarch64__)
#define KEST_VA_LIST_CODE "St9__va_list"
#else
#define KEST_VA_LIST_CODE "P13__va_list_tag"
#endif
