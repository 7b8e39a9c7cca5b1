#include "kest/crt/numbers.h"
#include "support/text.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <new>

int _wtoi(const wchar_t* text)
{
    // One byte a character is all a number needs; what takes more is not part of one, and only uses up the limit.
    const std::size_t limit = std::wcslen(text) + 1;
    std::array<char, 64> shortScratch;
    std::unique_ptr<char[]> longScratch;
    char* scratch = shortScratch.data();
    if (limit >= shortScratch.size())
    {
        longScratch.reset(new (std::nothrow) char[limit + 1]);
        scratch = longScratch.get();
        if (scratch == nullptr)
        {
            return 0;
        }
    }
    // Behind a conversion that fails or fills the limit stands no terminator but these zeros.
    std::memset(scratch, 0, limit + 1);
    kest::narrow(scratch, text, limit);
    return static_cast<int>(std::strtol(scratch, nullptr, 10));
}

long _wtol(const wchar_t* text)
{
    return std::wcstol(text, nullptr, 0);
}

long long _wtoi64(const wchar_t* text)
{
    return static_cast<long long>(std::wcstoull(text, nullptr, 0));
}

double _wtof(const wchar_t* text)
{
    return std::wcstod(text, nullptr);
}
