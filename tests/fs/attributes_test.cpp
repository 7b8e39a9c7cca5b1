#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace
{

using kest::test::InstalledHub;
using kest::test::ScratchFolder;
using kest::test::StubFileSystemService;
using kest::test::StubHub;
using namespace std::string_literals;
using Buffer = kest::test::SentinelBuffer<wchar_t, 16>;

// Knows one object, "name", that exists under another name; notes what it is asked.
class KnowsOneName : public StubFileSystemService
{
public:
    BOOL PathFileExistsW(const wchar_t* path, std::wstring& actualPath) override
    {
        asked.push_back(path);
        givenActualPaths.push_back(actualPath);
        if (path == nullptr || path != L"name"s)
        {
            return 0;
        }
        actualPath = L"Actual Name";
        return 5;
    }
    DWORD GetFileAttributesW(const wchar_t* name) override
    {
        attributesOf.emplace_back(name);
        return 0x21;
    }
    BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes) override
    {
        setPath = path;
        setAttributes = attributes;
        return 7;
    }
    HRESULT SHGetFolderPathW(HWND window, int folder, HANDLE token, DWORD flags, wchar_t* path) override
    {
        EXPECT_EQ(token, nullptr);
        EXPECT_EQ(flags, 0U);
        folderWindow = window;
        folderAsked = folder;
        path[0] = L'p';
        path[1] = L'\0';
        return folderResult;
    }

    std::vector<const wchar_t*> asked;
    std::vector<std::wstring> givenActualPaths;
    std::vector<std::wstring> attributesOf;
    const wchar_t* setPath = nullptr;
    DWORD setAttributes = 0;
    HWND folderWindow = nullptr;
    int folderAsked = 0;
    HRESULT folderResult = 0;
};

class Attributes : public testing::Test
{
protected:
    Attributes() { hub_.fileSystem = &service_; }

    KnowsOneName service_;
    StubHub hub_;
};

TEST_F(Attributes, OfAWidePathAreThoseOfItsActualName)
{
    const InstalledHub installed(&hub_);
    const std::wstring path = L"name";
    errno = 77;
    EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x21U);
    EXPECT_EQ(errno, 77);
    // The service gets the caller's pointer, and a copy of the path to fill in.
    EXPECT_EQ(service_.asked, std::vector<const wchar_t*>{path.c_str()});
    EXPECT_EQ(service_.givenActualPaths, std::vector<std::wstring>{L"name"});
    EXPECT_EQ(service_.attributesOf, std::vector<std::wstring>{L"Actual Name"});
}

