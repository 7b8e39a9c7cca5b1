#include "harness/open_descriptors.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/kernel/files.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

using kest::test::openDescriptorCount;
using kest::test::ScratchFolder;
using namespace std::string_literals;
using Bytes = kest::test::SentinelBuffer<char, 32>;

constexpr DWORD untouched = 0x5A5A5A5A;

// A handle that the test closes itself, or that is closed at its end.
class FileHandle
{
public:
    FileHandle(const wchar_t* name, DWORD access, DWORD disposition)
        : handle_(CreateFileW(name, access, FILE_SHARE_READ, nullptr, disposition, 0, nullptr))
    {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~FileHandle() { CloseHandle(handle_); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    operator HANDLE() const { return handle_; }
    FILE* stream() const { return static_cast<FILE*>(handle_); }
    int descriptor() const { return fileno(stream()); }

    BOOL close()
    {
        const HANDLE handle = handle_;
        handle_ = nullptr;
        return CloseHandle(handle);
    }

private:
    HANDLE handle_;
};

TEST(FileHandles, ReadWhatWasWritten)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = untouched;
    EXPECT_EQ(WriteFile(file, "one two", 7, &written, nullptr), 1);
    EXPECT_EQ(written, 7U);
    EXPECT_EQ(SetFilePointer(file, 4, nullptr, FILE_BEGIN), 0U);

    Bytes buffer;
    DWORD read = untouched;
    OVERLAPPED overlapped = {};
    EXPECT_EQ(ReadFile(file, buffer.data(), 3, &read, &overlapped), 1);
    EXPECT_EQ(read, 3U);
    EXPECT_EQ(buffer.contents(), Bytes::startingWith("two"));
    EXPECT_EQ(file.close(), 1);
    EXPECT_EQ(folder.read("file"), "one two");
}

TEST(FileHandles, ReadAndWriteBytesAsTheyAre)
{
    const ScratchFolder folder;
    const std::string content = "\r\n\0\x1A\xFF\n"s;
    {
        FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
        DWORD written = untouched;
        EXPECT_EQ(WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr), 1);
    }
    EXPECT_EQ(folder.read("file"), content);
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    Bytes buffer;
    DWORD read = untouched;
    EXPECT_EQ(ReadFile(file, buffer.data(), static_cast<DWORD>(content.size()), &read, nullptr), 1);
    EXPECT_EQ(buffer.contents(), Bytes::startingWith(content));
}

TEST(FileHandles, FailToReadAndWriteWhereTheModeForbids)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    Bytes buffer;
    DWORD count = untouched;
    {
        FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
        EXPECT_EQ(WriteFile(file, "x", 1, &count, nullptr), 0);
    }
    {
        FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
        EXPECT_EQ(ReadFile(file, buffer.data(), 1, &count, nullptr), 0);
    }
    EXPECT_EQ(count, untouched);
    EXPECT_EQ(buffer.contents(), Bytes::untouched());
}

TEST(ReadFile, IsAllOrNothing)
{
    const ScratchFolder folder;
    folder.write("file", "12345");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    Bytes buffer;
    DWORD read = untouched;
    EXPECT_EQ(ReadFile(file, buffer.data(), 10, &read, nullptr), 0);
    EXPECT_EQ(read, untouched);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_BEGIN), 0U);
    EXPECT_EQ(ReadFile(file, buffer.data(), 0, &read, nullptr), 0);
    EXPECT_EQ(read, untouched);
    EXPECT_EQ(ReadFile(file, buffer.data(), 5, &read, nullptr), 1);
    EXPECT_EQ(read, 5U);
}

TEST(WriteFile, IsAllOrNothing)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = untouched;
    EXPECT_EQ(WriteFile(file, "x", 0, &written, nullptr), 0);
    EXPECT_EQ(written, untouched);

    FileHandle full(L"/dev/full", GENERIC_WRITE, OPEN_EXISTING);
    setvbuf(full.stream(), nullptr, _IONBF, 0);
    EXPECT_EQ(WriteFile(full, "x", 1, &written, nullptr), 0);
    EXPECT_EQ(written, untouched);
}

TEST(WriteFile, GoesThroughABuffer)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = untouched;
    EXPECT_EQ(WriteFile(file, "content", 7, &written, nullptr), 1);
    EXPECT_EQ(folder.read("file"), "");
    EXPECT_EQ(file.close(), 1);
    EXPECT_EQ(folder.read("file"), "content");
}

