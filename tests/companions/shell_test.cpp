#include "kest/companions/shell.h"

#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/com.h"
#include "kest/kernel/memory.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace kest::test;
using namespace std::string_literals;

namespace
{

// ---- Known folders -------------------------------------------------------------------------------------------------

constexpr GUID documents = {0xFDD39AD0, 0x238F, 0x46AF, {0xAD, 0xB4, 0x6C, 0x85, 0x48, 0x03, 0x69, 0xC7}};
constexpr GUID localAppData = {0xF1B32785, 0x6FBA, 0x4FCF, {0x9D, 0x55, 0x7B, 0x8E, 0x7F, 0x15, 0x70, 0x91}};
constexpr GUID programFilesX64 = {0x6D809377, 0x6AF0, 0x444B, {0x89, 0x57, 0xA3, 0x77, 0x3F, 0x02, 0x20, 0x0E}};
constexpr GUID downloads = {0x374DE290, 0x123F, 0x4565, {0x91, 0x64, 0x39, 0xC4, 0x92, 0x5E, 0x46, 0x7B}};

constexpr HRESULT notFound = static_cast<HRESULT>(0x80070002);

// Records what it is asked and answers one result, with a path if that is a success.
class Folders : public StubFileSystemService
{
public:
    HRESULT SHGetFolderPathW(HWND, int number, HANDLE token, DWORD type, wchar_t* path) override
    {
        asked.push_back({number, token, type});
        if (SUCCEEDED(result))
            wcscpy(path, L"/home/user/Documents");
        return result;
    }

    struct Question
    {
        int number;
        HANDLE token;
        DWORD type;

        bool operator==(const Question&) const = default;
    };

    std::vector<Question> asked;
    HRESULT result = S_OK;
};

class KnownFolders : public testing::Test
{
protected:
    KnownFolders() { hub.fileSystem = &service; }

