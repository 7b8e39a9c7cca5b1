#include "kest/kernel/environment.h"
#include "support/last_error.h"
#include "support/text.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <pwd.h>
#include <unistd.h>

namespace
{

constexpr DWORD errorModuleNotFound = 126;
constexpr DWORD errorBadExecutable = 193;

} // namespace

BOOL GetUserNameW(wchar_t* out, DWORD* size)
{
    for (std::size_t room = 1024;; room *= 2)
    {
        const std::unique_ptr<char[]> strings(new (std::nothrow) char[room]);
        passwd entry = {};
        passwd* found = nullptr;
        if (strings != nullptr && getpwuid_r(getuid(), &entry, strings.get(), room, &found) == ERANGE)
        {
            continue;
        }
        if (found == nullptr)
        {
            return 0;
        }
        *size = static_cast<DWORD>(kest::widen(out, entry.pw_name, std::strlen(entry.pw_name)));
        return 1;
    }
}

BOOL GetComputerNameW(wchar_t* out, DWORD*)
{
    const kest::KeptLastError keep;
    constexpr std::size_t nameSize = 256;
    char name[nameSize] = {};
    gethostname(name, sizeof name);
    kest::widenTerminated(out, name, nameSize);
    return 1;
}

// Asked afresh every time: a thread has another number after fork.
DWORD GetCurrentThreadId()
{
    return static_cast<DWORD>(gettid());
}

DWORD GetCurrentProcessId()
{
    return 0;
}

BOOL ProcessIdToSessionId(DWORD, DWORD*)
{
    return 0;
}

DWORD GetLastError()
{
    switch (errno)
    {
    case ENOENT:
        return errorModuleNotFound;
    case ENOEXEC:
    case EBADF:
        return errorBadExecutable;
    default:
        return static_cast<DWORD>(errno);
    }
}

void SetLastError(DWORD code)
{
    errno = static_cast<int>(code);
}
