#include "harness/open_descriptors.h"
#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "kest/kernel/files.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

// Whether asking for record locks fails, as it does on file systems that have none.
bool failLockQueries = false;

} // namespace

extern "C" KEST_API int fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (failLockQueries && command == F_GETLK)
    {
        errno = ENOLCK;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fcntl, descriptor, command, argument));
}

namespace
{

using kest::test::openDescriptorCount;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::statusOfOrdinaryUser;

constexpr DWORD readAccess = GENERIC_READ;
constexpr DWORD writeAccess = GENERIC_WRITE;
constexpr DWORD readWriteAccess = GENERIC_READ | GENERIC_WRITE;

HANDLE create(const wchar_t* name, DWORD access, DWORD share, DWORD disposition)
{
    return CreateFileW(name, access, share, nullptr, disposition, 0, nullptr);
}

int descriptorOf(HANDLE handle)
{
    return fileno(static_cast<FILE*>(handle));
}

// The mode that a handle was opened with, told by what can be done with it and what became of the content; "-" for a
// refused file. Closes the handle.
std::string modeOf(HANDLE handle)
{
    if (handle == INVALID_HANDLE_VALUE)
    {
        return "-";
    }
    struct stat status = {};
    EXPECT_EQ(fstat(descriptorOf(handle), &status), 0);
    const bool emptied = status.st_size == 0;
    const int access = fcntl(descriptorOf(handle), F_GETFL) & O_ACCMODE;
    EXPECT_EQ(CloseHandle(handle), 1);
    switch (access)
    {
    case O_RDONLY:
        return emptied ? "r of an emptied file" : "r";
    case O_WRONLY:
        return emptied ? "w" : "w without emptying";
    default:
        return emptied ? "w+" : "r+";
    }
}

// A process that holds a lock on "locked" until the object is destroyed, or the test program ends.
class LockHolder
{
public:
    explicit LockHolder(const std::function<bool(int)>& lock)
    {
        int ready[2];
        int release[2];
        if (pipe(ready) != 0 || pipe(release) != 0)
        {
            throw std::runtime_error("no pipe");
        }
        child_ = fork();
        if (child_ == 0)
        {
            close(ready[0]);
            close(release[1]);
            hold(lock, ready[1], release[0]);
        }
        close(ready[1]);
        close(release[0]);
        release_ = release[1];
        char locked = 'n';
        const bool answered = child_ != -1 && read(ready[0], &locked, 1) == 1;
        close(ready[0]);
        if (!answered || locked != 'y')
        {
            end();
            throw std::runtime_error("no lock");
        }
    }
    ~LockHolder() { end(); }
    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;

private:
    // The child's part: ends when the other side of `release` is closed.
    [[noreturn]] static void hold(const std::function<bool(int)>& lock, int ready, int release)
    {
        const int descriptor = open("locked", O_RDWR);
        char locked = descriptor != -1 && lock(descriptor) ? 'y' : 'n';
        const bool told = write(ready, &locked, 1) == 1;
        _exit(told && read(release, &locked, 1) == 0 ? 0 : 1);
    }

    void end() const
    {
        close(release_);
        if (child_ != -1)
        {
            waitpid(child_, nullptr, 0);
        }
    }

