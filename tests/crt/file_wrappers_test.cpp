#include "kest/crt/file_wrappers.h"

#include "crt/wide_wrapper_fixture.h"
#include "harness/locale_requests.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"

#include <cerrno>
#include <clocale>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

namespace fs = std::filesystem;
using kest::test::LocaleRequests;
using kest::test::narrowName;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::tooLongPath;
using kest::test::wideName;
using kest::test::WithFiles;

struct Close
{
    void operator()(FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<FILE, Close>;

std::string firstLine(FILE* stream)
{
    char line[80] = "";
    return std::fgets(line, sizeof line, stream) == nullptr ? "" : line;
}

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

} // namespace
