#include "kest/companions/kernel.h"

#include "harness/child_program.h"
#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/companions/shell.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

using namespace kest::test;
using namespace std::string_literals;

namespace
{

using Bytes = SentinelBuffer<char, 24>;

const char* const variable = "KEST_TEST_VARIABLE";

// ---- Environment ---------------------------------------------------------------------------------------------------

TEST(NarrowVariables, AreReadWithTheirLengthOrTheRoomThatTheyNeed)
{
    const ScopedVariable set(variable, "abc $HOME");
    const struct
    {
        DWORD size;
        DWORD result;
        std::string written;
    } cases[] = {{10, 9, "abc $HOME\0"s}, {24, 9, "abc $HOME\0"s}, {9, 10, ""}, {1, 10, ""}, {0, 10, ""}};
    for (const auto& row : cases)
    {
        Bytes buffer;
        errno = 77;
        EXPECT_EQ(GetEnvironmentVariableA(variable, buffer.data(), row.size), row.result) << row.size;
        EXPECT_EQ(buffer.contents(), Bytes::startingWith(row.written)) << row.size;
        EXPECT_EQ(errno, 77);
    }
    EXPECT_EQ(GetEnvironmentVariableA(variable, nullptr, 0), 10U);
    EXPECT_EQ(GetEnvironmentVariableA(variable, nullptr, 24), 10U);
}

TEST(NarrowVariables, TellAnEmptyValueFromNone)
{
    ScopedVariable set(variable, "");
    Bytes buffer;
    errno = 77;
    EXPECT_EQ(GetEnvironmentVariableA(variable, buffer.data(), 24), 0U);
    EXPECT_EQ(buffer.contents(), Bytes::startingWith("\0"s));
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(GetEnvironmentVariableA(variable, buffer.data(), 0), 1U);

    set.set(nullptr);
    Bytes untouched;
    EXPECT_EQ(GetEnvironmentVariableA(variable, untouched.data(), 24), 0U);
    EXPECT_EQ(untouched.contents(), Bytes::untouched());
    EXPECT_EQ(errno, 203);
}

TEST(NarrowVariables, HaveNamesWithoutEqualsSigns)
{
    const ScopedVariable set(variable, "a=b");
    const std::string longer = variable + "=a"s;
    for (const char* const name : {longer.c_str(), "", static_cast<const char*>(nullptr)})
    {
        Bytes buffer;
        errno = 77;
        EXPECT_EQ(GetEnvironmentVariableA(name, buffer.data(), 24), 0U);
        EXPECT_EQ(errno, 203);
        EXPECT_EQ(buffer.contents(), Bytes::untouched());
        EXPECT_EQ(SetEnvironmentVariableA(name, "x"), 0);
        EXPECT_EQ(errno, 87);
        EXPECT_EQ(SetEnvironmentVariableA(name, nullptr), 0);
        EXPECT_EQ(errno, 87);
    }
    EXPECT_STREQ(std::getenv(variable), "a=b");
}

TEST(NarrowVariables, AreSetAndRemovedInTheProcessItself)
{
    const ScopedVariable unset(variable, nullptr);
    errno = 77;
    EXPECT_EQ(SetEnvironmentVariableA(variable, "$(echo x) \"y\""), 1);
    EXPECT_STREQ(std::getenv(variable), "$(echo x) \"y\"");
    EXPECT_EQ(SetEnvironmentVariableA(variable, ""), 1);
    EXPECT_STREQ(std::getenv(variable), "");
    EXPECT_EQ(SetEnvironmentVariableA(variable, nullptr), 1);
    EXPECT_EQ(std::getenv(variable), nullptr);
    EXPECT_EQ(errno, 77);

    EXPECT_EQ(SetEnvironmentVariableA(variable, nullptr), 0);
    EXPECT_EQ(errno, 203);
}

TEST(GetEnvironmentVariableA, TellsCaseApart)
{
    const ScopedVariable set(variable, "abc");
    EXPECT_EQ(GetEnvironmentVariableA("Kest_Test_Variable", nullptr, 0), 0U);
}

TEST(SetEnvironmentVariableA, TellsCaseApart)
{
    const ScopedVariable set(variable, "abc");
    const ScopedVariable other("Kest_Test_Variable", nullptr);
    EXPECT_EQ(SetEnvironmentVariableA("Kest_Test_Variable", "x"), 1);
    EXPECT_STREQ(std::getenv(variable), "abc");
}

TEST(SetEnvironmentVariableA, RefusesEveryEqualsSign)
{
    errno = 0;
    EXPECT_EQ(SetEnvironmentVariableA("=C:", "x"), 0);
    EXPECT_EQ(errno, 87);
}

// ---- Folders -------------------------------------------------------------------------------------------------------

// Answers a path as Windows does: its length, or the room that it needs.
class TemporaryFolder : public StubFileSystemService
{
public:
    explicit TemporaryFolder(std::wstring path) : path_(std::move(path)) {}

