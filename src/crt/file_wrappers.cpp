#include "kest/crt/file_wrappers.h"

#include "support/locale.h"
#include "support/second_name.h"
#include "support/text.h"

#include <cerrno>
#include <climits>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

using kest::conversionFailed;
using kest::narrowIntoScratch;
using kest::NarrowText;
using kest::WholeNarrowText;
using kest::widen;

namespace
{

struct Release
{
    void operator()(void* memory) const { std::free(memory); }
};

// Memory of the C library's allocator, for the caller to release.
template <class T>
using Allocation = std::unique_ptr<T, Release>;

Allocation<wchar_t> workingDirectoryCopy(const char* directory, std::size_t bytes)
{
    const int places = static_cast<int>(widen(nullptr, directory, 0) + 1);
    if (places == 0)
    {
        return nullptr;
    }
    Allocation<wchar_t> copy(static_cast<wchar_t*>(std::malloc(static_cast<std::size_t>(places) * sizeof(wchar_t))));
    // The limit leaves no room for a terminator when every character took one byte.
    if (copy == nullptr || widen(copy.get(), directory, bytes) == conversionFailed)
    {
        return nullptr;
    }
    return copy;
}

// What the kernel answers for a null path. The C library's declarations forbid to hand it one.
int refuseNullPath()
{
    errno = EFAULT;
    return -1;
}

} // namespace

// ---- Files -----------------------------------------------------------------------------------------------------

FILE* _wfopen(const wchar_t* path, const wchar_t* mode)
{
    return std::fopen(NarrowText(path).c_str(), NarrowText(mode).c_str());
}

KEST_SECOND_NAME(FILE* encodedWfopen(const wchar_t*, const wchar_t*), "_wfopen", "_Z7_wfopenPKwS0_");

FILE* _wfopen(wchar_t* path, const wchar_t* mode)
{
    return _wfopen(static_cast<const wchar_t*>(path), mode);
}

int _wfopen_s(FILE** out, const wchar_t* path, const wchar_t* mode)
{
    if (out == nullptr)
    {
        return errno;
    }
    *out = _wfopen(path, mode);
    return *out != nullptr ? 0 : errno;
}

int fopen_s(FILE** out, const char* path, const char* mode)
{
    if (out == nullptr)
    {
        return errno;
    }
    *out = std::fopen(path, mode);
    return *out != nullptr ? 0 : errno;
}

int _wrename(const wchar_t* oldName, const wchar_t* newName)
{
    return std::rename(NarrowText(oldName).c_str(), NarrowText(newName).c_str());
}

int _wremove(const wchar_t* path)
{
    const std::size_t size = std::wcslen(path) + 1;
    const std::unique_ptr<char[]> name(new (std::nothrow) char[size]);
    if (name == nullptr)
    {
        return refuseNullPath();
    }
    narrowIntoScratch(name.get(), path, size);
    return std::remove(name.get());
}

int _waccess(const wchar_t* path, int mode)
{
    kest::setCharacterTypeToUtf8();
    const WholeNarrowText name(path);
    return name.c_str() == nullptr ? refuseNullPath() : access(name.c_str(), mode);
}

int _wstat(const wchar_t* path, struct stat* record)
{
    const WholeNarrowText name(path);
    return name.c_str() == nullptr ? refuseNullPath() : stat(name.c_str(), record);
}

long _filelength(int fd)
{
    struct stat status;
    return fstat(fd, &status) == 0 ? status.st_size : 0;
}

long _wfindfirst(const wchar_t* path, struct _wfinddata_t* record)
{
    struct stat status = {};
    const int result = stat(NarrowText(path).c_str(), &status);
    if (record != nullptr)
    {
        record->attrib = -1;
        record->time_access = status.st_atime;
        record->time_write = status.st_mtime;
        record->size = status.st_size;
    }
    return result;
}

// ---- Folders ---------------------------------------------------------------------------------------------------

wchar_t* _wgetcwd(wchar_t* buffer, int size)
{
    const Allocation<char> directory(getcwd(nullptr, 0));
    if (directory == nullptr)
    {
        return nullptr;
    }
    if (buffer == nullptr)
    {
        return workingDirectoryCopy(directory.get(), std::strlen(directory.get())).release();
    }
    return widen(buffer, directory.get(), static_cast<std::size_t>(size)) == conversionFailed ? nullptr : buffer;
}

wchar_t* _wfullpath(wchar_t* buffer, const wchar_t* path, unsigned long size)
{
    // What a failing realpath leaves counts, and so do the zeros where it or the conversion leaves nothing.
    char resolved[PATH_MAX] = {};
    [[maybe_unused]] const char* const unchecked = realpath(WholeNarrowText(path).c_str(), resolved);
    wchar_t wide[PATH_MAX] = {};
    widen(wide, resolved, PATH_MAX);
    return buffer == nullptr ? nullptr : std::wcsncpy(buffer, wide, size);
}

// ---- Environment and locale ------------------------------------------------------------------------------------

int _wputenv(const wchar_t* text)
{
    NarrowText variable(text);
    if (std::strchr(variable.c_str(), '=') == nullptr)
    {
        // Removes the variable and keeps nothing of the text.
        return putenv(variable.data());
    }
    Allocation<char> copy(strdup(variable.c_str()));
    const int result = copy == nullptr ? -1 : putenv(copy.get());
    if (result == 0)
    {
        static_cast<void>(copy.release());
    }
    return result; // NOLINT(clang-analyzer-unix.Malloc): the environment has the text now, for good
}

wchar_t* _wgetenv(const wchar_t* name)
{
    const char* const value = std::getenv(NarrowText(name).c_str());
    if (value == nullptr)
    {
        return nullptr;
    }
    const std::size_t places = std::strlen(value) + 1;
    // Zeros terminate a value that cannot be converted to its end.
    auto* const copy = static_cast<wchar_t*>(std::calloc(places, sizeof(wchar_t)));
    if (copy != nullptr)
    {
        widen(copy, value, places);
    }
    return copy;
}

char* _wsetlocale(int category, const wchar_t* locale)
{
    return std::setlocale(category, WholeNarrowText(locale).c_str());
}
