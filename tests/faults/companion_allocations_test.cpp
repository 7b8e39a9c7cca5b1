// Companions without memory: they fail with Windows's codes, and hand out nothing.
#include "faults/allocation_faults.h"
#include "harness/in_child.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/companions/automation.h"
#include "kest/companions/crt.h"
#include "kest/companions/encodings.h"
#include "kest/companions/kernel.h"
#include "kest/companions/registry.h"
#include "kest/companions/shell.h"
#include "kest/kernel/locale.h"
#include "kest/registry.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;

constexpr int notEnoughMemory = 8;

// Longer than a string keeps in itself.
const std::wstring longText = L"/a folder whose name takes its place on the heap/";
const std::string longBytes = "/a folder whose name takes its place on the heap/";

constexpr GUID documents = {0xFDD39AD0, 0x238F, 0x46AF, {0xAD, 0xB4, 0x6C, 0x85, 0x48, 0x03, 0x69, 0xC7}};

class Folders final : public StubFileSystemService
{
public:
    DWORD GetTempPathW(DWORD size, wchar_t* buffer) override
    {
        if (size > longText.size())
            std::wcscpy(buffer, longText.c_str());
        return static_cast<DWORD>(longText.size());
    }
    HRESULT SHGetFolderPathW(HWND, int, HANDLE, DWORD, wchar_t* path) override
    {
        std::wcscpy(path, longText.c_str());
        return S_OK;
    }
};

// Its only value is a text with variables. Deleted, the value is gone.
class Value final : public StubRegistryService
{
public:
    LONG RegQueryValueExW(HKEY, const wchar_t*, DWORD*, DWORD* type, BYTE* data, DWORD* size) override
    {
        *type = REG_EXPAND_SZ;
        *size = static_cast<DWORD>(longText.size() * sizeof(wchar_t));
        if (data != nullptr)
            std::memcpy(data, longText.data(), *size);
        return 0;
    }
    LONG RegEnumKeyExW(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, wchar_t*, DWORD*, FILETIME*) override
    {
        return ERROR_NO_MORE_ITEMS;
    }
    LONG RegEnumValueW(HKEY, DWORD, wchar_t* name, DWORD*, DWORD*, DWORD*, BYTE*, DWORD*) override
    {
        std::wcscpy(name, L"value");
        return deleted ? ERROR_NO_MORE_ITEMS : ERROR_SUCCESS;
    }
    LONG RegDeleteValueW(HKEY, const wchar_t*) override
    {
        deleted = true;
        return ERROR_SUCCESS;
    }

    bool deleted = false;
};

class Expansion final : public StubSystemService
{
public:
    std::wstring ExpandEnvironmentStringsW(const std::wstring& text) override { return text + L"more"; }
};

int argumentsOfThisProcess()
{
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    return static_cast<int>(std::count(std::istreambuf_iterator<char>(file), {}, '\0'));
}

class CompanionAllocations : public testing::Test
{
protected:
    CompanionAllocations()
    {
        hub.fileSystem = &folders;
        hub.registry = &value;
        hub.system = &expansion;
    }

    ScratchFolder folder;
    Folders folders;
    Value value;
    Expansion expansion;
    StubHub hub;
    InstalledHub installed{&hub};
};

TEST_F(CompanionAllocations, AnswerNoNamesTheyCannotConvert)
{
    char buffer[4096] = {};
    const std::string program = fs::read_symlink("/proc/self/exe").string();
    const auto clear = [&buffer] { buffer[0] = '\0'; };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GetModuleFileNameA",
         .call = [&] { return static_cast<long>(GetModuleFileNameA(nullptr, buffer, sizeof buffer)); },
         .success = static_cast<long>(program.size()),
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_STREQ(buffer, succeeded ? program.c_str() : "");
             EXPECT_TRUE(succeeded || errno == notEnoughMemory);
         },
         .prepare = clear},
        {.name = "GetTempPathA",
         .call = [&] { return static_cast<long>(GetTempPathA(sizeof buffer, buffer)); },
         .success = static_cast<long>(longBytes.size()),
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_STREQ(buffer, succeeded ? longBytes.c_str() : "");
             EXPECT_TRUE(succeeded || errno == notEnoughMemory);
         },
         .prepare = clear},
    });
}