TEST_F(Attributes, OfAMissingWidePathAreInvalid)
{
    const InstalledHub installed(&hub_);
    EXPECT_EQ(GetFileAttributesW(L"other"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(service_.attributesOf, std::vector<std::wstring>{});
}

TEST_F(Attributes, OfANullPathAreTheServicesAffair)
{
    const InstalledHub installed(&hub_);
    EXPECT_EQ(GetFileAttributesW(nullptr), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(service_.asked, std::vector<const wchar_t*>{nullptr});
    EXPECT_EQ(service_.givenActualPaths, std::vector<std::wstring>{L""});
}

TEST_F(Attributes, AreInvalidWithoutHubOrService)
{
    const ScratchFolder folder;
    folder.write("name", "");
    {
        const InstalledHub none(nullptr);
        EXPECT_EQ(GetFileAttributesW(L"name"), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(SetFileAttributesA("name", 1), 0);
    }
    hub_.fileSystem = nullptr;
    const InstalledHub empty(&hub_);
    EXPECT_EQ(GetFileAttributesW(L"name"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(SetFileAttributesA("name", 1), 0);
}

TEST_F(Attributes, OfANarrowPathNeedNoHub)
{
    const ScratchFolder folder;
    const InstalledHub none(nullptr);
    const std::string file = folder.write("file", "").string();
    ASSERT_EQ(chmod(file.c_str(), 0640), 0);
    EXPECT_EQ(GetFileAttributesA("file"), DWORD{S_IFREG | 0640});
    EXPECT_EQ(GetFileAttributesA(file.c_str()), DWORD{S_IFREG | 0640});
    EXPECT_EQ(GetFileAttributesA("missing"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFileAttributesA(""), INVALID_FILE_ATTRIBUTES);
}

TEST(GetFileAttributesA, AnswersThePosixMode)
{
    const ScratchFolder folder;
    ASSERT_EQ(mkdir("directory", 0700), 0);
    ASSERT_EQ(symlink("directory", "link"), 0);
    EXPECT_EQ(GetFileAttributesA("directory"), 0x4000U | 0700U);
    EXPECT_EQ(GetFileAttributesA("link"), 0x4000U | 0700U);
}

TEST(SetFileAttributesA, ConvertsNothing)
{
    KnowsOneName service;
    StubHub hub;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    const wchar_t path[] = L"name";
    EXPECT_EQ(SetFileAttributesA(reinterpret_cast<const char*>(path), 0x80000001), 7);
    EXPECT_EQ(service.setPath, path);
    EXPECT_EQ(service.setAttributes, 0x80000001U);
}

TEST(ShortPaths, AreTheLongOnes)
{
    Buffer buffer;
    errno = 77;
    EXPECT_EQ(GetShortPathNameW(L"/long/name", buffer.data(), 11), 10U);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"/long/name\0"s));
    EXPECT_EQ(errno, 77);
}

TEST(ShortPaths, TellTheSizeNeededWithoutABuffer)
{
    EXPECT_EQ(GetShortPathNameW(L"abc", nullptr, 0), 4U);
    EXPECT_EQ(GetShortPathNameW(L"abc", nullptr, 100), 4U);
    EXPECT_EQ(GetShortPathNameW(L"", nullptr, 0), 1U);
    Buffer buffer;
    EXPECT_EQ(GetShortPathNameW(L"abc", buffer.data(), 0), 4U);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(ShortPaths, MayBeWrittenOverTheLongOnes)
{
    Buffer buffer{L"/long/name"};
    EXPECT_EQ(GetShortPathNameW(buffer.data(), buffer.data(), 6), 5U);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"/long\0name\0"s));
}

TEST(GetShortPathNameW, AnswersOneLessThanTheSize)
{
    Buffer buffer;
    // The rest of the buffer is filled with zeros.
    EXPECT_EQ(GetShortPathNameW(L"abc", buffer.data(), 12), 11U);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abc"s + std::wstring(9, L'\0')));
    std::vector<wchar_t> hundred(100, L'z');
    EXPECT_EQ(GetShortPathNameW(L"abc", hundred.data(), 100), 99U);
    EXPECT_EQ(std::wstring(hundred.begin(), hundred.end()), L"abc"s + std::wstring(97, L'\0'));
}

TEST(GetShortPathNameW, CutsWhatDoesNotFit)
{
    Buffer three;
    EXPECT_EQ(GetShortPathNameW(L"abcdef", three.data(), 3), 2U);
    EXPECT_EQ(three.contents(), Buffer::startingWith(L"ab\0"s));
    Buffer one;
    EXPECT_EQ(GetShortPathNameW(L"abcdef", one.data(), 1), 0U);
    EXPECT_EQ(one.contents(), Buffer::startingWith(L"\0"s));
}

TEST(SpecialFolders, AreFoundWhenTheServiceAnswersZero)
{
    KnowsOneName service;
    StubHub hub;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    const auto window = reinterpret_cast<HWND>(0x1234);

    Buffer buffer;
    EXPECT_EQ(SHGetSpecialFolderPathW(window, buffer.data(), 0x1A, 0), 1);
    EXPECT_EQ(service.folderWindow, window);
    EXPECT_EQ(service.folderAsked, 0x1A);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"p\0"s));

    for (const HRESULT failure : {1, -1, static_cast<HRESULT>(0x80004005)})
    {
        service.folderResult = failure;
        EXPECT_EQ(SHGetSpecialFolderPathW(window, buffer.data(), 0x1A, 1), 0) << failure;
    }
}

TEST(SHGetSpecialFolderPathW, IgnoresCreate)
{
    KnowsOneName service;
    StubHub hub;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    Buffer buffer;
    EXPECT_EQ(SHGetSpecialFolderPathW(nullptr, buffer.data(), 0x1A, 1), 1);
    EXPECT_EQ(service.folderAsked, 0x1A);
}

TEST(VolumeInformationDeathTest, EndsTheProcess)
{
    EXPECT_DEATH(GetVolumeInformationW(L"/", nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0), "");
    // A handler further out does not keep it alive.
    EXPECT_DEATH(
        {
            try
            {
                throw 1;
            }
            catch (...)
            {
                try
                {
                    GetVolumeInformationW(L"/", nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0);
                }
                catch (...)
                {
                }
            }
        },
        "");
}

} // namespace
