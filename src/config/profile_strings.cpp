#include "kest/kernel/profiles.h"
#include "support/forwarding.h"
#include "support/text.h"

#include <climits>
#include <cstring>
#include <memory>
#include <new>

namespace
{

constexpr DWORD largestSize = INT_MAX;

// Narrow text for the reader, which wants it writable; an absent text reads as the empty one.
kest::NarrowText readerArgument(const wchar_t* text)
{
    return kest::NarrowText(text == nullptr ? L"" : text);
}

DWORD readFromFile(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue, wchar_t* out, DWORD size,
                   const wchar_t* path)
{
    if (size == 0)
    {
        return 0;
    }
    // A text has at least as many bytes as characters: what the reader fits into the size fits into `out`.
    const std::unique_ptr<char[]> result(size > largestSize ? nullptr : new (std::nothrow) char[size]);
    int count = 0;
    if (result != nullptr)
    {
        count = read_profile_string(readerArgument(section).data(), readerArgument(key).data(),
                                    readerArgument(defaultValue).data(), result.get(), static_cast<int>(size),
                                    readerArgument(path).data());
    }
    if (out != nullptr)
    {
        const char* const text = result == nullptr ? "" : result.get();
        kest::widenTerminated(out, text, std::strlen(text) + 1);
    }
    return static_cast<DWORD>(count);
}

} // namespace

DWORD GetPrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue, wchar_t* out,
                               DWORD size, const wchar_t* path)
{
    if (!kest::hasService(&IPlatformServices::profileService))
    {
        return readFromFile(section, key, defaultValue, out, size, path);
    }
    return kest::forward(&IPlatformServices::profileService, &IProfileService::GetPrivateProfileStringW, section, key,
                         defaultValue, out, size, path);
}

DWORD GetPrivateProfileSectionNamesW(wchar_t*, DWORD, const wchar_t*)
{
    return 0;
}
