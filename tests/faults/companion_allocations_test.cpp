// Companions without memory: they fail with Windows's codes, and hand out nothing.
#include "faults/allocation_faults.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/companions/kernel.h"
#include "kest/companions/registry.h"
#include "kest/companions/shell.h"
#include "kest/registry.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
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

// Its only value is a text with variables.
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
};

class Expansion final : public StubSystemService
{
public:
    std::wstring ExpandEnvironmentStringsW(const std::wstring& text) override { return text + L"more"; }
};

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

} // namespace