TEST(FileHandles, PositionFromEachOrigin)
{
    const ScratchFolder folder;
    folder.write("file", "0123456789");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    struct Row
    {
        LONG distance;
        DWORD method;
        DWORD result;
        long position;
    };
    for (const Row& row : {
             Row{4, FILE_BEGIN, 0, 4},
             Row{3, FILE_CURRENT, 0, 7},
             Row{-2, FILE_CURRENT, 0, 5},
             Row{-1, FILE_END, 0, 9},
             Row{100, FILE_END, 0, 110},
             Row{0, FILE_BEGIN, 0, 0},
             Row{-1, FILE_BEGIN, INVALID_SET_FILE_POINTER, 0},
             Row{-11, FILE_END, INVALID_SET_FILE_POINTER, 0},
             Row{0, 99, INVALID_SET_FILE_POINTER, 0},
         })
    {
        EXPECT_EQ(SetFilePointer(file, row.distance, nullptr, row.method), row.result) << row.distance;
        EXPECT_EQ(ftell(file.stream()), row.position) << row.distance << " " << row.method;
    }
}

TEST(SetFilePointer, AnswersZeroInsteadOfThePosition)
{
    const ScratchFolder folder;
    folder.write("file", "0123456789");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    EXPECT_EQ(SetFilePointer(file, 7, nullptr, FILE_BEGIN), 0U);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 0U);
}

TEST(SetFilePointer, DoesNotReadTheHighPart)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_READ, CREATE_ALWAYS);
    LONG high = 5;
    EXPECT_EQ(SetFilePointer(file, 3, &high, FILE_BEGIN), 0U);
    EXPECT_EQ(high, 5);
    EXPECT_EQ(ftell(file.stream()), 3);
    // With a high part the distance is unsigned.
    EXPECT_EQ(SetFilePointer(file, -1, &high, FILE_BEGIN), 0U);
    EXPECT_EQ(high, 5);
    EXPECT_EQ(ftell(file.stream()), 0xFFFFFFFFL);
}

TEST(FileHandles, TellTheSizeOfAFile)
{
    const ScratchFolder folder;
    folder.write("file", "0123456789");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    DWORD high = untouched;
    EXPECT_EQ(GetFileSize(file, &high), 10U);
    EXPECT_EQ(high, 0U);
    EXPECT_EQ(GetFileSize(file, nullptr), 10U);
}

TEST(FileHandles, CountWhatIsStillBuffered)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = untouched;
    EXPECT_EQ(WriteFile(file, "content", 7, &written, nullptr), 1);
    EXPECT_EQ(GetFileSize(file, nullptr), 7U);
}

TEST(FileHandles, HaveNoSizeWithoutAPosition)
{
    DWORD high = untouched;
    EXPECT_EQ(GetFileSize(nullptr, &high), INVALID_FILE_SIZE);
    FILE* const pipe = popen("true", "r");
    ASSERT_NE(pipe, nullptr);
    EXPECT_EQ(GetFileSize(pipe, &high), INVALID_FILE_SIZE);
    EXPECT_EQ(high, untouched);
    pclose(pipe);
}

TEST(GetFileSize, MovesToTheEnd)
{
    const ScratchFolder folder;
    folder.write("file", "0123456789");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    EXPECT_EQ(GetFileSize(file, nullptr), 10U);
    Bytes buffer;
    DWORD read = untouched;
    EXPECT_EQ(ReadFile(file, buffer.data(), 1, &read, nullptr), 0);
    EXPECT_EQ(read, untouched);
    EXPECT_EQ(buffer.contents(), Bytes::untouched());
}

TEST(GetFileSize, AnswersTheLowPartOnly)
{
    const ScratchFolder folder;
    folder.write("file", "");
    ASSERT_EQ(truncate("file", 0x100000005), 0);
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    DWORD high = untouched;
    EXPECT_EQ(GetFileSize(file, &high), 5U);
    EXPECT_EQ(high, 0U);
}

TEST(FileHandles, CloseOnce)
{
    const ScratchFolder folder;
    const std::size_t before = openDescriptorCount();
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    EXPECT_EQ(file.close(), 1);
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_EQ(CloseHandle(nullptr), 0);
    EXPECT_EQ(CloseHandle(INVALID_HANDLE_VALUE), 0);
}

TEST(FileHandles, TellWhenTheLastWriteFails)
{
    FileHandle full(L"/dev/full", GENERIC_WRITE, OPEN_EXISTING);
    DWORD written = untouched;
    EXPECT_EQ(WriteFile(full, "x", 1, &written, nullptr), 1);
    EXPECT_EQ(full.close(), 0);
}

TEST(CloseHandle, TakesFileHandlesOnly)
{
    const ScratchFolder folder;
    FILE* const stream = fopen("file", "wb");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(CloseHandle(stream), 1);
}