TEST_F(CompanionAllocations, MoveNothing)
{
    const std::string from = "a file whose name takes its place on the heap";
    const std::wstring wideFrom(from.begin(), from.end());
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "MoveFileW",
         .call = [&] { return static_cast<long>(MoveFileW(wideFrom.c_str(), L"b")); },
         .success = 1,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_EQ(fs::exists(from), !succeeded);
             EXPECT_EQ(fs::exists("b"), succeeded);
         },
         .prepare =
             [&]
         {
             fs::remove("b");
             folder.write(from, "content");
         }},
    });
}

TEST_F(CompanionAllocations, HandOutNothing)
{
    LPWSTR* arguments = nullptr;
    PWSTR path = nullptr;
    int count = 0;
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "CommandLineToArgvW",
         .call =
             [&]
         {
             arguments = CommandLineToArgvW(
                 L"\"a program whose name takes its place on the heap\" \"and its argument\" b", &count);
             return arguments != nullptr ? 1L : 0L;
         },
         .success = 1,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_EQ(count, succeeded ? 3 : 0);
             EXPECT_TRUE(succeeded || errno == notEnoughMemory);
         },
         .prepare = [&] { count = 0; },
         .release = [&] { std::free(std::exchange(arguments, nullptr)); }},
        {.name = "SHGetKnownFolderPath",
         .call = [&] { return static_cast<long>(SHGetKnownFolderPath(documents, 0, nullptr, &path)); },
         .success = S_OK,
         .failure = E_OUTOFMEMORY,
         .check = [&](bool succeeded) { EXPECT_EQ(path != nullptr, succeeded); },
         .release = [&] { std::free(std::exchange(path, nullptr)); }},
    });
}

TEST_F(CompanionAllocations, ReadNoValuesTheyCannotHold)
{
    wchar_t text[100] = {};
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "RegGetValueW",
         .call =
             [&]
         {
             DWORD size = sizeof text;
             return static_cast<long>(
                 RegGetValueW(HKEY_CURRENT_USER, nullptr, L"x", RRF_RT_REG_SZ, nullptr, text, &size));
         },
         .success = 0,
         .failure = ERROR_OUTOFMEMORY,
         .check = [&](bool succeeded) { EXPECT_EQ(text, succeeded ? longText + L"more" : std::wstring()); },
         .prepare = [&] { text[0] = L'\0'; }},
    });
}

TEST_F(CompanionAllocations, DeleteNoValuesTheyCannotName)
{
    expectEveryFailureHandled(
        AllocatingCall{.name = "RegDeleteTreeW",
                       .call = [] { return static_cast<long>(RegDeleteTreeW(HKEY_CURRENT_USER, nullptr)); },
                       .success = ERROR_SUCCESS,
                       .failure = ERROR_OUTOFMEMORY,
                       .check = [this](bool succeeded) { EXPECT_EQ(value.deleted, succeeded); },
                       .prepare = [this] { value.deleted = false; }});
}

// ---- Files and folders by wide names -------------------------------------------------------------------------------

