#include "harness/in_child.h"
#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"
#include "kest/kernel/environment.h"

#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <optional>
#include <pwd.h>
#include <string>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <thread>
#include <unistd.h>

using kest::test::SentinelBuffer;
using kest::test::statusInChild;

namespace
{

// The user that the process seems to belong to; its own when not set.
std::optional<uid_t> pretendedUser;

// The login name that every user seems to have; the real one when not set.
std::optional<std::string> pretendedLogin;

// The name that the host seems to have; its own when not set.
std::optional<std::string> pretendedHost;

} // namespace

extern "C" KEST_API uid_t getuid() noexcept
{
    return pretendedUser ? *pretendedUser : static_cast<uid_t>(syscall(SYS_getuid));
}

extern "C" KEST_API int getpwuid_r(uid_t user, passwd* entry, char* strings, std::size_t size, passwd** found)
{
    using Function = int(uid_t, passwd*, char*, std::size_t, passwd**);
    if (!pretendedLogin)
    {
        return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, "getpwuid_r"))(user, entry, strings, size, found);
    }
    std::memcpy(strings, pretendedLogin->c_str(), pretendedLogin->size() + 1);
    entry->pw_name = strings;
    *found = entry;
    return 0;
}

// Under a name of its own: where calls are checked against their buffers' sizes, gethostname has a body already.
extern "C" KEST_API int tellHostName(char* name, std::size_t size) noexcept __asm__("gethostname");

int tellHostName(char* name, std::size_t size) noexcept
{
    utsname system = {};
    uname(&system);
    const std::string host = pretendedHost.value_or(system.nodename);
    if (host.size() >= size)
    {
        errno = ENAMETOOLONG;
        return -1;
    }
    std::memcpy(name, host.c_str(), host.size() + 1);
    return 0;
}

namespace
{

using Buffer = SentinelBuffer<wchar_t, 300>;

// Becomes another user for a test's duration, as far as getuid tells.
class PretendedUser
{
public:
    explicit PretendedUser(uid_t user) { pretendedUser = user; }
    ~PretendedUser() { pretendedUser.reset(); }
    PretendedUser(const PretendedUser&) = delete;
    PretendedUser& operator=(const PretendedUser&) = delete;
};

TEST(GetUserNameW, WritesNoTerminator)
{
    const PretendedUser root(0);
    Buffer out;
    DWORD size = 300;
    EXPECT_EQ(GetUserNameW(out.data(), &size), 1);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"root"));
}

TEST(GetUserNameW, IgnoresTheGivenSize)
{
    const PretendedUser root(0);
    for (const DWORD given : {0U, 2U, 4U, 0xFFFFFFFFU})
    {
        Buffer out;
        DWORD size = given;
        EXPECT_EQ(GetUserNameW(out.data(), &size), 1);
        EXPECT_EQ(size, 4U);
        EXPECT_EQ(out.contents(), Buffer::startingWith(L"root"));
    }
}

TEST(Identity, NamesTheRealUser)
{
    Buffer out;
    DWORD size = 1234;
    const passwd* const entry = getpwuid(getuid());
    if (entry == nullptr)
    {
        EXPECT_EQ(GetUserNameW(out.data(), &size), 0);
        return;
    }
    const std::string name = entry->pw_name;
    EXPECT_EQ(GetUserNameW(out.data(), &size), 1);
    EXPECT_EQ(size, name.size());
    EXPECT_EQ(out.contents(), Buffer::startingWith(std::wstring(name.begin(), name.end())));
}

// A login name of five bytes and four characters.
void expectLoginName(const char* localeName, DWORD expectedSize, const std::wstring& expected)
{
    const kest::test::ScopedLocale locale(localeName);
    pretendedLogin = "j\u00f6rg";
    Buffer out;
    DWORD size = 1234;
    EXPECT_EQ(GetUserNameW(out.data(), &size), 1);
    EXPECT_EQ(size, expectedSize);
    EXPECT_EQ(out.contents(), Buffer::startingWith(expected));
    pretendedLogin.reset();
}

TEST(Identity, TerminatesLoginNamesThatHaveMoreBytesThanCharacters)
{
    expectLoginName("C.UTF-8", 4, L"j\u00f6rg" + std::wstring(1, L'\0'));
}

TEST(Identity, CountsNoCharactersOfLoginNamesThatTheLocaleCannotConvert)
{
    expectLoginName("C", 0xFFFFFFFF, L"j");
}

TEST(Identity, HasNoNameForAnUnknownUser)
{
    const PretendedUser unknown(3999999999U);
    Buffer out;
    DWORD size = 1234;
    EXPECT_EQ(GetUserNameW(out.data(), &size), 0);
    EXPECT_EQ(size, 1234U);
    EXPECT_EQ(out.contents(), Buffer::untouched());
}

