#include "kest/crt/file_wrappers.h"

#include "harness/locale_requests.h"
#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using kest::test::LocaleRequests;
using kest::test::ScopedLocale;
using kest::test::ScopedVariable;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;

struct Release
{
    void operator()(wchar_t* text) const { std::free(text); }
};
using OwnedText = std::unique_ptr<wchar_t, Release>;

struct Close
{
    void operator()(FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<FILE, Close>;

// A file name of one, two, three and four bytes a character.
constexpr const wchar_t* wideName = L"x\u00e9\u4e2d\U0001F600.txt";
const std::string narrowName = "x\u00e9\u4e2d\U0001F600.txt";

// A path whose first 4095 bytes name the file "kept".
std::wstring tooLongPath()
{
    return L"." + std::wstring(4090, L'/') + L"kept-and-more";
}

// Everything here runs in a folder of its own and with UTF-8.
class WithFiles : public testing::Test
{
protected:
    static std::string firstLine(FILE* stream)
    {
        char line[80] = "";
        return std::fgets(line, sizeof line, stream) == nullptr ? "" : line;
    }

    const ScopedLocale locale_{"C.UTF-8"};
    const ScratchFolder folder_;
};

// ---- Opening -----------------------------------------------------------------------------------------------------

using OpeningFiles = WithFiles;

TEST_F(OpeningFiles, WritesAndReadsUnderANonAsciiName)
{
    {
        const Stream stream(_wfopen(wideName, L"w"));
        ASSERT_NE(stream, nullptr);
        EXPECT_GE(std::fputs("content", stream.get()), 0);
    }
    EXPECT_EQ(folder_.read(narrowName), "content");
    std::wstring writable = wideName;
    const Stream stream(_wfopen(writable.data(), L"r"));
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(firstLine(stream.get()), "content");
    EXPECT_EQ(std::fputs("x", stream.get()), EOF);
}

TEST_F(OpeningFiles, AnswersNullAndLeavesErrnoToFopen)
{
    errno = 0;
    EXPECT_EQ(_wfopen(L"missing", L"r"), nullptr);
    EXPECT_EQ(errno, ENOENT);
    errno = 0;
    EXPECT_EQ(_wfopen(L"missing", L"nonsense"), nullptr);
    EXPECT_EQ(errno, EINVAL);
    std::wstring writable = L".";
    errno = 0;
    EXPECT_EQ(_wfopen(writable.data(), L"w"), nullptr);
    EXPECT_EQ(errno, EISDIR);
}

TEST_F(OpeningFiles, CutsNamesWhereTheLocaleCannotEncode)
{
    folder_.write("ab", "cut");
    const ScopedLocale plain("C");
    const Stream stream(_wfopen(L"ab\u00e9cd", L"r"));
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(firstLine(stream.get()), "cut");
}

TEST_F(OpeningFiles, StoresTheStreamAndAnswersZero)
{
    folder_.write(narrowName, "content");
    errno = 77;
    FILE* wide = nullptr;
    EXPECT_EQ(_wfopen_s(&wide, wideName, L"r"), 0);
    const Stream wideStream(wide);
    ASSERT_NE(wideStream, nullptr);
    EXPECT_EQ(firstLine(wide), "content");
    FILE* narrow = nullptr;
    EXPECT_EQ(fopen_s(&narrow, narrowName.c_str(), "r"), 0);
    const Stream narrowStream(narrow);
    ASSERT_NE(narrowStream, nullptr);
    EXPECT_EQ(firstLine(narrow), "content");
    EXPECT_EQ(errno, 77);
}

TEST_F(OpeningFiles, StoresNullAndAnswersErrno)
{
    FILE* const before = stderr;
    FILE* out = before;
    EXPECT_EQ(_wfopen_s(&out, L"missing", L"r"), ENOENT);
    EXPECT_EQ(out, nullptr);
    out = before;
    EXPECT_EQ(_wfopen_s(&out, L".", L"w"), EISDIR);
    EXPECT_EQ(out, nullptr);
    out = before;
    EXPECT_EQ(_wfopen_s(&out, L"x", L"nonsense"), EINVAL);
    EXPECT_EQ(out, nullptr);
    out = before;
    EXPECT_EQ(fopen_s(&out, "missing", "r"), ENOENT);
    EXPECT_EQ(out, nullptr);
    out = before;
    EXPECT_EQ(fopen_s(&out, ".", "w"), EISDIR);
    EXPECT_EQ(out, nullptr);
}

TEST_F(OpeningFiles, OpensNothingWithoutAPlaceForTheStream)
{
    for (const int earlier : {0, 77})
    {
        errno = earlier;
        EXPECT_EQ(_wfopen_s(nullptr, L"made", L"w"), earlier);
        EXPECT_EQ(errno, earlier);
        EXPECT_EQ(fopen_s(nullptr, "made", "w"), earlier);
        EXPECT_EQ(errno, earlier);
    }
    EXPECT_FALSE(fs::exists("made"));
}

// ---- Renaming, removing, asking ----------------------------------------------------------------------------------

using FileOperations = WithFiles;

TEST_F(FileOperations, RenamesFilesAndFolders)
{
    folder_.write("old", "content");
    EXPECT_EQ(_wrename(L"old", wideName), 0);
    EXPECT_FALSE(fs::exists("old"));
    EXPECT_EQ(folder_.read(narrowName), "content");
    EXPECT_EQ(_wrename(wideName, L"new"), 0);
    EXPECT_EQ(folder_.read("new"), "content");
    fs::create_directory("folder");
    EXPECT_EQ(_wrename(L"folder", L"\u00fc"), 0);
    EXPECT_TRUE(fs::is_directory("\u00fc"));
    errno = 0;
    EXPECT_EQ(_wrename(L"old", L"other"), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(FileOperations, RemovesFilesByOneByteNames)
{
    folder_.write("file", "content");
    EXPECT_EQ(_wremove(L"file"), 0);
    EXPECT_FALSE(fs::exists("file"));
    errno = 0;
    EXPECT_EQ(_wremove(L"file"), -1);
    EXPECT_EQ(errno, ENOENT);
    errno = 0;
    EXPECT_EQ(_wremove(L""), -1);
    EXPECT_EQ(errno, ENOENT);
}

// As many bytes as the name has characters, and no part of a character.
TEST_F(FileOperations, CutsNamesToRemove)
{
    struct Row
    {
        const wchar_t* name;
        const char* whole;
        const char* cut;
    };
    const Row rows[] = {
        {L"x\u00e9", "x\u00e9", "x"},
        {L"xyz\u00e9", "xyz\u00e9", "xyz"},
        {L"\u00e9y", "\u00e9y", "\u00e9"},
        {L"ab\u4e2dcd", "ab\u4e2dcd", "ab\u4e2d"},
        {L"a\U0001F600bc", "a\U0001F600bc", "a"},
        {L"a\U0001F600bcd", "a\U0001F600bcd", "a\U0001F600"},
    };
    for (const Row& row : rows)
    {
        folder_.write(row.whole, "whole");
        folder_.write(row.cut, "cut");
        EXPECT_EQ(_wremove(row.name), 0) << row.whole;
        EXPECT_FALSE(fs::exists(row.cut)) << row.whole;
        EXPECT_EQ(folder_.read(row.whole), "whole");
        fs::remove(row.whole);
    }
    folder_.write("\u00e9", "whole");
    errno = 0;
    EXPECT_EQ(_wremove(L"\u00e9"), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_TRUE(fs::exists("\u00e9"));
}

TEST_F(FileOperations, RemovesByLongNames)
{
    folder_.write("file", "content");
    std::wstring path = L"file";
    while (path.size() < 4000)
    {
        path.insert(0, L"./");
    }
    EXPECT_EQ(_wremove(path.c_str()), 0);
    EXPECT_FALSE(fs::exists("file"));
}

TEST_F(FileOperations, AsksForAccess)
{
    folder_.write(narrowName, "content");
    for (const int mode : {F_OK, R_OK, W_OK, R_OK | W_OK})
    {
        EXPECT_EQ(_waccess(wideName, mode), 0) << mode;
    }
    errno = 0;
    EXPECT_EQ(_waccess(wideName, X_OK), -1);
    EXPECT_EQ(errno, EACCES);
    errno = 0;
    EXPECT_EQ(_waccess(L"missing", F_OK), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(_waccess(L".", X_OK), 0);
}

TEST_F(FileOperations, AsksForTheLocaleWheneverItAsksForAccess)
{
    const LocaleRequests requests;
    errno = 77;
    EXPECT_EQ(_waccess(L".", F_OK), 0);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(_waccess(L"missing", F_OK), -1);
    const std::pair<int, std::string> request(LC_CTYPE, "UTF-8");
    EXPECT_EQ(requests.made(), (LocaleRequests::Requests{request, request}));
}

TEST_F(FileOperations, QueriesTheStatus)
{
    folder_.write(narrowName, "content");
    struct _stat record;
    struct stat expected;
    ASSERT_EQ(stat(narrowName.c_str(), &expected), 0);
    EXPECT_EQ(_wstat(wideName, &record), 0);
    EXPECT_EQ(record.st_size, 7);
    EXPECT_EQ(record.st_ino, expected.st_ino);
    EXPECT_EQ(record.st_mtime, expected.st_mtime);
    EXPECT_TRUE(S_ISREG(record.st_mode));
    fs::create_directory_symlink(".", "link");
    EXPECT_EQ(_wstat(L"link", &record), 0);
    EXPECT_TRUE(S_ISDIR(record.st_mode));
    errno = 0;
    EXPECT_EQ(_wstat(L"missing", &record), -1);
    EXPECT_EQ(errno, ENOENT);
}

// Scratch by length cuts nothing: the system sees the whole path.
TEST_F(FileOperations, HandsOverPathsOfAnyLength)
{
    std::wstring path(5000, L'.');
    for (std::size_t index = 1; index < path.size(); index += 2)
    {
        path[index] = L'/';
    }
    struct stat record;
    errno = 0;
    EXPECT_EQ(_wstat(path.c_str(), &record), -1);
    EXPECT_EQ(errno, ENAMETOOLONG);
    errno = 0;
    EXPECT_EQ(_waccess(path.c_str(), F_OK), -1);
    EXPECT_EQ(errno, ENAMETOOLONG);
    // Room for characters of four bytes.
    std::wstring wide;
    std::string narrow;
    for (int round = 0; round < 15; ++round)
    {
        fs::create_directory(narrow + "\U0001F600");
        wide += L"\U0001F600/";
        narrow += "\U0001F600/";
    }
    EXPECT_EQ(_wstat(wide.c_str(), &record), 0);
    EXPECT_EQ(_waccess(wide.c_str(), F_OK), 0);
}

TEST_F(FileOperations, CutPathsWhereTheLocaleCannotEncode)
{
    folder_.write("ab", "cut");
    const ScopedLocale plain("C");
    struct stat record;
    EXPECT_EQ(_wstat(L"ab\u00e9", &record), 0);
    EXPECT_EQ(record.st_size, 3);
    EXPECT_EQ(_waccess(L"ab\u00e9cd", F_OK), 0);
    _wfinddata_t found;
    EXPECT_EQ(_wfindfirst(L"ab\u00e9", &found), 0);
    EXPECT_EQ(found.size, 3);
    EXPECT_EQ(_wrename(L"ab\u00e9", L"yz\u00e9"), 0);
    EXPECT_EQ(folder_.read("yz"), "cut");
    EXPECT_EQ(_wremove(L"yz\u00e9"), 0);
    EXPECT_FALSE(fs::exists("yz"));
}

TEST_F(FileOperations, MeasuresOpenFiles)
{
    folder_.write("file", std::string(123456, 'x'));
    const int fd = open("file", O_RDWR | O_CLOEXEC);
    ASSERT_NE(fd, -1);
    EXPECT_EQ(_filelength(fd), 123456);
    // No room is taken: the file has a hole.
    ASSERT_EQ(ftruncate(fd, 5000000000), 0);
    EXPECT_EQ(_filelength(fd), 5000000000);
    close(fd);
    errno = 0;
    EXPECT_EQ(_filelength(fd), 0);
    EXPECT_EQ(errno, EBADF);
    EXPECT_EQ(_filelength(-1), 0);
}

// ---- The find record ---------------------------------------------------------------------------------------------

using FindRecord = WithFiles;

TEST_F(FindRecord, IsFourFieldsOf64BitsAndAName)
{
    static_assert(offsetof(_wfinddata_t, attrib) == 0);
    static_assert(offsetof(_wfinddata_t, time_access) == 8);
    static_assert(offsetof(_wfinddata_t, time_write) == 16);
    static_assert(offsetof(_wfinddata_t, size) == 24);
    static_assert(offsetof(_wfinddata_t, name) == 32);
    folder_.write(narrowName, "content");
    const timespec times[2] = {{1000000000, 5}, {2000000000, 7}};
    ASSERT_EQ(utimensat(AT_FDCWD, narrowName.c_str(), times, 0), 0);

    _wfinddata_t record;
    std::memset(&record, 0x5A, sizeof record);
    EXPECT_EQ(_wfindfirst(wideName, &record), 0);
    const _wfinddata_t found = record;
    EXPECT_EQ(found.attrib, -1);
    EXPECT_EQ(found.time_access, 1000000000);
    EXPECT_EQ(found.time_write, 2000000000);
    EXPECT_EQ(found.size, 7);
    const std::wstring untouched(MAX_PATH, static_cast<wchar_t>(0x5A5A5A5A));
    EXPECT_EQ(std::wstring(found.name, MAX_PATH), untouched);
}

TEST_F(FindRecord, IsWrittenAfterAFailureToo)
{
    _wfinddata_t record;
    std::memset(&record, 0x5A, sizeof record);
    errno = 0;
    EXPECT_EQ(_wfindfirst(L"missing", &record), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(record.attrib, -1);
    const std::wstring untouched(MAX_PATH, static_cast<wchar_t>(0x5A5A5A5A));
    EXPECT_EQ(std::wstring(record.name, MAX_PATH), untouched);
}

TEST_F(FindRecord, MayBeMissing)
{
    folder_.write("file", "content");
    EXPECT_EQ(_wfindfirst(L"file", nullptr), 0);
    EXPECT_EQ(_wfindfirst(L"missing", nullptr), -1);
}

// ---- The working directory ---------------------------------------------------------------------------------------

using WorkingDirectory = WithFiles;

TEST_F(WorkingDirectory, IsCopiedIntoABuffer)
{
    fs::create_directory(narrowName);
    fs::current_path(narrowName);
    const std::wstring expected = folder_.path().wstring() + L"/" + wideName;
    using Buffer = SentinelBuffer<wchar_t, 200>;
    Buffer buffer;
    errno = 77;
    EXPECT_EQ(_wgetcwd(buffer.data(), Buffer::size()), buffer.data());
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(expected + L'\0'));

    const int length = static_cast<int>(expected.size());
    Buffer exact;
    EXPECT_EQ(_wgetcwd(exact.data(), length + 1), exact.data());
    EXPECT_EQ(exact.contents(), Buffer::startingWith(expected + L'\0'));
    Buffer withoutTerminator;
    EXPECT_EQ(_wgetcwd(withoutTerminator.data(), length), withoutTerminator.data());
    EXPECT_EQ(withoutTerminator.contents(), Buffer::startingWith(expected));
    Buffer cut;
    EXPECT_EQ(_wgetcwd(cut.data(), 4), cut.data());
    EXPECT_EQ(cut.contents(), Buffer::startingWith(expected.substr(0, 4)));
    Buffer none;
    EXPECT_EQ(_wgetcwd(none.data(), 0), none.data());
    EXPECT_EQ(none.contents(), Buffer::untouched());
}

TEST_F(WorkingDirectory, IsAllocatedWithItsTerminatorWhenOneCharacterTakesMoreBytes)
{
    fs::create_directory(narrowName);
    fs::current_path(narrowName);
    const OwnedText first(_wgetcwd(nullptr, 0));
    const OwnedText second(_wgetcwd(nullptr, -1));
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first.get(), folder_.path().wstring() + L"/" + wideName);
    EXPECT_EQ(second.get(), folder_.path().wstring() + L"/" + wideName);
}

TEST_F(WorkingDirectory, IsRefusedWhenTheLocaleCannotConvertIt)
{
    fs::create_directory("a\xff");
    fs::current_path("a\xff");
    EXPECT_EQ(_wgetcwd(nullptr, 0), nullptr);
    using Buffer = SentinelBuffer<wchar_t, 200>;
    Buffer buffer;
    EXPECT_EQ(_wgetcwd(buffer.data(), Buffer::size()), nullptr);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(folder_.path().wstring() + L"/a"));
}

TEST_F(WorkingDirectory, IsRefusedWhenItIsGone)
{
    fs::create_directory("gone");
    fs::current_path("gone");
    ASSERT_EQ(rmdir("../gone"), 0);
    errno = 0;
    EXPECT_EQ(_wgetcwd(nullptr, 0), nullptr);
    EXPECT_EQ(errno, ENOENT);
    using Buffer = SentinelBuffer<wchar_t, 200>;
    Buffer buffer;
    errno = 0;
    EXPECT_EQ(_wgetcwd(buffer.data(), Buffer::size()), nullptr);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

// ---- Full paths --------------------------------------------------------------------------------------------------

class FullPaths : public WithFiles
{
protected:
    using Buffer = SentinelBuffer<wchar_t, 200>;

    // Zeros up to `size`, as wcsncpy leaves them.
    static std::wstring padded(std::wstring text, std::size_t size)
    {
        text.resize(size, L'\0');
        return Buffer::startingWith(text);
    }
};

TEST_F(FullPaths, AreAbsoluteAndFreeOfLinks)
{
    fs::create_directory(narrowName);
    folder_.write(narrowName + "/file", "content");
    fs::create_directory_symlink(narrowName, "link");
    const std::wstring expected = folder_.path().wstring() + L"/" + wideName + L"/file";
    Buffer buffer;
    EXPECT_EQ(_wfullpath(buffer.data(), L"link/./../link//file", 150), buffer.data());
    EXPECT_EQ(buffer.contents(), padded(expected, 150));
    Buffer here;
    EXPECT_EQ(_wfullpath(here.data(), L".", 200), here.data());
    EXPECT_EQ(here.contents(), padded(folder_.path().wstring(), 200));
}

TEST_F(FullPaths, AreCutAtTheSize)
{
    const std::wstring expected = folder_.path().wstring();
    for (const std::size_t size :
         {std::size_t(0), std::size_t(1), std::size_t(5), expected.size(), expected.size() + 1})
    {
        Buffer buffer;
        EXPECT_EQ(_wfullpath(buffer.data(), L".", size), buffer.data());
        EXPECT_EQ(buffer.contents(), padded((expected + L'\0').substr(0, size), size)) << size;
    }
}

TEST_F(FullPaths, PadWithZerosBeyondTheLongestPath)
{
    std::vector<wchar_t> buffer(5001, L'#');
    EXPECT_EQ(_wfullpath(buffer.data(), L".", 5000), buffer.data());
    std::wstring expected = folder_.path().wstring();
    expected.resize(5000, L'\0');
    EXPECT_EQ(std::wstring(buffer.data(), buffer.size()), expected + L'#');
}

TEST_F(FullPaths, OfMissingFilesAreWhatTheResolverLeaves)
{
    const std::wstring paths[] = {
        L"missing", L"missing/b/c", L"\u00e9/b", L"", L"/", tooLongPath(), std::wstring(3000, L'\u4e2d')};
    for (const std::wstring& path : paths)
    {
        std::string narrow(path.size() * 4 + 1, '\0');
        ASSERT_NE(std::wcstombs(narrow.data(), path.c_str(), narrow.size()), static_cast<std::size_t>(-1));
        char left[PATH_MAX] = {};
        [[maybe_unused]] const char* const unchecked = realpath(narrow.c_str(), left);
        wchar_t expected[PATH_MAX] = {};
        ASSERT_NE(std::mbstowcs(expected, left, PATH_MAX), static_cast<std::size_t>(-1));
        std::vector<wchar_t> buffer(PATH_MAX + 1, L'#');
        EXPECT_EQ(_wfullpath(buffer.data(), path.c_str(), PATH_MAX), buffer.data());
        EXPECT_EQ(std::wstring(buffer.data(), buffer.size()), std::wstring(expected, PATH_MAX) + L'#');
    }
}

TEST_F(FullPaths, AreCutWhereTheLocaleCannotConvertThem)
{
    fs::create_directory("a\xff");
    fs::create_directory_symlink("a\xff", "link");
    Buffer buffer;
    EXPECT_EQ(_wfullpath(buffer.data(), L"link", 150), buffer.data());
    EXPECT_EQ(buffer.contents(), padded(folder_.path().wstring() + L"/a", 150));
}

// ---- The environment ---------------------------------------------------------------------------------------------

class Environment : public testing::Test
{
protected:
    const ScopedLocale locale_{"C.UTF-8"};
};

TEST_F(Environment, HandsOutCopies)
{
    const ScopedVariable variable("KEST_TEST_\u00e9", "v\u00e4lue \U0001F600");
    errno = 77;
    const OwnedText first(_wgetenv(L"KEST_TEST_\u00e9"));
    const OwnedText second(_wgetenv(L"KEST_TEST_\u00e9"));
    EXPECT_EQ(errno, 77);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_STREQ(first.get(), L"v\u00e4lue \U0001F600");
    first.get()[0] = L'x';
    EXPECT_STREQ(second.get(), L"v\u00e4lue \U0001F600");
    EXPECT_STREQ(std::getenv("KEST_TEST_\u00e9"), "v\u00e4lue \U0001F600");
}

TEST_F(Environment, HandsOutEmptyAndLongValues)
{
    const std::string value(100000, 'x');
    const ScopedVariable longOne("KEST_TEST_LONG", value.c_str());
    const OwnedText copy(_wgetenv(L"KEST_TEST_LONG"));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy.get(), std::wstring(100000, L'x'));
    const ScopedVariable empty("KEST_TEST_EMPTY", "");
    const OwnedText none(_wgetenv(L"KEST_TEST_EMPTY"));
    ASSERT_NE(none, nullptr);
    EXPECT_STREQ(none.get(), L"");
}

TEST_F(Environment, AnswersNullForVariablesThatAreNotSet)
{
    const ScopedVariable variable("KEST_TEST_UNSET", nullptr);
    EXPECT_EQ(_wgetenv(L"KEST_TEST_UNSET"), nullptr);
    EXPECT_EQ(_wgetenv(L""), nullptr);
}

TEST_F(Environment, CutsValuesThatTheLocaleCannotConvert)
{
    const ScopedVariable variable("KEST_TEST_BROKEN", "ab\xff"
                                                      "cd");
    const OwnedText copy(_wgetenv(L"KEST_TEST_BROKEN"));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(), L"ab");
}

TEST_F(Environment, CutsNamesAfter4095Bytes)
{
    const std::string name(4095, 'K');
    const ScopedVariable variable(name, "value");
    const OwnedText copy(_wgetenv(std::wstring(5000, L'K').c_str()));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(), L"value");
}

TEST_F(Environment, CutsNamesWhereTheLocaleCannotEncode)
{
    const ScopedVariable variable("KEST_TEST_CUT", "value");
    const ScopedLocale plain("C");
    const OwnedText copy(_wgetenv(L"KEST_TEST_CUT\u00e9"));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(), L"value");
}

// The texts stay part of the environment: variables that these tests set are theirs alone and stay set.
TEST_F(Environment, TakesVariables)
{
    EXPECT_EQ(_wputenv(L"KEST_TEST_PUT\u00e9=v\u00e4lue \U0001F600"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_PUT\u00e9"), "v\u00e4lue \U0001F600");
    EXPECT_EQ(_wputenv(L"KEST_TEST_SIGNS=a=b=c"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_SIGNS"), "a=b=c");
}

TEST_F(Environment, KeepsItsOwnCopyOfTheText)
{
    std::wstring text = L"KEST_TEST_KEPT=first";
    EXPECT_EQ(_wputenv(text.c_str()), 0);
    static const char* first; // what the environment has let go of stays in sight of the leak checker
    first = std::getenv("KEST_TEST_KEPT") - std::strlen("KEST_TEST_KEPT=");
    text.replace(text.size() - 5, 5, L"other");
    EXPECT_STREQ(std::getenv("KEST_TEST_KEPT"), "first");
    EXPECT_EQ(_wputenv(L"KEST_TEST_KEPT=second"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_KEPT"), "second");
    EXPECT_STREQ(first, "KEST_TEST_KEPT=first");
}

TEST_F(Environment, CutsTextsWhereTheLocaleCannotEncode)
{
    const ScopedLocale plain("C");
    EXPECT_EQ(_wputenv(L"KEST_TEST_PUT_CUT=ab\u00e9cd"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_PUT_CUT"), "ab");
}

// ---- The locale --------------------------------------------------------------------------------------------------

TEST(WideLocaleNames, SetTheLocale)
{
    const ScopedLocale before("C");
    EXPECT_STREQ(_wsetlocale(LC_ALL, L"C.UTF-8"), "C.UTF-8");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
    EXPECT_STREQ(_wsetlocale(LC_NUMERIC, L"C"), "C");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
    EXPECT_STREQ(_wsetlocale(LC_ALL, L"C"), "C");
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
}

TEST(WideLocaleNames, AnswerNullWhenThereIsNoSuchLocale)
{
    const ScopedLocale before("C.UTF-8");
    EXPECT_EQ(_wsetlocale(LC_ALL, L"no such locale"), nullptr);
    EXPECT_EQ(_wsetlocale(4711, L"C"), nullptr);
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
}

TEST(WideLocaleNames, ArePassedOnWhole)
{
    const ScopedLocale before("C.UTF-8");
    const LocaleRequests requests;
    EXPECT_EQ(_wsetlocale(LC_TIME, (L"\u00e9" + std::wstring(5000, L'x')).c_str()), nullptr);
    EXPECT_EQ(requests.made(), (LocaleRequests::Requests{{LC_TIME, "\u00e9" + std::string(5000, 'x')}}));
}

// ---- Deviations --------------------------------------------------------------------------------------------------

TEST(wfopen, TakesPathsAsTheyAre)
{
    const ScratchFolder folder;
    {
        const Stream stream(_wfopen(L"C:\\x.txt", L"w"));
        ASSERT_NE(stream, nullptr);
    }
    EXPECT_EQ(folder.read("C:\\x.txt"), "");
}

TEST(wfopen, CutsPathsAt4095Bytes)
{
    const ScratchFolder folder;
    folder.write("kept", "");
    const Stream stream(_wfopen(tooLongPath().c_str(), L"r"));
    EXPECT_NE(stream, nullptr);
}

TEST(wfopens, AnswersErrnoAsItStandsForANullOut)
{
    errno = 77;
    EXPECT_EQ(_wfopen_s(nullptr, L"/dev/null", L"r"), 77);
}

TEST(wfopens, CutsPathsAt4095Bytes)
{
    const ScratchFolder folder;
    folder.write("kept", "");
    FILE* out = nullptr;
    EXPECT_EQ(_wfopen_s(&out, tooLongPath().c_str(), L"r"), 0);
    const Stream stream(out);
    EXPECT_NE(stream, nullptr);
}

TEST(fopens, AnswersErrnoAsItStandsForANullOut)
{
    errno = 77;
    EXPECT_EQ(fopen_s(nullptr, "/dev/null", "r"), 77);
}

TEST(wrename, ReplacesAnExistingFile)
{
    const ScratchFolder folder;
    folder.write("old", "old content");
    folder.write("new", "new content");
    EXPECT_EQ(_wrename(L"old", L"new"), 0);
    EXPECT_EQ(folder.read("new"), "old content");
}

TEST(wrename, CutsPathsAt4095Bytes)
{
    const ScratchFolder folder;
    folder.write("kept", "content");
    EXPECT_EQ(_wrename(tooLongPath().c_str(), L"new"), 0);
    EXPECT_EQ(folder.read("new"), "content");
    EXPECT_EQ(_wrename(L"new", tooLongPath().c_str()), 0);
    EXPECT_EQ(folder.read("kept"), "content");
}

TEST(wremove, CutsNamesThatTakeSeveralBytesACharacter)
{
    const ScopedLocale locale("C.UTF-8");
    const ScratchFolder folder;
    folder.write("x\u00e9", "whole");
    folder.write("x", "cut");
    EXPECT_EQ(_wremove(L"x\u00e9"), 0);
    EXPECT_FALSE(fs::exists("x"));
    EXPECT_EQ(folder.read("x\u00e9"), "whole");
}

TEST(wremove, RemovesEmptyFolders)
{
    const ScratchFolder folder;
    fs::create_directory("empty");
    EXPECT_EQ(_wremove(L"empty"), 0);
    EXPECT_FALSE(fs::exists("empty"));
}

TEST(waccess, SetsTheCharacterTypeLocale)
{
    const LocaleRequests requests;
    EXPECT_EQ(_waccess(L".", 0), 0);
    EXPECT_EQ(requests.made(), (LocaleRequests::Requests{{LC_CTYPE, "UTF-8"}}));
}

TEST(waccess, KnowsExecution)
{
    const ScratchFolder folder;
    folder.write("file", "");
    EXPECT_EQ(_waccess(L"file", 1), -1);
    fs::permissions("file", fs::perms::owner_all);
    EXPECT_EQ(_waccess(L"file", 1), 0);
}

TEST(wstat, FillsTheSystemsRecord)
{
    struct stat record;
    EXPECT_EQ(_wstat(L"/dev/null", &record), 0);
    EXPECT_NE(record.st_ino, 0U);
    EXPECT_TRUE(S_ISCHR(record.st_mode));
}

TEST(filelength, AnswersZeroForABadDescriptor)
{
    EXPECT_EQ(_filelength(-1), 0);
}

TEST(wfindfirst, MatchesNoWildcards)
{
    const ScratchFolder folder;
    folder.write("a.txt", "");
    _wfinddata_t record;
    EXPECT_EQ(_wfindfirst(L"*.txt", &record), -1);
    folder.write("*.txt", "content");
    EXPECT_EQ(_wfindfirst(L"*.txt", &record), 0);
    EXPECT_EQ(record.size, 7);
}

TEST(wfindfirst, AnswersZeroInsteadOfAHandle)
{
    _wfinddata_t record;
    EXPECT_EQ(_wfindfirst(L"/dev/null", &record), 0);
}

TEST(wfindfirst, WritesNeitherNameNorAttributes)
{
    _wfinddata_t record;
    record.name[0] = L'#';
    EXPECT_EQ(_wfindfirst(L"/dev/null", &record), 0);
    EXPECT_EQ(record.name[0], L'#');
    EXPECT_EQ(record.attrib, -1);
}

TEST(wfindfirst, CutsPathsAt4095Bytes)
{
    const ScratchFolder folder;
    folder.write("kept", "content");
    _wfinddata_t record;
    EXPECT_EQ(_wfindfirst(tooLongPath().c_str(), &record), 0);
    EXPECT_EQ(record.size, 7);
}

// Memory that was filled and released is what the allocator hands out next; the address sanitizer's fills new memory
// itself.
TEST(wgetcwd, LeavesTheTerminatorOutOfAllocatedAsciiText)
{
    const ScratchFolder folder;
    const std::wstring expected = folder.path().wstring();
    {
        const std::size_t size = (expected.size() + 1) * sizeof(wchar_t);
        std::array<OwnedText, 6> filled;
        for (OwnedText& block : filled)
        {
            block.reset(static_cast<wchar_t*>(std::malloc(size)));
            // Volatile, or the compiler leaves out blocks that nobody reads.
            auto* const bytes = reinterpret_cast<volatile unsigned char*>(block.get());
            std::fill(bytes, bytes + size, static_cast<unsigned char>(0x11));
        }
    }
    const OwnedText text(_wgetcwd(nullptr, 0));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::wstring(text.get(), expected.size()), expected);
    EXPECT_NE(text.get()[expected.size()], L'\0');
}

TEST(wgetcwd, CutsTextThatDoesNotFit)
{
    const ScratchFolder folder;
    wchar_t buffer[] = L"####";
    EXPECT_EQ(_wgetcwd(buffer, 2), buffer);
    EXPECT_EQ(std::wstring(buffer), folder.path().wstring().substr(0, 2) + L"##");
}

TEST(wfullpath, ResolvesSymbolicLinks)
{
    const ScratchFolder folder;
    fs::create_directory("target");
    fs::create_directory_symlink("target", "link");
    wchar_t buffer[200];
    EXPECT_EQ(_wfullpath(buffer, L"link", 200), buffer);
    EXPECT_EQ(buffer, (folder.path() / "target").wstring());
}

TEST(wfullpath, StopsAtMissingComponents)
{
    const ScratchFolder folder;
    wchar_t buffer[200];
    EXPECT_EQ(_wfullpath(buffer, L"missing/more", 200), buffer);
    EXPECT_EQ(buffer, (folder.path() / "missing").wstring());
}

TEST(wfullpath, CutsTextThatDoesNotFit)
{
    wchar_t buffer[] = L"####";
    EXPECT_EQ(_wfullpath(buffer, L"/dev", 2), buffer);
    EXPECT_STREQ(buffer, L"/d##");
}

TEST(wfullpath, AllocatesNoBuffer)
{
    EXPECT_EQ(_wfullpath(nullptr, L".", 100), nullptr);
}

TEST(wputenv, KeepsVariablesWithEmptyValues)
{
    EXPECT_EQ(_wputenv(L"KEST_TEST_PUT_EMPTY="), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_PUT_EMPTY"), "");
}

TEST(wputenv, RemovesVariablesNamedAlone)
{
    const ScopedVariable variable("KEST_TEST_REMOVED", "value");
    EXPECT_EQ(_wputenv(L"KEST_TEST_REMOVED"), 0);
    EXPECT_EQ(std::getenv("KEST_TEST_REMOVED"), nullptr);
}

TEST(wputenv, CutsTextAt4095Bytes)
{
    EXPECT_EQ(_wputenv((L"KEST_TEST_PUT_LONG=" + std::wstring(5000, L'x')).c_str()), 0);
    EXPECT_EQ(std::getenv("KEST_TEST_PUT_LONG"), std::string(4095 - std::strlen("KEST_TEST_PUT_LONG="), 'x'));
}

TEST(wgetenv, AnswersANewCopy)
{
    const ScopedVariable variable("KEST_TEST_COPY", "value");
    const OwnedText first(_wgetenv(L"KEST_TEST_COPY"));
    const OwnedText second(_wgetenv(L"KEST_TEST_COPY"));
    EXPECT_NE(first, second);
}

TEST(wgetenv, TellsUpperFromLowerCase)
{
    const ScopedVariable variable("KEST_TEST_CASE", "value");
    EXPECT_EQ(_wgetenv(L"kest_test_case"), nullptr);
}

TEST(wsetlocale, AnswersNarrowText)
{
    const ScopedLocale locale("C");
    const char* const name = _wsetlocale(LC_ALL, L"C");
    EXPECT_STREQ(name, "C");
}

TEST(wsetlocale, NeedsAName)
{
    EXPECT_DEATH(_wsetlocale(LC_ALL, nullptr), "");
}

TEST(wsetlocale, KnowsTheSystemsNamesOnly)
{
    EXPECT_EQ(_wsetlocale(LC_ALL, L"English_United States.1252"), nullptr);
}

} // namespace