TEST_F(CompanionAllocations, TouchNoFoldersTheyCannotName)
{
    const std::wstring name(100, L'n');
    const std::string narrow(100, 'n');
    struct stat status;
    const auto row = [&](const char* function, std::function<int()> call, std::function<void(bool)> check,
                         std::function<void()> prepare)
    {
        return AllocatingCall{.name = function,
                              .call = [call] { return static_cast<long>(call()); },
                              .success = 0,
                              .failure = -1,
                              .check = std::move(check),
                              .prepare = std::move(prepare),
                              .release =
                                  [&]
                              {
                                  fs::current_path(folder.path());
                                  fs::remove_all(narrow);
                              }};
    };
    const auto makeFolder = [&] { fs::create_directory(narrow); };
    const auto makeFile = [&] { folder.write(narrow, "content"); };
    const auto gone = [&](bool succeeded) { EXPECT_EQ(fs::exists(narrow), !succeeded); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row(
            "_wmkdir", [&] { return _wmkdir(name.c_str()); },
            [&](bool succeeded) { EXPECT_EQ(fs::exists(narrow), succeeded); }, [] {}),
        row(
            "_wrmdir", [&] { return _wrmdir(name.c_str()); }, gone, makeFolder),
        row(
            "_wchdir", [&] { return _wchdir(name.c_str()); },
            [&](bool succeeded) { EXPECT_EQ(fs::current_path(), succeeded ? folder.path() / narrow : folder.path()); },
            makeFolder),
        row(
            "_wunlink", [&] { return _wunlink(name.c_str()); }, gone, makeFile),
        row(
            "_wstat64i32", [&] { return _wstat64i32(name.c_str(), &status); }, [](bool) {}, makeFile),
    });
}

// ---- Copies that the caller frees ----------------------------------------------------------------------------------

TEST_F(CompanionAllocations, HandOutNoCopies)
{
    const ScopedVariable variable("KEST_TEST_VARIABLE", longBytes.c_str());
    void* block = nullptr;
    std::size_t size = 0;
    const auto release = [&block] { std::free(std::exchange(block, nullptr)); };
    const auto sizeOfCopy = [&](bool succeeded) { EXPECT_EQ(size, succeeded ? longBytes.size() + 1 : 0U); };
    const auto copying = [&](const char* name, std::function<void*()> call)
    {
        return AllocatingCall{.name = name,
                              .call = [call, &block] { return (block = call()) != nullptr ? 1L : 0L; },
                              .success = 1,
                              .failure = 0,
                              .release = release};
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        copying("_wcsdup", [] { return _wcsdup(longText.c_str()); }),
        copying("_strdup", [] { return _strdup(longBytes.c_str()); }),
        copying("_getcwd", [] { return _getcwd(nullptr, 0); }),
        {.name = "_dupenv_s",
         .call = [&]
         { return static_cast<long>(_dupenv_s(reinterpret_cast<char**>(&block), &size, "KEST_TEST_VARIABLE")); },
         .success = 0,
         .failure = ENOMEM,
         .check = sizeOfCopy,
         .release = release},
        {.name = "_wdupenv_s",
         .call = [&]
         { return static_cast<long>(_wdupenv_s(reinterpret_cast<wchar_t**>(&block), &size, L"KEST_TEST_VARIABLE")); },
         .success = 0,
         .failure = ENOMEM,
         .check = sizeOfCopy,
         .release = release},
    });
}

TEST_F(CompanionAllocations, HandOutNoStringsOfAutomationAndKeepTheOldOnes)
{
    BSTR string = nullptr;
    const auto release = [&string]
    {
        SysFreeString(string);
        string = nullptr;
    };
    const auto making = [&](const char* name, std::function<BSTR()> call)
    {
        return AllocatingCall{.name = name,
                              .call =
                                  [call, &string]
                              {
                                  errno = 77;
                                  string = call();
                                  return string != nullptr ? 1L : 0L;
                              },
                              .success = 1,
                              .failure = 0,
                              .check = [](bool) { EXPECT_EQ(errno, 77); },
                              .release = release};
    };
    const auto replacing = [&](const char* name, std::function<INT()> call)
    {
        return AllocatingCall{.name = name,
                              .call = [call] { return static_cast<long>(call()); },
                              .success = TRUE,
                              .failure = FALSE,
                              .check = [&string](bool succeeded) { EXPECT_EQ(string, succeeded ? longText : L"old"); },
                              .prepare = [&string] { string = SysAllocString(L"old"); },
                              .release = release};
    };
    const auto length = static_cast<UINT>(longText.size());
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        making("SysAllocString", [] { return SysAllocString(longText.c_str()); }),
        making("SysAllocStringLen", [=] { return SysAllocStringLen(longText.c_str(), length); }),
        making("SysAllocStringByteLen", [=] { return SysAllocStringByteLen(longBytes.c_str(), length); }),
        replacing("SysReAllocString", [&string] { return SysReAllocString(&string, longText.c_str()); }),
        replacing("SysReAllocStringLen",
                  [&string, length] { return SysReAllocStringLen(&string, longText.c_str(), length); }),
    });
}