std::uint64_t secondsOf(const FILETIME& time)
{
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

// Times whose parts all differ, with fractions of a second and, for the modification, more than 32 bits.
constexpr timespec accessTime = {1000000007, 999999999};
constexpr timespec writeTime = {0x100000009, 500000000};

void setTimes(const FileHandle& file)
{
    const timespec times[] = {accessTime, writeTime};
    ASSERT_EQ(futimens(file.descriptor(), times), 0);
}

std::uint64_t statusChangeOf(const char* name)
{
    struct stat status = {};
    EXPECT_EQ(stat(name, &status), 0);
    return static_cast<std::uint64_t>(status.st_ctime);
}

TEST(FileHandles, TellEachTimeAskedFor)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    setTimes(file);
    FILETIME creation = {};
    FILETIME access = {};
    FILETIME write = {};
    EXPECT_EQ(GetFileTime(file, &creation, nullptr, nullptr), 1);
    EXPECT_EQ(secondsOf(creation), statusChangeOf("file"));
    EXPECT_EQ(GetFileTime(file, nullptr, &access, nullptr), 1);
    EXPECT_EQ(secondsOf(access), 1000000007U);
    EXPECT_EQ(GetFileTime(file, nullptr, nullptr, &write), 1);
    EXPECT_EQ(secondsOf(write), 0x100000009U);
    EXPECT_EQ(GetFileTime(file, nullptr, nullptr, nullptr), 1);
}

TEST(FileHandles, TellNoTimesWithoutADescriptor)
{
    char memory[8] = {};
    FILE* const stream = fmemopen(memory, sizeof memory, "r+");
    ASSERT_NE(stream, nullptr);
    FILETIME time = {untouched, untouched};
    BY_HANDLE_FILE_INFORMATION info;
    std::memset(&info, 0x5A, sizeof info);
    const BY_HANDLE_FILE_INFORMATION before = info;
    EXPECT_EQ(GetFileTime(stream, &time, &time, &time), 0);
    EXPECT_EQ(secondsOf(time), 0x5A5A5A5A5A5A5A5AU);
    EXPECT_EQ(GetFileInformationByHandle(stream, &info), 0);
    EXPECT_EQ(std::memcmp(&info, &before, sizeof info), 0);
    EXPECT_EQ(CloseHandle(stream), 1);
}

TEST(FileHandles, TellNothingAboutADescriptorThatIsClosed)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    ASSERT_EQ(close(file.descriptor()), 0);
    FILETIME time = {untouched, untouched};
    BY_HANDLE_FILE_INFORMATION info = {};
    EXPECT_EQ(GetFileTime(file, &time, &time, &time), 0);
    EXPECT_EQ(secondsOf(time), 0x5A5A5A5A5A5A5A5AU);
    EXPECT_EQ(GetFileInformationByHandle(file, &info), 0);
    EXPECT_EQ(GetFileSize(file, nullptr), INVALID_FILE_SIZE);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_END), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(file.close(), 0);
}

TEST(GetFileTime, CountsSecondsSince1970)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    setTimes(file);
    FILETIME creation = {};
    FILETIME access = {};
    FILETIME write = {};
    EXPECT_EQ(GetFileTime(file, &creation, &access, &write), 1);
    EXPECT_EQ(access.dwLowDateTime, 1000000007U);
    EXPECT_EQ(access.dwHighDateTime, 0U);
    EXPECT_EQ(write.dwLowDateTime, 9U);
    EXPECT_EQ(write.dwHighDateTime, 1U);
}

TEST(GetFileTime, AnswersTheStatusChangeForTheCreation)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    setTimes(file);
    FILETIME creation = {};
    EXPECT_EQ(GetFileTime(file, &creation, nullptr, nullptr), 1);
    EXPECT_EQ(secondsOf(creation), statusChangeOf("file"));
}

TEST(FileHandles, FillTheRecordAboutAFile)
{
    const ScratchFolder folder;
    folder.write("file", "0123456789");
    ASSERT_EQ(link("file", "other name"), 0);
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    setTimes(file);
    struct stat status = {};
    ASSERT_EQ(stat("file", &status), 0);

    BY_HANDLE_FILE_INFORMATION info;
    std::memset(&info, 0x5A, sizeof info);
    EXPECT_EQ(GetFileInformationByHandle(file, &info), 1);
    EXPECT_EQ(info.dwFileAttributes, 0U);
    EXPECT_EQ(secondsOf(info.ftCreationTime), statusChangeOf("file"));
    EXPECT_EQ(secondsOf(info.ftLastAccessTime), 1000000007U);
    EXPECT_EQ(secondsOf(info.ftLastWriteTime), 0x100000009U);
    EXPECT_EQ(info.dwVolumeSerialNumber, static_cast<DWORD>(status.st_dev));
    EXPECT_EQ(info.nFileSizeHigh, 0U);
    EXPECT_EQ(info.nFileSizeLow, 10U);
    EXPECT_EQ(info.nNumberOfLinks, 2U);
    EXPECT_EQ(info.nFileIndexHigh, 0U);
    EXPECT_EQ(info.nFileIndexLow, static_cast<DWORD>(status.st_ino));

    EXPECT_EQ(GetFileInformationByHandle(file, nullptr), 0);
}

