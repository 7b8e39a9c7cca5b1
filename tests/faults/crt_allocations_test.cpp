// The C runtime, the environment, profiles and memory blocks without memory.
#include "faults/allocation_faults.h"
#include "harness/in_child.h"
#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/crt.h"
#include "kest/kernel/environment.h"
#include "kest/kernel/memory.h"
#include "kest/kernel/profiles.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;

using WideBuffer = SentinelBuffer<wchar_t, 9000>;

class CrtAllocations : public testing::Test
{
protected:
    ScratchFolder folder;
    WideBuffer wide;
    std::FILE* stream = nullptr;
    void* block = nullptr;

    void clear() { wide = WideBuffer(); }
    void expectWide(const std::wstring& written)
    {
        EXPECT_TRUE(wide.contents() == WideBuffer::startingWith(written)) << testing::PrintToString(wide.data());
    }
    void closeStream()
    {
        EXPECT_TRUE(stream == nullptr || std::fclose(stream) == 0);
        stream = nullptr;
    }
    void freeBlock()
    {
        std::free(block);
        block = nullptr;
    }
};

TEST_F(CrtAllocations, OpenNoStreams)
{
    folder.write("file", "content");
    const auto close = [this] { closeStream(); };
    const auto keepsContent = [this](bool) { EXPECT_EQ(folder.read("file"), "content"); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "_wfopen",
         .call = [this]
         { return (stream = _wfopen(static_cast<const wchar_t*>(L"file"), L"r+")) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = keepsContent,
         .release = close},
        {.name = "_wfopen_s",
         .call = [this] { return static_cast<long>(_wfopen_s(&stream, L"file", L"r+")); },
         .success = 0,
         .failure = ENOMEM,
         .check = [this](bool succeeded) { EXPECT_EQ(stream != nullptr, succeeded); },
         .release = close},
        {.name = "fopen_s, emptying",
         .call = [this] { return static_cast<long>(fopen_s(&stream, "file", "w")); },
         .success = 0,
         .failure = ENOMEM,
         .check = [this](bool succeeded) { EXPECT_EQ(folder.read("file"), succeeded ? "" : "content"); },
         .prepare = [this] { folder.write("file", "content"); },
         .release = close},
    });
}

TEST_F(CrtAllocations, OpenNoStreamsByNamesThatMayBeWrittenTo)
{
    folder.write("file", "content");
    wchar_t path[] = L"file";
    expectEveryFailureHandled(
        AllocatingCall{.name = "_wfopen", // the overload
                       .call = [&] { return (stream = _wfopen(path, L"r")) != nullptr ? 1L : 0L; },
                       .success = 1,
                       .failure = 0,
                       .release = [this] { closeStream(); }});
}

TEST_F(CrtAllocations, TouchNoFiles)
{
    struct stat status;
    const auto writeFile = [this] { folder.write("file", "content"); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "_wremove",
         .call = [] { return static_cast<long>(_wremove(L"file")); },
         .success = 0,
         .failure = -1,
         .check = [](bool succeeded) { EXPECT_EQ(fs::exists("file"), !succeeded); },
         .prepare = writeFile},
        {.name = "_waccess",
         .call = [] { return static_cast<long>(_waccess(L"file", 0)); },
         .success = 0,
         .failure = -1,
         .prepare = writeFile},
        {.name = "_wstat",
         .call = [&status] { return static_cast<long>(_wstat(L"file", &status)); },
         .success = 0,
         .failure = -1,
         .prepare = writeFile},
    });
}

TEST_F(CrtAllocations, AnswerNoFoldersTheyCannotHold)
{
    const std::wstring here = folder.path().wstring();
    const auto resolved = here + std::wstring(100 - here.size(), L'\0');
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "_wgetcwd, allocating",
         .call = [this] { return (block = _wgetcwd(nullptr, 0)) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .release = [this] { freeBlock(); }},
        {.name = "_wgetcwd",
         .call = [this] { return _wgetcwd(wide.data(), 4096) == wide.data() ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = [&](bool succeeded) { expectWide(succeeded ? here + L'\0' : std::wstring()); },
         .prepare = [this] { clear(); }},
        {.name = "GetCurrentDirectoryW",
         .call = [this] { return static_cast<long>(GetCurrentDirectoryW(4096, wide.data())); },
         .success = static_cast<long>(here.size()),
         .failure = 0,
         .check = [&](bool succeeded) { expectWide(succeeded ? here + L'\0' : std::wstring()); },
         .prepare = [this] { clear(); }},
        // The buffer is always handed back; without memory nothing has been found.
        {.name = "_wfullpath",
         .call = [this]
         { return _wfullpath(wide.data(), L".", 100) == wide.data() && *wide.data() != L'\0' ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = [&](bool succeeded) { expectWide(succeeded ? resolved : std::wstring(100, L'\0')); },
         .prepare = [this] { clear(); }},
    });
}