    DWORD GetTempPathW(DWORD size, wchar_t* buffer) override
    {
        if (size <= path_.size())
            return static_cast<DWORD>(path_.size() + 1);
        path_.copy(buffer, path_.size());
        buffer[path_.size()] = L'\0';
        return static_cast<DWORD>(path_.size());
    }

private:
    std::wstring path_;
};

struct TemporaryFolderHub : StubHub
{
    explicit TemporaryFolderHub(const std::wstring& path) : service(path) { fileSystem = &service; }

    TemporaryFolder service;
};

TEST(NarrowTemporaryFolder, IsTheHostsInTheProcessesEncoding)
{
    const ScopedLocale utf8("C.UTF-8");
    TemporaryFolderHub hub(L"/tmp/\u00E4/");
    const InstalledHub installed(&hub);
    const struct
    {
        DWORD size;
        DWORD result;
        std::string written;
    } cases[] = {{9, 8, "/tmp/\u00E4/\0"s}, {24, 8, "/tmp/\u00E4/\0"s}, {8, 9, ""}, {0, 9, ""}};
    for (const auto& row : cases)
    {
        Bytes buffer;
        EXPECT_EQ(GetTempPathA(row.size, buffer.data()), row.result) << row.size;
        EXPECT_EQ(buffer.contents(), Bytes::startingWith(row.written)) << row.size;
    }
    EXPECT_EQ(GetTempPathA(24, nullptr), 9U);
}

TEST(NarrowTemporaryFolder, MayHaveAnyLength)
{
    TemporaryFolderHub hub(std::wstring(1000, L'x'));
    const InstalledHub installed(&hub);
    std::string buffer(1001, '!');
    EXPECT_EQ(GetTempPathA(1001, buffer.data()), 1000U);
    EXPECT_EQ(buffer, std::string(1000, 'x') + '\0');
}

TEST(NarrowTemporaryFolder, IsRefusedWhereTheLocaleCannotEncodeIt)
{
    const ScopedLocale ascii("C");
    TemporaryFolderHub hub(L"/tmp/\u00E4/");
    const InstalledHub installed(&hub);
    Bytes buffer;
    EXPECT_EQ(GetTempPathA(24, buffer.data()), 0U);
    EXPECT_EQ(errno, 1113);
    EXPECT_EQ(buffer.contents(), Bytes::untouched());
}

TEST(NarrowTemporaryFolder, IsUnknownWithoutService)
{
    Bytes buffer;
    EXPECT_EQ(GetTempPathA(24, buffer.data()), 0U);
    StubHub hub;
    const InstalledHub installed(&hub);
    EXPECT_EQ(GetTempPathA(24, buffer.data()), 0U);
    EXPECT_EQ(buffer.contents(), Bytes::untouched());
}

TEST(GetWindowsDirectoryW, AnswersTheRoot)
{
    using Characters = SentinelBuffer<wchar_t, 4>;
    Characters buffer;
    errno = 77;
    EXPECT_EQ(GetWindowsDirectoryW(buffer.data(), 1), 2U);
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 2U);
    EXPECT_EQ(buffer.contents(), Characters::untouched());
    EXPECT_EQ(GetWindowsDirectoryW(buffer.data(), 2), 1U);
    EXPECT_EQ(buffer.contents(), Characters::startingWith(L"/\0"s));
    EXPECT_EQ(errno, 77);
}

// ---- Searches ------------------------------------------------------------------------------------------------------

// Finds one file, with a short name, under one name; nothing under others.
class Search : public StubFileSystemService
{
public:
    HANDLE FindFirstFileW(const wchar_t* name, WIN32_FIND_DATAW* data) override
    {
        names.emplace_back(name);
        if (names.back() != L"here/*")
        {
            errno = 2;
            return INVALID_HANDLE_VALUE;
        }
        wcscpy(data->cFileName, L"long name");
        wcscpy(data->cAlternateFileName, L"LONGNA~1");
        return &search;
    }