TEST(FileHandles, KeepTheRecordsLayout)
{
    static_assert(sizeof(BY_HANDLE_FILE_INFORMATION) == 52);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, ftCreationTime) == 4);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, ftLastAccessTime) == 12);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, ftLastWriteTime) == 20);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, dwVolumeSerialNumber) == 28);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileSizeHigh) == 32);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileSizeLow) == 36);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nNumberOfLinks) == 40);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileIndexHigh) == 44);
    static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileIndexLow) == 48);
    static_assert(sizeof(OVERLAPPED) == 32);
    static_assert(offsetof(OVERLAPPED, OffsetHigh) == 20);
    static_assert(offsetof(OVERLAPPED, Pointer) == 16);
    SUCCEED();
}

TEST(GetFileInformationByHandle, MovesToTheEnd)
{
    const ScratchFolder folder;
    folder.write("file", "0123456789");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    BY_HANDLE_FILE_INFORMATION info = {};
    EXPECT_EQ(GetFileInformationByHandle(file, &info), 1);
    EXPECT_EQ(ftell(file.stream()), 10);
}

TEST(GetFileInformationByHandle, TellsNoAttributes)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_READ, CREATE_ALWAYS);
    ASSERT_EQ(fchmod(file.descriptor(), 0444), 0);
    BY_HANDLE_FILE_INFORMATION info = {};
    info.dwFileAttributes = untouched;
    EXPECT_EQ(GetFileInformationByHandle(file, &info), 1);
    EXPECT_EQ(info.dwFileAttributes, 0U);
}

TEST(FileHandles, TellAPipesUnknownSizeInTheLowPart)
{
    FILE* const pipe = popen("true", "r");
    ASSERT_NE(pipe, nullptr);
    BY_HANDLE_FILE_INFORMATION info;
    std::memset(&info, 0x5A, sizeof info);
    EXPECT_EQ(GetFileInformationByHandle(pipe, &info), 1);
    EXPECT_EQ(info.nFileSizeLow, INVALID_FILE_SIZE);
    EXPECT_EQ(info.nFileSizeHigh, 0U);
    pclose(pipe);
}

TEST(FileHandles, ReadWhatTheKernelTells)
{
    FileHandle file(L"/proc/self/status", GENERIC_READ, OPEN_EXISTING);
    EXPECT_EQ(GetFileSize(file, nullptr), 0U);
    char text[6] = {};
    DWORD read = untouched;
    EXPECT_EQ(ReadFile(file, text, 5, &read, nullptr), 1);
    EXPECT_EQ(read, 5U);
    EXPECT_STREQ(text, "Name:");
}

TEST(GetFileInformationByHandle, CountsSecondsSince1970)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    setTimes(file);
    BY_HANDLE_FILE_INFORMATION info = {};
    EXPECT_EQ(GetFileInformationByHandle(file, &info), 1);
    EXPECT_EQ(info.ftLastWriteTime.dwLowDateTime, 9U);
    EXPECT_EQ(info.ftLastWriteTime.dwHighDateTime, 1U);
}

TEST(GetFileInformationByHandle, TellsLowPartsOnly)
{
    const ScratchFolder folder;
    folder.write("file", "");
    ASSERT_EQ(truncate("file", 0x100000005), 0);
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    BY_HANDLE_FILE_INFORMATION info = {};
    EXPECT_EQ(GetFileInformationByHandle(file, &info), 1);
    EXPECT_EQ(info.nFileSizeLow, 5U);
    EXPECT_EQ(info.nFileSizeHigh, 0U);
    EXPECT_EQ(info.nFileIndexHigh, 0U);
}

TEST(FileHandles, CannotBeAskedForMore)
{
    const ScratchFolder folder;
    FileHandle file(L"file", GENERIC_WRITE, CREATE_ALWAYS);
    Bytes info;
    EXPECT_EQ(GetFileInformationByHandleEx(file, FileBasicInfo, info.data(), sizeof info), 0);
    EXPECT_EQ(info.contents(), Bytes::untouched());
}

TEST(FileHandles, CannotBeMapped)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    FileHandle file(L"file", GENERIC_READ, OPEN_EXISTING);
    errno = 77;
    EXPECT_EQ(CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, L"name"), nullptr);
    EXPECT_EQ(MapViewOfFile(file, FILE_MAP_READ, 0, 0, 7), nullptr);
    EXPECT_EQ(UnmapViewOfFile(file), 0);
    EXPECT_EQ(errno, 77);
}

} // namespace