std::wstring hostName()
{
    char name[256] = {};
    EXPECT_EQ(gethostname(name, sizeof name), 0);
    const std::string narrow = name;
    return {narrow.begin(), narrow.end()};
}

TEST(GetComputerNameW, IgnoresTheGivenSize)
{
    for (const DWORD given : {0U, 1U, 300U})
    {
        Buffer out;
        DWORD size = given;
        EXPECT_EQ(GetComputerNameW(out.data(), &size), 1);
        EXPECT_EQ(out.contents(), Buffer::startingWith(hostName() + L'\0'));
    }
    Buffer out;
    EXPECT_EQ(GetComputerNameW(out.data(), nullptr), 1);
    EXPECT_EQ(out.contents(), Buffer::startingWith(hostName() + L'\0'));
}

TEST(GetComputerNameW, LeavesTheSizeUnwritten)
{
    Buffer out;
    DWORD size = 1234;
    EXPECT_EQ(GetComputerNameW(out.data(), &size), 1);
    EXPECT_EQ(size, 1234U);
}

TEST(Identity, NamesHostsOf255Bytes)
{
    pretendedHost = std::string(255, 'h');
    Buffer out;
    EXPECT_EQ(GetComputerNameW(out.data(), nullptr), 1);
    std::wstring name(256, L'h');
    name.back() = L'\0';
    EXPECT_EQ(out.contents(), Buffer::startingWith(name));
    pretendedHost.reset();
}

TEST(Identity, EndsTheHostsNameBeforeWhatTheLocaleCannotConvert)
{
    pretendedHost = "host\xC3\xA4";
    Buffer out;
    errno = 77;
    EXPECT_EQ(GetComputerNameW(out.data(), nullptr), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"host" + std::wstring(1, L'\0')));
    pretendedHost.reset();
}

TEST(Identity, NamesNoHostThatCannotBeTold)
{
    pretendedHost = std::string(256, 'h');
    Buffer out;
    errno = 77;
    EXPECT_EQ(GetComputerNameW(out.data(), nullptr), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(out.contents(), Buffer::startingWith(std::wstring(1, L'\0')));
    pretendedHost.reset();
}

TEST(Identity, NumbersThreadsAsTheKernelDoes)
{
    const auto kernelNumber = [] { return static_cast<DWORD>(syscall(SYS_gettid)); };
    const DWORD own = GetCurrentThreadId();
    EXPECT_EQ(own, kernelNumber());
    EXPECT_EQ(GetCurrentThreadId(), own);
    std::thread(
        [&]
        {
            EXPECT_EQ(GetCurrentThreadId(), kernelNumber());
            EXPECT_NE(GetCurrentThreadId(), own);
        })
        .join();
    const int status = statusInChild(
        [&]
        {
            EXPECT_EQ(GetCurrentThreadId(), kernelNumber());
            EXPECT_NE(GetCurrentThreadId(), own);
        });
    EXPECT_EQ(status, 0);
}

TEST(Identity, NumbersNoProcesses)
{
    EXPECT_EQ(GetCurrentProcessId(), 0U);
    DWORD session = 1234;
    EXPECT_EQ(ProcessIdToSessionId(0, &session), 0);
    EXPECT_EQ(ProcessIdToSessionId(static_cast<DWORD>(getpid()), &session), 0);
    EXPECT_EQ(session, 1234U);
    EXPECT_EQ(ProcessIdToSessionId(1, nullptr), 0);
}

TEST(GetLastError, ReportsErrnoValues)
{
    errno = EACCES;
    EXPECT_EQ(GetLastError(), 13U);
    EXPECT_EQ(errno, EACCES);
    errno = ENOENT;
    EXPECT_EQ(GetLastError(), 126U);
    EXPECT_EQ(errno, ENOENT);
}

TEST(GetLastError, TranslatesWhatSetLastErrorStored)
{
    SetLastError(2);
    EXPECT_EQ(errno, 2);
    EXPECT_EQ(GetLastError(), 126U);
    SetLastError(8);
    EXPECT_EQ(GetLastError(), 193U);
    SetLastError(9);
    EXPECT_EQ(GetLastError(), 193U);
}

TEST(LastError, ComesBackAsStored)
{
    for (const DWORD code : {0U, 1U, 3U, 5U, 7U, 10U, 126U, 193U, 0x7FFFFFFFU, 0x80004005U, 0xFFFFFFFFU})
    {
        SetLastError(code);
        EXPECT_EQ(errno, static_cast<int>(code));
        EXPECT_EQ(GetLastError(), code);
        EXPECT_EQ(errno, static_cast<int>(code));
    }
}

TEST(LastError, BelongsToItsThread)
{
    SetLastError(5);
    std::thread(
        []
        {
            SetLastError(7);
            EXPECT_EQ(GetLastError(), 7U);
        })
        .join();
    EXPECT_EQ(GetLastError(), 5U);
}

} // namespace