// ---- Numbers, locales, patterns and searches ----------------------------------------------------------------------

TEST_F(CrtAllocations, ReadLongNumbersAsZero)
{
    const std::wstring number = std::wstring(100, L' ') + L"42";
    expectEveryFailureHandled(AllocatingCall{.name = "_wtoi",
                                             .call = [&number] { return static_cast<long>(_wtoi(number.c_str())); },
                                             .success = 42,
                                             .failure = 0});
}

// Longer digits than the C library's first buffer takes stand in a block that it asks for once and keeps.
TEST_F(CrtAllocations, WriteAsManyDigitsAsThereIsRoomFor)
{
    for (const bool fails : {false, true})
    {
        EXPECT_EQ(statusInChild(
                      [fails]
                      {
                          int point = 0;
                          int sign = 0;
                          std::optional<FailingAllocation> failing;
                          if (fails)
                              failing.emplace(1, FailingAllocation::Extent::thisOneAndAllBehindIt);
                          const char* const written = _fcvt(1e30, 5, &point, &sign);
                          EXPECT_TRUE(!fails || failing->reached());
                          failing.reset();
                          const std::string digits = written;
                          EXPECT_EQ(digits.substr(0, 10), "1000000000");
                          EXPECT_TRUE(fails || digits.size() == 36) << digits;
                      }),
                  0);
    }
}

TEST_F(CrtAllocations, KeepTheLocaleThatCannotBeReplaced)
{
    const ScopedLocale before("C");
    const auto current = [] { return std::string(std::setlocale(LC_CTYPE, nullptr)); };
    expectEveryFailureHandled(
        AllocatingCall{.name = "_wsetlocale",
                       .call =
                           []
                       {
                           const char* const answer = _wsetlocale(LC_CTYPE, L"C.UTF-8");
                           return answer != nullptr && *answer != '\0' && std::strcmp(answer, "C.UTF-8") == 0 ? 1L : 0L;
                       },
                       .success = 1,
                       .failure = 0,
                       .check = [&](bool succeeded) { EXPECT_EQ(current(), succeeded ? "C.UTF-8" : "C"); },
                       // Without any memory at all the C library's own setlocale keeps a block.
                       .oneAlone = true,
                       .prepare = [] { std::setlocale(LC_CTYPE, "C"); }});
}

TEST_F(CrtAllocations, MatchNoLongNames)
{
    const ScopedLocale utf8("C.UTF-8");
    const std::wstring name(3000, L'n');
    expectEveryFailureHandled(
        AllocatingCall{.name = "PathMatchSpecW",
                       .call = [&name] { return static_cast<long>(PathMatchSpecW(name.c_str(), L"N*")); },
                       .success = 1,
                       .failure = 0});
}

TEST_F(CrtAllocations, FindLongPartsAllTheSame)
{
    const std::wstring part(100, L'a');
    const std::wstring string = std::wstring(99, L'a') + L"b" + part;
    expectEveryFailureHandled(AllocatingCall{.name = "StrStrIW",
                                             .call =
                                                 [&]
                                             {
                                                 errno = EDOM;
                                                 const long place =
                                                     StrStrIW(string.c_str(), part.c_str()) - string.c_str();
                                                 EXPECT_EQ(errno, EDOM);
                                                 return place;
                                             },
                                             .success = 100,
                                             .failure = 100});
}

// ---- The keyboard --------------------------------------------------------------------------------------------------

TEST_F(CrtAllocations, SeeACharacterThatWaits)
{
    folder.write("input", "x");
    std::FILE* const input = stdin;
    expectEveryFailureHandled(
        AllocatingCall{.name = "kbhit",
                       .call = [] { return static_cast<long>(kbhit()); },
                       .success = 1,
                       .failure = 0,
                       .check = [](bool succeeded) { EXPECT_EQ(std::getchar(), succeeded ? 'x' : EOF); },
                       .prepare = [] { stdin = std::fopen("input", "r"); },
                       .release =
                           [input]
                       {
                           std::fclose(stdin);
                           stdin = input;
                       }});
}

// ---- The environment -----------------------------------------------------------------------------------------------

// Expands every text to a long one.
class ExpandingSystem final : public StubSystemService
{
public:
    std::wstring ExpandEnvironmentStringsW(const std::wstring& text) override { return text + text; }
};

