#include "kest/kernel/modules.h"
#include "support/last_error.h"
#include "support/text.h"

#include <array>
#include <cwchar>
#include <dlfcn.h>
#include <unistd.h>

namespace
{

const HMODULE mainProgram = reinterpret_cast<HMODULE>(1);

// For a text that the locale cannot decode: what it can, terminated where there is room. The C library's conversion
// of the whole would leave the same, but not tell its length.
std::size_t widenAsFarAsPossible(wchar_t* destination, const char* source, std::size_t limit)
{
    std::size_t count = 0;
    for (std::mbstate_t state{}; count < limit; ++count)
    {
        const std::size_t length = std::mbrtowc(destination + count, source, MB_CUR_MAX, &state);
        if (length > MB_CUR_MAX)
        {
            destination[count] = L'\0';
            break;
        }
        source += length;
    }
    return count;
}

DWORD store(wchar_t* buffer, DWORD size, const char* name)
{
    std::size_t length = kest::widen(buffer, name, size);
    if (length == kest::conversionFailed)
    {
        length = widenAsFarAsPossible(buffer, name, size);
    }
    return static_cast<DWORD>(length);
}

DWORD storeMainProgram(wchar_t* buffer, DWORD size)
{
    constexpr std::size_t longestName = 4096;
    std::array<char, longestName + 1> name;
    const ssize_t length = readlink("/proc/self/exe", name.data(), longestName);
    name[length < 0 ? 0 : static_cast<std::size_t>(length)] = '\0';
    return store(buffer, size, name.data());
}

} // namespace

DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD nSize)
{
    const kest::KeptLastError kept;
    buffer[0] = L'\0';
    if (module == nullptr || module == mainProgram)
    {
        return storeMainProgram(buffer, nSize);
    }
    const FARPROC entryPoint = GetProcAddress(module, "DllMain");
    Dl_info info;
    if (entryPoint == nullptr || dladdr(reinterpret_cast<void*>(entryPoint), &info) == 0)
    {
        return 0;
    }
    return store(buffer, nSize, info.dli_fname);
}

DWORD GetLongPathNameW(const wchar_t* shortPath, wchar_t* longPath, DWORD cchBuffer)
{
    const std::size_t length = std::wcslen(shortPath);
    if (cchBuffer < length)
    {
        return 0;
    }
    std::wmemmove(longPath, shortPath, length + 1);
    return static_cast<DWORD>(length);
}