// ---- Conversions ---------------------------------------------------------------------------------------------------

TEST_F(CompanionAllocations, ConvertWholeTextsOrNone)
{
    const std::string bytes(300, 'b');
    const std::wstring text(300, L'b');
    using Wide = SentinelBuffer<wchar_t, 400>;
    using Narrow = SentinelBuffer<char, 400>;
    Wide wide;
    Narrow narrow;
    const auto row = [&](const char* name, std::function<int()> call, std::function<void(bool)> check)
    {
        return AllocatingCall{.name = name,
                              .call = [call] { return static_cast<long>(call()); },
                              .success = 300,
                              .failure = 0,
                              .check =
                                  [check](bool succeeded)
                              {
                                  check(succeeded);
                                  EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno;
                              },
                              .prepare =
                                  [&]
                              {
                                  wide = {};
                                  narrow = {};
                              }};
    };
    const auto wideText = [&](bool succeeded)
    { EXPECT_TRUE(wide.contents() == Wide::startingWith(succeeded ? text : std::wstring())); };
    const auto narrowText = [&](bool succeeded)
    { EXPECT_TRUE(narrow.contents() == Narrow::startingWith(succeeded ? bytes : std::string())); };
    for (const UINT page : {UINT{CP_UTF8}, UINT{28591}})
    {
        expectEveryFailureHandled(std::vector<AllocatingCall>{
            row(
                "MultiByteToWideChar",
                [&, page] { return MultiByteToWideChar(page, 0, bytes.data(), 300, wide.data(), 400); }, wideText),
            row(
                "WideCharToMultiByte",
                [&, page]
                { return WideCharToMultiByte(page, 0, text.data(), 300, narrow.data(), 400, nullptr, nullptr); },
                narrowText),
        });
    }
}

// ---- The environment and the command line --------------------------------------------------------------------------

TEST_F(CompanionAllocations, KeepNothingOfAVariableThatCannotBeSet)
{
    // The environment's own list has grown before.
    ASSERT_EQ(SetEnvironmentVariableA("KEST_TEST_SET_0", "value"), 1);
    std::string name;
    expectNothingKeptByFailures({
        .prepare = [&](long number) { name = "KEST_TEST_SET_" + std::to_string(number); },
        .call = [&](long) { return SetEnvironmentVariableA(name.c_str(), longBytes.c_str()) == 1; },
        .check =
            [&](long, bool succeeded)
        {
            EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno;
            EXPECT_STREQ(std::getenv(name.c_str()), succeeded ? longBytes.c_str() : nullptr);
            unsetenv(name.c_str());
        },
    });
    unsetenv("KEST_TEST_SET_0");
}

// It is built once: each attempt has a process of its own.
TEST_F(CompanionAllocations, TellTheCommandLineWholeOrNotYet)
{
    const auto attempt = [argumentCount = argumentsOfThisProcess()](long number)
    {
        const wchar_t* first = nullptr;
        bool reached = false;
        {
            const FailingAllocation failing(number, FailingAllocation::Extent::thisOne);
            first = GetCommandLineW();
            reached = failing.reached();
        }
        const std::wstring whole = GetCommandLineW();
        int count = 0;
        LPWSTR* const arguments = CommandLineToArgvW(whole.c_str(), &count);
        EXPECT_EQ(count, argumentCount);
        std::free(arguments);
        EXPECT_TRUE(first == whole || (reached && *first == L'\0'));
        if (!reached)
            std::ofstream("none failed");
    };
    long number = 1;
    for (; !fs::exists("none failed") && !HasFailure(); ++number)
    {
        EXPECT_EQ(statusInChild([&] { attempt(number); }), 0) << "with allocation " << number << " failing";
    }
    EXPECT_GT(number, 2) << "it allocates nothing";
}

} // namespace