    pid_t child_ = -1;
    int release_ = -1;
};

bool lockRange(int descriptor, short type, off_t start, off_t length)
{
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = start;
    range.l_len = length;
    return fcntl(descriptor, F_SETLK, &range) == 0;
}

struct LockKind
{
    const char* name;
    std::function<bool(int)> take;
};

const std::vector<LockKind> lockKinds = {
    {"write lock on the whole file", [](int descriptor) { return lockRange(descriptor, F_WRLCK, 0, 0); }},
    {"read lock on the whole file", [](int descriptor) { return lockRange(descriptor, F_RDLCK, 0, 0); }},
    {"write lock on one byte beyond the end",
     [](int descriptor) { return lockRange(descriptor, F_WRLCK, 1000000, 1); }},
    {"exclusive flock", [](int descriptor) { return flock(descriptor, LOCK_EX) == 0; }},
    {"shared flock", [](int descriptor) { return flock(descriptor, LOCK_SH) == 0; }},
};

struct Decision
{
    DWORD disposition;
    DWORD access;
    std::vector<DWORD> shares;
    // The mode by what the path is: nothing; a file that the user may read and write, only read, only write;
    // a directory.
    const char* absent;
    const char* file;
    const char* readOnly;
    const char* writeOnly;
    const char* directory;
    // Likewise of files that another process has locked: one to read and write, one to write only. "x" is a sharing
    // violation, "xw" one after which the file is empty.
    const char* locked;
    const char* lockedWriteOnly;
};

const std::vector<DWORD> anyShare = {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, 0x40, 0x41};
const std::vector<DWORD> noShare = {0};
const std::vector<DWORD> someShare = {FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, 0x40, 0x41};
const std::vector<DWORD> exactly40 = {0x40};
const std::vector<DWORD> notExactly40 = {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, 0x41};

const std::vector<Decision> decisions = {
    // disposition, access, shares, absent, file, read-only, write-only, directory, locked, locked write-only
    {CREATE_NEW, 0, anyShare, "w", "-", "-", "w", "-", "-", "w"},
    {CREATE_NEW, readAccess, anyShare, "w+", "-", "-", "-", "-", "-", "-"},
    {CREATE_NEW, writeAccess, anyShare, "w", "-", "-", "w", "-", "-", "xw"},
    {CREATE_NEW, readWriteAccess, anyShare, "w+", "-", "-", "-", "-", "-", "-"},

    {CREATE_ALWAYS, 0, anyShare, "w", "w", "-", "w", "-", "w", "w"},
    {CREATE_ALWAYS, readAccess, anyShare, "w+", "w+", "-", "-", "-", "xw", "-"},
    {CREATE_ALWAYS, writeAccess, anyShare, "w", "w", "-", "w", "-", "xw", "xw"},
    {CREATE_ALWAYS, readWriteAccess, anyShare, "w+", "w+", "-", "-", "-", "xw", "-"},

    {OPEN_EXISTING, 0, noShare, "-", "r+", "-", "-", "-", "r+", "-"},
    {OPEN_EXISTING, 0, someShare, "-", "r", "r", "-", "-", "r", "-"},
    {OPEN_EXISTING, readAccess, noShare, "-", "r+", "-", "-", "-", "x", "-"},
    {OPEN_EXISTING, readAccess, someShare, "-", "r", "r", "-", "-", "x", "-"},
    {OPEN_EXISTING, writeAccess, anyShare, "-", "r+", "-", "-", "-", "x", "-"},
    {OPEN_EXISTING, readWriteAccess, anyShare, "-", "r+", "-", "-", "-", "x", "-"},

    {OPEN_ALWAYS, 0, exactly40, "w", "r", "-", "w", "-", "r", "w"},
    {OPEN_ALWAYS, 0, notExactly40, "w", "r+", "-", "w", "-", "r+", "w"},
    {OPEN_ALWAYS, readAccess, exactly40, "w+", "r", "-", "-", "-", "x", "-"},
    {OPEN_ALWAYS, readAccess, notExactly40, "w+", "r+", "-", "-", "-", "x", "-"},
    {OPEN_ALWAYS, writeAccess, anyShare, "w", "r+", "-", "w", "-", "x", "xw"},
    {OPEN_ALWAYS, readWriteAccess, anyShare, "w+", "r+", "-", "-", "-", "x", "-"},

    {TRUNCATE_EXISTING, 0, anyShare, "-", "-", "-", "-", "-", "-", "-"},
    {TRUNCATE_EXISTING, readAccess, anyShare, "-", "-", "-", "-", "-", "-", "-"},
    {TRUNCATE_EXISTING, writeAccess, anyShare, "-", "w", "-", "-", "-", "xw", "-"},
    {TRUNCATE_EXISTING, readWriteAccess, anyShare, "-", "w+", "-", "-", "-", "xw", "-"},

    {0, readWriteAccess, anyShare, "-", "-", "-", "-", "-", "-", "-"},
    {6, readWriteAccess, anyShare, "-", "-", "-", "-", "-", "-", "-"},
    {0xFFFFFFFF, readWriteAccess, anyShare, "-", "-", "-", "-", "-", "-", "-"},
};

// A folder in which an ordinary user may make files, whoever runs the test.
class FolderForAll : public ScratchFolder
{
public:
    FolderForAll() { EXPECT_EQ(chmod(path().c_str(), 0777), 0); }
};

void makeFile(const std::string& name, mode_t mode)
{
    const int descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    ASSERT_NE(descriptor, -1) << name;
    ASSERT_EQ(write(descriptor, "content", 7), 7);
    ASSERT_EQ(close(descriptor), 0);
    ASSERT_EQ(chmod(name.c_str(), mode), 0);
}

std::string outcomeOfLocked(const Decision& row, DWORD share, mode_t mode)
{
    makeFile("locked", 0600);
    std::string outcome;
    {
        const LockHolder holder(lockKinds.front().take);
        EXPECT_EQ(chmod("locked", mode), 0);
        errno = 0;
        outcome = modeOf(create(L"locked", row.access, share, row.disposition));
        if (outcome == "-" && errno == ERROR_SHARING_VIOLATION)
        {
            struct stat status = {};
            EXPECT_EQ(stat("locked", &status), 0);
            outcome = status.st_size == 0 ? "xw" : "x";
        }
    }
    unlink("locked");
    return outcome;
}

void expectDecision(const Decision& row, DWORD share)
{
    const std::string what = "disposition " + std::to_string(row.disposition) + ", access " +
                             std::to_string(row.access >> 30) + ", share " + std::to_string(share);
    const auto outcome = [&](const wchar_t* name) { return modeOf(create(name, row.access, share, row.disposition)); };

    EXPECT_EQ(outcome(L"absent"), row.absent) << what << ", absent";
    EXPECT_EQ(access("absent", F_OK) == 0, std::string(row.absent) != "-") << what << ", absent";
    unlink("absent");

    const auto outcomeOfFile = [&](mode_t mode)
    {
        makeFile("file", mode);
        const std::string opened = outcome(L"file");
        unlink("file");
        return opened;
    };
    EXPECT_EQ(outcomeOfFile(0600), row.file) << what << ", file";
    EXPECT_EQ(outcomeOfFile(0400), row.readOnly) << what << ", read-only";
    EXPECT_EQ(outcomeOfFile(0200), row.writeOnly) << what << ", write-only";

    EXPECT_EQ(outcomeOfLocked(row, share, 0600), row.locked) << what << ", locked";
    EXPECT_EQ(outcomeOfLocked(row, share, 0200), row.lockedWriteOnly) << what << ", locked and write-only";

    EXPECT_EQ(outcome(L"directory"), row.directory) << what << ", directory";
    EXPECT_EQ(outcome(L"link to directory"), row.directory) << what << ", link to directory";
}

TEST(CreateFile, DecidesByDispositionAccessShareAndFile)
{
    const FolderForAll folder;
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      ASSERT_EQ(mkdir("directory", 0700), 0);
                      ASSERT_EQ(symlink("directory", "link to directory"), 0);
                      const std::size_t before = openDescriptorCount();
                      for (const Decision& row : decisions)
                      {
                          for (const DWORD share : row.shares)
                          {
                              expectDecision(row, share);
                          }
                      }
                      EXPECT_EQ(openDescriptorCount(), before);
                      EXPECT_EQ(unlink("link to directory"), 0);
                      EXPECT_EQ(rmdir("directory"), 0);
                  }),
              0);
}

