// What the C library allocates once in a process, at the first conversion of a locale or a code page, when there is no
// memory for it.
#include "faults/allocation_faults.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/companions/encodings.h"
#include "kest/crt.h"
#include "kest/host/font_service.h"
#include "kest/kernel/directories.h"
#include "kest/kernel/environment.h"
#include "kest/kernel/files.h"

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;

class FirstCallAllocations : public testing::Test
{
protected:
    // A copy of the locale under a name of its own: nothing in this process has converted by it yet.
    FirstCallAllocations()
    {
        fs::create_directory("locales");
        fs::copy("/usr/lib/locale/C.utf8", "locales/fresh", fs::copy_options::recursive);
    }

    void enterLocale()
    {
        ASSERT_EQ(setenv("LOCPATH", (folder.path() / "locales").c_str(), 1), 0);
        ASSERT_NE(std::setlocale(LC_ALL, "fresh"), nullptr);
    }

    static void expectHandled(const std::vector<AllocatingCall>& rows)
    {
        for (const AllocatingCall& row : rows)
        {
            expectEveryFailureOfTheFirstCallHandled(row);
        }
    }

    // Everything but the locale.
    std::vector<std::string> entries() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path()))
        {
            if (entry.path().filename() != "locales")
            {
                names.push_back(entry.path().filename());
            }
        }
        return names;
    }

    ScratchFolder folder;
};

// Whatever the C library lacks, it converts ASCII alone then: the name is empty.
TEST_F(FirstCallAllocations, OfALocaleTouchNoOtherFile)
{
    const std::string name = "\u00e9 file";
    const std::wstring wideName = L"\u00e9 file";
    const std::wstring newName = L"\u00e8 file";
    const std::vector<std::string> nothing;
    const std::vector<std::string> one = {name};
    std::FILE* stream = nullptr;
    struct stat status;
    const auto prepare = [&]
    {
        folder.write(name, "content");
        fs::remove("\u00e8 file");
        enterLocale();
    };
    const auto stays = [&](bool)
    {
        EXPECT_EQ(entries(), one);
        EXPECT_EQ(folder.read(name), "content");
    };
    const auto moves = [&](const std::vector<std::string>& after)
    { return [this, after, one](bool succeeded) { EXPECT_EQ(entries(), succeeded ? after : one); }; };
    expectHandled({
        {.name = "_wfopen",
         .call = [&]
         { return (stream = _wfopen(static_cast<const wchar_t*>(wideName.c_str()), L"w")) != nullptr ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_EQ(entries(), one);
             EXPECT_EQ(folder.read(name), succeeded ? "" : "content");
         },
         .prepare = prepare,
         .release = [&] { EXPECT_TRUE(stream == nullptr || std::fclose(stream) == 0); }},
        {.name = "_waccess",
         .call = [&] { return static_cast<long>(_waccess(wideName.c_str(), 0)); },
         .success = 0,
         .failure = -1,
         .check = stays,
         .prepare = prepare},
        {.name = "_wstat",
         .call = [&] { return static_cast<long>(_wstat(wideName.c_str(), &status)); },
         .success = 0,
         .failure = -1,
         .check = stays,
         .prepare = prepare},
        {.name = "_wrename",
         .call = [&] { return static_cast<long>(_wrename(wideName.c_str(), newName.c_str())); },
         .success = 0,
         .failure = -1,
         .check = moves({"\u00e8 file"}),
         .prepare = prepare},
        {.name = "DeleteFileW",
         .call = [&] { return static_cast<long>(DeleteFileW(wideName.c_str())); },
         .success = 1,
         .failure = 0,
         .check = moves(nothing),
         .prepare = prepare},
    });
}

TEST_F(FirstCallAllocations, OfALocaleReadNoOtherText)
{
    const std::string name = "\u00e9 folder";
    const std::wstring here = folder.path().wstring() + L"/\u00e9 folder";
    fs::create_directory(name);
    SentinelBuffer<wchar_t, 4200> buffer;
    const auto check = [&](bool succeeded) { EXPECT_TRUE(!succeeded || std::wstring(buffer.data()) == here); };
    const auto prepare = [&]
    {
        fs::current_path(name);
        enterLocale();
    };
    expectHandled({
        {.name = "_wgetcwd",
         .call = [&] { return _wgetcwd(buffer.data(), 4096) == buffer.data() ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = check,
         .prepare = prepare},
        {.name = "GetCurrentDirectoryW",
         .call = [&] { return GetCurrentDirectoryW(4096, buffer.data()) == here.size() ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = check,
         .prepare = prepare},
    });
}

// The code pages that no other test of this program asks for.
TEST_F(FirstCallAllocations, OfACodePageConvertNothing)
{
    constexpr int notEnoughMemory = 8;
    constexpr int invalidParameter = 87;
    constexpr int untouched = 77;
    SentinelBuffer<wchar_t, 20> wide;
    SentinelBuffer<char, 20> narrow;
    kest::host::ConsoleFontService fonts;
    const auto prepare = [] { errno = untouched; };
    // A page whose module cannot be loaded is one that is not known.
    const auto tellsWhy = [](bool succeeded)
    { EXPECT_TRUE(succeeded ? errno == untouched : errno == notEnoughMemory || errno == invalidParameter) << errno; };
    expectHandled({
        {.name = "MultiByteToWideChar",
         .call = [&] { return static_cast<long>(MultiByteToWideChar(1253, 0, "\xe1", 1, wide.data(), 20)); },
         .success = 1,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             tellsWhy(succeeded);
             EXPECT_EQ(wide.contents(), wide.startingWith(succeeded ? L"\u03b1" : L""));
         },
         .prepare = prepare},
        {.name = "WideCharToMultiByte",
         .call = [&]
         { return static_cast<long>(WideCharToMultiByte(1253, 0, L"\u03b1", 1, narrow.data(), 20, nullptr, nullptr)); },
         .success = 1,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             tellsWhy(succeeded);
             EXPECT_EQ(narrow.contents(), narrow.startingWith(succeeded ? "\xe1" : ""));
         },
         .prepare = prepare},
        {.name = "IsValidCodePage",
         .call = [&] { return static_cast<long>(fonts.IsValidCodePage(1253)); },
         .success = 1,
         .failure = 0,
         .check = [](bool succeeded)
         { EXPECT_TRUE(errno == untouched || (!succeeded && errno == notEnoughMemory)) << errno; },
         .prepare = prepare},
    });
}

} // namespace
