#include "kest/kernel/directories.h"
#include "kest/platform_services.h"
#include "support/checked_entry_points.h"
#include "support/forwarding.h"
#include "support/locale.h"
#include "support/out_of_memory.h"
#include "support/text.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/random.h>
#include <sys/stat.h>

namespace
{

// Characters of the varying part of a name.
constexpr std::size_t partLength = 6;

constexpr mode_t fileMode = 0644;

std::uint64_t randomBits()
{
    auto bits = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    // Before the kernel has gathered randomness the clock has to do.
    [[maybe_unused]] const ssize_t filled = getrandom(&bits, sizeof bits, GRND_NONBLOCK);
    return bits;
}

std::string randomName()
{
    constexpr std::string_view alphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::uint64_t bits = randomBits();
    std::string name(partLength, '\0');
    for (char& character : name)
    {
        character = alphabet[bits % alphabet.size()];
        bits /= alphabet.size();
    }
    return name;
}

// A name that nothing has in the current directory; empty when none is found.
std::string newName()
{
    // As many as three characters of the name can make.
    constexpr int attempts = 62 * 62 * 62;
    const int lastError = errno;
    for (int attempt = 0; attempt < attempts; ++attempt)
    {
        const std::string name = randomName();
        struct stat status;
        if (lstat(name.c_str(), &status) != 0 && errno != EOVERFLOW)
        {
            if (errno != ENOENT)
            {
                break;
            }
            errno = lastError;
            return name;
        }
    }
    return {};
}

// What tells one name from the other: a number, or for 0 a new name.
std::string varyingPart(UINT unique)
{
    if (unique == 0)
    {
        return newName();
    }
    char number[partLength + 1];
    // The checked entry point ends the process for a number that is too long.
    __sprintf_chk(number, kest::checkLevel, sizeof number, "%d", static_cast<int>(unique));
    return number;
}

// Text as formatted output prints it.
template <class CharT>
std::basic_string<CharT> printed(const CharT* text)
{
    constexpr std::string_view null = "(null)";
    return text != nullptr ? text : std::basic_string<CharT>(null.begin(), null.end());
}

// Composed before, as the destination may be one of the sources.
template <class CharT>
void store(CharT* destination, const std::basic_string<CharT>& text)
{
    std::copy_n(text.c_str(), text.size() + 1, destination);
}

} // namespace

DWORD GetTempPathW(DWORD size, wchar_t* buffer)
{
    std::fill_n(reinterpret_cast<char*>(buffer), size, '\0');
    return kest::forwardChecked(0, &IPlatformServices::fileSystemService, &IFileSystemService::GetTempPathW, size,
                                buffer);
}

UINT GetTempFileNameA(const char* directory, const char* prefix, UINT unique, char* out)
{
    return kest::answerWithoutMemory(0U,
                                     [=]
                                     {
                                         const std::string name =
                                             printed(directory) + printed(prefix) + varyingPart(unique) + ".tmp";
                                         store(out, name);
                                         return static_cast<UINT>(std::max(static_cast<int>(name.size()), 0));
                                     });
}

UINT GetTempFileNameW(const wchar_t* directory, const wchar_t* prefix, UINT unique, wchar_t* out)
{
    if (out == nullptr)
    {
        return 0;
    }
    const UINT length = kest::answerWithoutMemory(0U,
                                                  [=]
                                                  {
                                                      std::wstring name = printed(directory);
                                                      if (directory == nullptr || !name.ends_with(L'/'))
                                                      {
                                                          name += L'/';
                                                      }
                                                      name += printed(prefix);
                                                      const std::string part = varyingPart(unique);
                                                      name.append(part.begin(), part.end()).append(L".tmp");
                                                      store(out, name);
                                                      return static_cast<UINT>(name.size());
                                                  });
    if (length > 0)
    {
        kest::setCharacterTypeToUtf8();
        // The descriptor stays open.
        creat(kest::NarrowText(out).c_str(), fileMode);
    }
    return length;
}