TEST(CreateFile, RefusesNoName)
{
    const ScratchFolder folder;
    EXPECT_EQ(create(nullptr, readAccess, 0, OPEN_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(create(L"", readAccess, 0, OPEN_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(CreateFile, RefusesAFileInAFolderThatIsMissing)
{
    const ScratchFolder folder;
    for (DWORD disposition = CREATE_NEW; disposition <= TRUNCATE_EXISTING; ++disposition)
    {
        EXPECT_EQ(create(L"missing/file", readWriteAccess, 0, disposition), INVALID_HANDLE_VALUE) << disposition;
    }
}

TEST(CreateFile, OpensDevices)
{
    const HANDLE handle = create(L"/dev/null", readWriteAccess, 0, OPEN_EXISTING);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_EQ(CloseHandle(handle), 1);
}

TEST(CreateFile, TellsDirectoriesByTheirWholeType)
{
    const ScratchFolder folder;
    // Block devices and sockets share a bit with directories. A socket gets as far as fopen(), which refuses it.
    sockaddr_un address = {AF_UNIX, "socket"};
    const int socketDescriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(socketDescriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    errno = 0;
    EXPECT_EQ(create(L"socket", readWriteAccess, 0, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(errno, ENXIO);
    EXPECT_EQ(close(socketDescriptor), 0);
}

TEST(CreateFile, ConvertsNames)
{
    const ScratchFolder folder;
    {
        const ScopedLocale locale("C.UTF-8");
        EXPECT_EQ(modeOf(create(L"\u00e4\u4e16\U0001F600", readAccess, 0, CREATE_ALWAYS)), "w+");
        EXPECT_TRUE(std::filesystem::exists("\xC3\xA4\xE4\xB8\x96\xF0\x9F\x98\x80"));
    }
    const ScopedLocale locale("C");
    EXPECT_EQ(modeOf(create(L"ab\u00e4cd", readAccess, 0, CREATE_ALWAYS)), "w+");
    EXPECT_TRUE(std::filesystem::exists("ab"));
}

TEST(CreateFile, CutsLongNames)
{
    const ScratchFolder folder;
    // Slashes take no room in a path's components: exactly 4095 bytes that end in "a".
    const std::wstring longest = std::wstring(4094, L'/').replace(0, 2, L"./") + L"a";
    EXPECT_EQ(modeOf(create(longest.c_str(), readAccess, 0, CREATE_ALWAYS)), "w+");
    EXPECT_TRUE(std::filesystem::exists("a"));
    EXPECT_EQ(modeOf(create((longest + L"bc").c_str(), readAccess, 0, CREATE_ALWAYS)), "w+");
    EXPECT_FALSE(std::filesystem::exists("abc"));
}

TEST(CreateFile, LeavesTheLastErrorToTheCLibraryExceptForLocks)
{
    const ScratchFolder folder;
    errno = 77;
    EXPECT_EQ(create(L"missing", readAccess, 0, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(errno, ENOENT);
}

TEST(CreateFile, KeepsNoDescriptorAfterClosing)
{
    const ScratchFolder folder;
    const std::size_t before = openDescriptorCount();
    const HANDLE handle = create(L"file", readWriteAccess, 0, CREATE_ALWAYS);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_EQ(openDescriptorCount(), before + 1);
    EXPECT_EQ(CloseHandle(handle), 1);
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(CreateFile, RefusesAFileThatAnotherProcessHasLocked)
{
    const ScratchFolder folder;
    for (const LockKind& kind : lockKinds)
    {
        SCOPED_TRACE(kind.name);
        folder.write("locked", "content");
        const LockHolder holder(kind.take);
        const std::size_t before = openDescriptorCount();
        // Any bit of the access asks for the check.
        for (const DWORD access : {readAccess, writeAccess, readWriteAccess, DWORD{1}})
        {
            for (const DWORD disposition : {DWORD{OPEN_EXISTING}, DWORD{OPEN_ALWAYS}})
            {
                errno = 0;
                EXPECT_EQ(create(L"locked", access, FILE_SHARE_READ, disposition), INVALID_HANDLE_VALUE);
                EXPECT_EQ(errno, ERROR_SHARING_VIOLATION) << access << " " << disposition;
            }
        }
        EXPECT_EQ(folder.read("locked"), "content");
        EXPECT_EQ(openDescriptorCount(), before);
    }
}

TEST(CreateFile, AsksForTheOtherLockWhereRecordLocksCannotBeAskedFor)
{
    const ScratchFolder folder;
    folder.write("locked", "content");
    failLockQueries = true;
    {
        const LockHolder holder([](int descriptor) { return lockRange(descriptor, F_WRLCK, 0, 0); });
        EXPECT_EQ(modeOf(create(L"locked", readAccess, FILE_SHARE_READ, OPEN_EXISTING)), "r");
    }
    {
        const LockHolder holder([](int descriptor) { return flock(descriptor, LOCK_EX) == 0; });
        EXPECT_EQ(modeOf(create(L"locked", readAccess, FILE_SHARE_READ, OPEN_EXISTING)), "-");
        EXPECT_EQ(errno, ERROR_SHARING_VIOLATION);
    }
    failLockQueries = false;
}

TEST(CreateFile, AsksForNoMoreAccessThanItsDispositionNeeds)
{
    const FolderForAll folder;
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      makeFile("read-only", 0400);
                      errno = 77;
                      EXPECT_EQ(modeOf(create(L"read-only", readAccess, FILE_SHARE_READ, OPEN_EXISTING)), "r");
                      EXPECT_EQ(errno, 77);
                      unlink("read-only");
                  }),
              0);
}

TEST(CreateFile, OpensALockedFileWithoutAccess)
{
    const ScratchFolder folder;
    folder.write("locked", "content");
    for (const LockKind& kind : lockKinds)
    {
        const LockHolder holder(kind.take);
        EXPECT_EQ(modeOf(create(L"locked", 0, FILE_SHARE_READ, OPEN_EXISTING)), "r") << kind.name;
    }
}

TEST(CreateFile, OpensAFileWhoseLockWasGivenBack)
{
    const ScratchFolder folder;
    folder.write("locked", "content");
    for (const LockKind& kind : lockKinds)
    {
        {
            const LockHolder holder(kind.take);
        }
        EXPECT_EQ(modeOf(create(L"locked", readAccess, FILE_SHARE_READ, OPEN_EXISTING)), "r") << kind.name;
    }
}

TEST(CreateFile, SeesThisProcessesOwnLocksByFlockOnly)
{
    const ScratchFolder folder;
    folder.write("locked", "content");
    const int descriptor = open("locked", O_RDWR);
    ASSERT_TRUE(lockRange(descriptor, F_WRLCK, 0, 0));
    EXPECT_EQ(modeOf(create(L"locked", readAccess, FILE_SHARE_READ, OPEN_EXISTING)), "r");
    ASSERT_EQ(flock(descriptor, LOCK_EX), 0);
    EXPECT_EQ(modeOf(create(L"locked", readAccess, FILE_SHARE_READ, OPEN_EXISTING)), "-");
    EXPECT_EQ(errno, ERROR_SHARING_VIOLATION);
    close(descriptor);
}

TEST(CreateFileW, EmptiesLockedFiles)
{
    const ScratchFolder folder;
    for (const DWORD disposition : {DWORD{CREATE_ALWAYS}, DWORD{TRUNCATE_EXISTING}})
    {
        folder.write("locked", "content");
        const LockHolder holder(lockKinds.front().take);
        EXPECT_EQ(create(L"locked", readWriteAccess, 0, disposition), INVALID_HANDLE_VALUE);
        EXPECT_EQ(errno, ERROR_SHARING_VIOLATION);
        EXPECT_EQ(folder.read("locked"), "");
    }
}

TEST(CreateFileW, HoldsNoLock)
{
    const ScratchFolder folder;
    folder.write("locked", "content");
    const HANDLE handle = create(L"locked", readWriteAccess, 0, OPEN_EXISTING);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_EQ(modeOf(create(L"locked", readWriteAccess, 0, OPEN_EXISTING)), "r+");
    for (const LockKind& kind : lockKinds)
    {
        EXPECT_NO_THROW(const LockHolder holder(kind.take)) << kind.name;
    }
    EXPECT_EQ(CloseHandle(handle), 1);
}

TEST(CreateFileW, EmptiesFilesThatAreNotReadableAndWritable)
{
    const FolderForAll folder;
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      for (const DWORD disposition : {DWORD{CREATE_NEW}, DWORD{OPEN_ALWAYS}})
                      {
                          makeFile("write-only", 0200);
                          EXPECT_EQ(modeOf(create(L"write-only", writeAccess, 0, disposition)), "w");
                          unlink("write-only");
                      }
                  }),
              0);
}

TEST(CreateFileW, OpensForWritingWithoutBeingAsked)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    EXPECT_EQ(modeOf(create(L"file", readAccess, 0, OPEN_EXISTING)), "r+");
    EXPECT_EQ(modeOf(create(L"file", readAccess, FILE_SHARE_READ, OPEN_ALWAYS)), "r+");
    EXPECT_EQ(modeOf(create(L"file", readAccess, 0x40, OPEN_ALWAYS)), "r");
}

TEST(CreateFileW, IgnoresSecurityFlagsAndTemplate)
{
    const ScratchFolder folder;
    SECURITY_ATTRIBUTES security = {};
    const HANDLE handle = CreateFileW(L"file", readWriteAccess, 0, &security, CREATE_NEW,
                                      FILE_FLAG_DELETE_ON_CLOSE | FILE_ATTRIBUTE_READONLY, &security);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_EQ(CloseHandle(handle), 1);
    EXPECT_EQ(access("file", R_OK | W_OK), 0);
    EXPECT_EQ(
        CreateFileW(L".", readAccess, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr),
        INVALID_HANDLE_VALUE);
}

} // namespace
