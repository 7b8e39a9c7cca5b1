// Gives an exported function a second symbol: one body under its plain and its type-encoded name.
#pragma once

// Place it after the definition of `target`, in the same file (an alias needs its target there).
// `declaration` repeats the function's declaration under any free identifier; `second` is the new symbol.
#define KEST_SECOND_NAME(declaration, target, second)                                                                  \
    extern "C" declaration __asm__(second) __attribute__((alias(target), visibility("default")))
