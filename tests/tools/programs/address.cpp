// A program that calls an export and takes its address, too.
#include <kest/kernel.h>

#include <cstdio>

int main()
{
    // The compiler must not look through the pointer.
    LCID (*volatile function)() = GetSystemDefaultLCID;
    std::printf("%u\n%u\n", function(), GetSystemDefaultLCID());
    return 3;
}