TEST_F(CrtAllocations, LeaveTheEnvironmentAlone)
{
    const ScopedVariable variable("KEST_TEST_VARIABLE", "a value that is long enough for a block of its own");
    const std::wstring value = L"a value that is long enough for a block of its own";
    ExpandingSystem system;
    StubHub hub;
    hub.system = &system;
    const InstalledHub installed(&hub);
    const auto prepare = [this] { clear(); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "_wgetenv",
         .call = [this] { return (block = _wgetenv(L"KEST_TEST_VARIABLE")) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .release = [this] { freeBlock(); }},
        {.name = "GetEnvironmentVariableW",
         .call = [this] { return static_cast<long>(GetEnvironmentVariableW(L"KEST_TEST_VARIABLE", wide.data(), 0)); },
         .success = 1,
         .failure = 0,
         .check = [&](bool succeeded) { expectWide(succeeded ? value + L"\n" + L'\0' : std::wstring()); },
         .prepare = prepare},
        {.name = "ExpandEnvironmentStringsW",
         .call = [&] { return static_cast<long>(ExpandEnvironmentStringsW(value.c_str(), wide.data(), 9000)); },
         .success = 2 * static_cast<long>(value.size()),
         .failure = 0,
         .check = [&](bool succeeded) { expectWide(succeeded ? value + value + L'\0' : std::wstring()); },
         .prepare = prepare},
    });
}

TEST_F(CrtAllocations, KeepNothingOfAVariableThatCannotBeSet)
{
    const auto name = [](long number) { return "KEST_TEST_PUT_" + std::to_string(number); };
    std::wstring text;
    expectNothingKeptByFailures({
        .prepare = [&](long number) { text = L"KEST_TEST_PUT_" + std::to_wstring(number) + L"=value"; },
        .call = [&](long) { return _wputenv(text.c_str()) == 0; },
        .check =
            [&](long number, bool succeeded)
        {
            EXPECT_STREQ(std::getenv(name(number).c_str()), succeeded ? "value" : nullptr);
            unsetenv(name(number).c_str());
        },
    });
}

// ---- Profiles ------------------------------------------------------------------------------------------------------

TEST_F(CrtAllocations, ReadProfilesWholeOrEmpty)
{
    folder.write("settings.ini", "[section]\nkey = a value\n");
    char section[] = "section";
    char key[] = "key";
    char otherwise[] = "default";
    char file[] = "settings.ini";
    SentinelBuffer<char, 64> narrow;
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "read_profile_string",
         .call = [&]
         { return static_cast<long>(read_profile_string(section, key, otherwise, narrow.data(), 64, file)); },
         .success = 7,
         .failure = 0,
         .check = [&](bool succeeded)
         { EXPECT_EQ(std::strcmp(narrow.data(), succeeded ? "a value" : ""), 0) << narrow.data(); }},
        {.name = "GetPrivateProfileStringW",
         .call =
             [&]
         {
             return static_cast<long>(
                 GetPrivateProfileStringW(L"section", L"key", L"default", wide.data(), 64, L"settings.ini"));
         },
         .success = 7,
         .failure = 0,
         .check = [&](bool succeeded)
         { expectWide(succeeded ? std::wstring(L"a value\0", 8) : std::wstring(1, L'\0')); },
         .prepare = [this] { clear(); }},
    });
}

// ---- Identity and memory -------------------------------------------------------------------------------------------

TEST_F(CrtAllocations, AnswerNoUser)
{
    DWORD size = 0;
    expectEveryFailureHandled(
        AllocatingCall{.name = "GetUserNameW",
                       .call = [&] { return static_cast<long>(GetUserNameW(wide.data(), &size)); },
                       .success = 1,
                       .failure = 0,
                       .check = [&](bool succeeded) { EXPECT_EQ(size != 0, succeeded); },
                       .prepare = [&] { size = 0; }});
}

TEST_F(CrtAllocations, AnswerNoBlocksAndKeepTheOldOnes)
{
    HGLOBAL old = nullptr;
    const auto allocate = [this, &old]
    {
        block = nullptr;
        old = GlobalAlloc(GMEM_FIXED, 100);
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GlobalAlloc",
         .call = [this] { return (block = GlobalAlloc(GMEM_FIXED, 100)) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .release = [this] { freeBlock(); }},
        {.name = "HeapAlloc",
         .call = [this] { return (block = HeapAlloc(GetProcessHeap(), 0, 100)) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .release = [this] { freeBlock(); }},
        {.name = "GlobalReAlloc",
         .call = [this, &old] { return (block = GlobalReAlloc(old, 5000, GMEM_MOVEABLE)) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .prepare = allocate,
         .release =
             [this, &old]
         {
             GlobalFree(block != nullptr ? block : old);
             block = nullptr;
         }},
    });
}

} // namespace