    StubHub hub;
    Folders service;
    InstalledHub installed{&hub};
    int marker = 0;
    PWSTR path = reinterpret_cast<PWSTR>(&marker);
};

TEST_F(KnownFolders, AreAskedForByTheirNumbers)
{
    int token = 0;
    const struct
    {
        GUID folder;
        DWORD flags;
        Folders::Question question;
    } cases[] = {
        {documents, 0, {CSIDL_PERSONAL, &token, SHGFP_TYPE_CURRENT}},
        {documents, 0x8000, {CSIDL_PERSONAL | CSIDL_FLAG_CREATE, &token, SHGFP_TYPE_CURRENT}},
        {documents, 0x0400, {CSIDL_PERSONAL, &token, SHGFP_TYPE_DEFAULT}},
        {documents, 0x4200, {CSIDL_PERSONAL | 0x4000, &token, SHGFP_TYPE_CURRENT}},
        {localAppData, 0, {CSIDL_LOCAL_APPDATA, &token, SHGFP_TYPE_CURRENT}},
        {programFilesX64, 0, {CSIDL_PROGRAM_FILES, &token, SHGFP_TYPE_CURRENT}},
    };
    for (const auto& row : cases)
    {
        service.asked.clear();
        ASSERT_EQ(SHGetKnownFolderPath(row.folder, row.flags, &token, &path), S_OK);
        EXPECT_STREQ(path, L"/home/user/Documents");
        EXPECT_EQ(service.asked, std::vector{row.question});
        std::free(path);
    }
}

TEST_F(KnownFolders, AreNullWhenTheServiceHasNone)
{
    const struct
    {
        HRESULT answer;
        HRESULT result;
    } cases[] = {{S_FALSE, notFound}, {E_FAIL, E_FAIL}, {notFound, notFound}};
    for (const auto& row : cases)
    {
        service.result = row.answer;
        path = reinterpret_cast<PWSTR>(&marker);
        EXPECT_EQ(SHGetKnownFolderPath(documents, 0, nullptr, &path), row.result);
        EXPECT_EQ(path, nullptr);
    }
}

TEST_F(KnownFolders, NeedAServiceAndAPlaceForThePath)
{
    EXPECT_EQ(SHGetKnownFolderPath(documents, 0, nullptr, nullptr), E_INVALIDARG);
    hub.fileSystem = nullptr;
    EXPECT_EQ(SHGetKnownFolderPath(documents, 0, nullptr, &path), E_NOTIMPL);
    EXPECT_EQ(path, nullptr);
    const InstalledHub none(nullptr);
    EXPECT_EQ(SHGetKnownFolderPath(documents, 0, nullptr, &path), E_NOTIMPL);
}

TEST(SHGetKnownFolderPath, KnowsFoldersWithANumberOnly)
{
    StubHub hub;
    Folders service;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    PWSTR path = nullptr;
    EXPECT_EQ(SHGetKnownFolderPath(downloads, 0, nullptr, &path), notFound);
    EXPECT_EQ(SHGetKnownFolderPath(GUID(), 0, nullptr, &path), notFound);
    EXPECT_TRUE(service.asked.empty());
}

TEST(SHGetKnownFolderPath, HandsOutWhatCoTaskMemFreeKeeps)
{
    StubHub hub;
    Folders service;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    PWSTR path = nullptr;
    ASSERT_EQ(SHGetKnownFolderPath(documents, 0, nullptr, &path), S_OK);
    CoTaskMemFree(path);
    EXPECT_STREQ(path, L"/home/user/Documents");
    std::free(path);
}

// ---- Command lines -------------------------------------------------------------------------------------------------

std::vector<std::wstring> split(const wchar_t* line)
{
    int count = 0;
    LPWSTR* const list = CommandLineToArgvW(line, &count);
    EXPECT_EQ(list[count], nullptr);
    const std::vector<std::wstring> arguments(list, list + count);
    std::free(list);
    return arguments;
}

TEST(CommandLines, AreSplitAsWindowsSplitsThem)
{
    using Arguments = std::vector<std::wstring>;
    const struct
    {
        const wchar_t* line;
        Arguments arguments;
    } cases[] = {
        {L"p", {L"p"}},
        {L"p a\tb", {L"p", L"a", L"b"}},
        {L"p  a  ", {L"p", L"a"}},
        {L" a", {L"", L"a"}},
        {LR"("my program" a)", {L"my program", L"a"}},
        {LR"("my program"a b)", {L"my program", L"a", L"b"}},
        {LR"("my program)", {L"my program"}},
        {LR"(c:\a\"b c" d)", {LR"(c:\a\"b)", LR"(c d)"}},
        {LR"("c:\a\" b)", {LR"(c:\a\)", L"b"}},
        {LR"(p "a b" c)", {L"p", L"a b", L"c"}},
        {LR"(p a" "b)", {L"p", L"a b"}},
        {LR"(p "")", {L"p", L""}},
        {LR"(p "" a)", {L"p", L"", L"a"}},
        {LR"(p "a)", {L"p", L"a"}},
        {LR"(p a\b\\c)", {L"p", LR"(a\b\\c)"}},
        {LR"(p a\\\)", {L"p", LR"(a\\\)"}},
        {LR"(p a\"b)", {L"p", LR"(a"b)"}},
        {LR"(p a\\"b c")", {L"p", LR"(a\b c)"}},
        {LR"(p a\\\"b c)", {L"p", LR"(a\"b)", L"c"}},
        {LR"(p "a\\" b)", {L"p", LR"(a\)", L"b"}},
        {LR"(p "a\"b c")", {L"p", LR"(a"b c)"}},
        {LR"(p "a""b c")", {L"p", LR"(a"b)", L"c"}},
        {LR"(p """a b)", {L"p", LR"("a)", L"b"}},
        {LR"(p """"a b)", {L"p", LR"("a b)"}},
        {LR"(p "a"""b c)", {L"p", LR"(a"b c)"}},
        {L"p \u00E4\U0001F600", {L"p", L"\u00E4\U0001F600"}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(split(row.line), row.arguments) << row.line;
}

TEST(CommandLines, WithoutTextNameTheRunningProgram)
{
    const ScopedLocale utf8("C.UTF-8");
    EXPECT_EQ(split(L""), std::vector{std::filesystem::read_symlink("/proc/self/exe").wstring()});
}

TEST(CommandLines, NeedATextAndAPlaceForTheCount)
{
    int count = 77;
    errno = 0;
    EXPECT_EQ(CommandLineToArgvW(nullptr, &count), nullptr);
    EXPECT_EQ(errno, 87);
    EXPECT_EQ(count, 77);
    errno = 0;
    EXPECT_EQ(CommandLineToArgvW(L"p", nullptr), nullptr);
    EXPECT_EQ(errno, 87);
}

TEST(CommandLineToArgvW, HandsOutWhatLocalFreeKeeps)
{
    int count = 0;
    LPWSTR* const arguments = CommandLineToArgvW(L"p", &count);
    LocalFree(arguments);
    EXPECT_STREQ(arguments[0], L"p");
    std::free(arguments);
}

// ---- Texts ---------------------------------------------------------------------------------------------------------

TEST(Trimming, TakesCharactersOffBothEnds)
{
    using Text = SentinelBuffer<wchar_t, 12>;
    const struct
    {
        const wchar_t* text;
        const wchar_t* characters;
        std::wstring left;
        BOOL result;
    } cases[] = {
        {L"  a b  ", L" ", L"a b", 1}, {L"a b", L" ", L"a b", 0},        {L"xyaxyb", L"yx", L"axyb", 1},
        {L"a\n", L"\n\r", L"a", 1},    {L"   ", L" ", L"", 1},           {L"", L" ", L"", 0},
        {L" a", L"", L" a", 0},        {L"\u00E4a", L"\u00E4", L"a", 1},
    };
    for (const auto& row : cases)
    {
        Text buffer{std::wstring_view(row.text)};
        errno = 77;
        EXPECT_EQ(StrTrimW(buffer.data(), row.characters), row.result) << row.text;
        EXPECT_STREQ(buffer.data(), row.left.c_str());
        EXPECT_EQ(buffer.contents().substr(wcslen(row.text) + 1), Text::untouched().substr(wcslen(row.text) + 1));
        EXPECT_EQ(errno, 77);
    }
    wchar_t text[] = L" a";
    EXPECT_EQ(StrTrimW(nullptr, L" "), 0);
    EXPECT_EQ(StrTrimW(text, nullptr), 0);
    EXPECT_STREQ(text, L" a");
}

} // namespace