    std::vector<std::wstring> names;
    int search = 0;
};

class ExtendedSearch : public testing::Test
{
protected:
    ExtendedSearch() { hub.fileSystem = &service; }

    StubHub hub;
    Search service;
    InstalledHub installed{&hub};
    WIN32_FIND_DATAW find = {};
};

TEST_F(ExtendedSearch, IsTheServices)
{
    for (const int advice : {0, FIND_FIRST_EX_LARGE_FETCH, FIND_FIRST_EX_ON_DISK_ENTRIES_ONLY})
    {
        const auto flags = static_cast<DWORD>(advice);
        for (const FINDEX_SEARCH_OPS operation : {FindExSearchNameMatch, FindExSearchLimitToDirectories})
        {
            EXPECT_EQ(FindFirstFileExW(L"here/*", FindExInfoStandard, &find, operation, nullptr, flags),
                      &service.search);
            EXPECT_STREQ(find.cFileName, L"long name");
            EXPECT_STREQ(find.cAlternateFileName, L"LONGNA~1");
        }
    }
    EXPECT_EQ(FindFirstFileExW(L"there/*", FindExInfoBasic, &find, FindExSearchNameMatch, nullptr, 0),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(errno, 2);
    EXPECT_STREQ(find.cAlternateFileName, L"LONGNA~1");
}

TEST_F(ExtendedSearch, LeavesTheShortNameOutOfBasicRecords)
{
    EXPECT_EQ(FindFirstFileExW(L"here/*", FindExInfoBasic, &find, FindExSearchNameMatch, nullptr, 0), &service.search);
    EXPECT_STREQ(find.cFileName, L"long name");
    EXPECT_STREQ(find.cAlternateFileName, L"");
}

TEST_F(ExtendedSearch, RefusesWrongArguments)
{
    int filter = 0;
    const struct
    {
        const wchar_t* name;
        FINDEX_INFO_LEVELS level;
        void* data;
        FINDEX_SEARCH_OPS operation;
        void* filter;
        DWORD flags;
        int error;
    } cases[] = {
        {nullptr, FindExInfoBasic, &find, FindExSearchNameMatch, nullptr, 0, 87},
        {L"here/*", FindExInfoMaxInfoLevel, &find, FindExSearchNameMatch, nullptr, 0, 87},
        {L"here/*", FindExInfoBasic, nullptr, FindExSearchNameMatch, nullptr, 0, 87},
        {L"here/*", FindExInfoBasic, &find, FindExSearchMaxSearchOp, nullptr, 0, 87},
        {L"here/*", FindExInfoBasic, &find, FindExSearchNameMatch, nullptr, 8, 87},
        {L"here/*", FindExInfoBasic, &find, FindExSearchLimitToDevices, nullptr, 0, 50},
        {L"here/*", FindExInfoBasic, &find, FindExSearchNameMatch, &filter, 0, 50},
    };
    for (const auto& row : cases)
    {
        errno = 0;
        EXPECT_EQ(FindFirstFileExW(row.name, row.level, row.data, row.operation, row.filter, row.flags),
                  INVALID_HANDLE_VALUE);
        EXPECT_EQ(errno, row.error);
    }
    EXPECT_TRUE(service.names.empty());
}

TEST_F(ExtendedSearch, FindsNothingWithoutService)
{
    hub.fileSystem = nullptr;
    EXPECT_EQ(FindFirstFileExW(L"here/*", FindExInfoBasic, &find, FindExSearchNameMatch, nullptr, 0),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(errno, 120);
    const InstalledHub none(nullptr);
    errno = 0;
    EXPECT_EQ(FindFirstFileExW(L"here/*", FindExInfoBasic, &find, FindExSearchNameMatch, nullptr, 0),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(errno, 120);
}

TEST(FindFirstFileExW, LeavesCaseToTheService)
{
    StubHub hub;
    Search service;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    WIN32_FIND_DATAW find = {};
    EXPECT_EQ(FindFirstFileExW(L"here/*", FindExInfoStandard, &find, FindExSearchNameMatch, nullptr,
                               FIND_FIRST_EX_CASE_SENSITIVE),
              &service.search);
}

// ---- The system ----------------------------------------------------------------------------------------------------

SYSTEM_INFO systemInfo()
{
    SYSTEM_INFO info;
    std::memset(&info, 0x5A, sizeof info);
    GetNativeSystemInfo(&info);
    return info;
}

TEST(NativeSystem, IsTheMachineItself)
{
    errno = 77;
    const SYSTEM_INFO info = systemInfo();
    EXPECT_EQ(errno, 77);
#if defined(__x86_64__)
    EXPECT_EQ(info.wProcessorArchitecture, PROCESSOR_ARCHITECTURE_AMD64);
    EXPECT_EQ(info.dwProcessorType, 8664U);
#else
    EXPECT_EQ(info.wProcessorArchitecture, PROCESSOR_ARCHITECTURE_ARM64);
    EXPECT_EQ(info.dwProcessorType, 0U);
#endif
    EXPECT_EQ(info.wReserved, 0);
    EXPECT_EQ(info.dwPageSize, static_cast<DWORD>(getpagesize()));
    EXPECT_EQ(info.dwNumberOfProcessors, static_cast<DWORD>(__builtin_popcountl(info.dwActiveProcessorMask)));
    EXPECT_EQ(info.dwNumberOfProcessors, static_cast<DWORD>(std::min(sysconf(_SC_NPROCESSORS_ONLN), 64L)));
    EXPECT_EQ(info.dwActiveProcessorMask & (info.dwActiveProcessorMask + 1), 0U);
    int local = 0;
    EXPECT_GT(static_cast<void*>(&local), info.lpMinimumApplicationAddress);
    EXPECT_LT(static_cast<void*>(&local), info.lpMaximumApplicationAddress);
    GetNativeSystemInfo(nullptr);
}

TEST(GetNativeSystemInfo, AllocatesByPages)
{
    EXPECT_EQ(systemInfo().dwAllocationGranularity, static_cast<DWORD>(getpagesize()));
}

TEST(GetNativeSystemInfo, TellsNoLevelOrRevision)
{
    EXPECT_EQ(systemInfo().wProcessorLevel, 0);
    EXPECT_EQ(systemInfo().wProcessorRevision, 0);
}

// ---- The command line ----------------------------------------------------------------------------------------------

std::wstring widened(const std::string& bytes)
{
    std::wstring text(bytes.size(), L'\0');
    const std::size_t length = std::mbstowcs(text.data(), bytes.c_str(), text.size());
    text.resize(length);
    return text;
}

std::vector<std::string> ownArguments()
{
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');)
        arguments.push_back(argument);
    return arguments;
}

TEST(CommandLine, IsSplitIntoTheArgumentsAgain)
{
    const ScopedLocale utf8("C.UTF-8");
    const std::vector<std::string> expected = ownArguments();
    int count = 0;
    errno = 77;
    LPWSTR* const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    EXPECT_EQ(errno, 77);
    ASSERT_NE(arguments, nullptr);
    ASSERT_EQ(static_cast<std::size_t>(count), expected.size()) << GetCommandLineW();
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(arguments[i], widened(expected[static_cast<std::size_t>(i)]));
    EXPECT_EQ(arguments[count], nullptr);
    std::free(arguments);
}

TEST(CommandLine, KeepsBlanksQuotesAndBackslashes)
{
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = emulatorPrefix() + "'" + program +
                                "' --gtest_filter=CommandLine.IsSplitIntoTheArgumentsAgain 'a b' '' 'c\"d' "
                                "'e\\' 'f \\' '\\\\\"' '\"\"\"' '\t' '\u00E4' '\\\\server\\x y\\' g > /dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST(CommandLine, ReplacesBytesThatAreNoText)
{
    if (ownArguments().back() == "\xFF")
    {
        const ScopedLocale utf8("C.UTF-8");
        const std::wstring line = GetCommandLineW();
        EXPECT_EQ(line.substr(line.size() - 2), L" \uFFFD");
        return;
    }
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command =
        emulatorPrefix() + "'" + program + "' --gtest_filter=CommandLine.ReplacesBytesThatAreNoText '\xFF' > /dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST(CommandLine, IsTheSameTextOnEveryCall)
{
    EXPECT_EQ(GetCommandLineW(), GetCommandLineW());
}

} // namespace
