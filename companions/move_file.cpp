#include "kest/companions/kernel.h"

#include "narrow_text.h"
#include "windows_errors.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace kest::companions;

namespace
{

// A descriptor, closed with the object.
class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool open() const { return number_ != -1; }
    int number() const { return number_; }

    // Tells what the system could not report earlier.
    bool close()
    {
        const int number = number_;
        number_ = -1;
        return number == -1 || ::close(number) == 0;
    }

private:
    int number_;
};

bool exists(const std::string& path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

bool copyContent(int from, int to)
{
    std::array<char, 65536> block;
    while (true)
    {
        const ssize_t count = read(from, block.data(), block.size());
        if (count == 0)
            return true;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        for (ssize_t done = 0; done < count;)
        {
            const ssize_t written = write(to, block.data() + done, static_cast<std::size_t>(count - done));
            if (written < 0 && errno != EINTR)
                return false;
            done += written < 0 ? 0 : written;
        }
    }
}

// Copies the file to a new one and removes it; 0, or the system's error with everything as it was.
int moveByCopying(const std::string& from, const std::string& to)
{
    struct stat status;
    if (lstat(from.c_str(), &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return EACCES;
    const Descriptor source(open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!source.open())
        return errno;
    Descriptor target(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!target.open())
        return errno;
    const timespec times[] = {status.st_atim, status.st_mtim};
    if (copyContent(source.number(), target.number()) && fchmod(target.number(), status.st_mode & 07777) == 0 &&
        futimens(target.number(), times) == 0 && target.close() && unlink(from.c_str()) == 0)
        return 0;
    const int error = errno;
    unlink(to.c_str());
    return error;
}

// 0, or the system's error.
int move(const std::string& from, const std::string& to)
{
    if (from == to && exists(from))
        return 0;
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    // Not every file system can promise to replace nothing. For others the same number means a folder moved into itself.
    if (errno == EINVAL || errno == ENOSYS)
    {
        if (exists(to))
            return EEXIST;
        if (std::rename(from.c_str(), to.c_str()) == 0)
            return 0;
    }
    return errno == EXDEV ? moveByCopying(from, to) : errno;
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

DWORD windowsErrorOf(int error, const std::string& from)
{
    switch (error)
    {
    case ENOENT:
        return !exists(from) && exists(folderOf(from)) ? errorFileNotFound : errorPathNotFound;
    case ENOTDIR:
    case ELOOP:
        return errorPathNotFound;
    case EACCES:
    case EPERM:
    case EBUSY:
        return errorAccessDenied;
    case ENOMEM:
        return errorNotEnoughMemory;
    case EROFS:
        return errorWriteProtect;
    case EINVAL:
        return errorSharingViolation;
    case ENOSPC:
    case EDQUOT:
        return errorDiskFull;
    case EEXIST:
        return errorAlreadyExists;
    case ENAMETOOLONG:
        return errorFileNameTooLong;
    default:
        return errorGeneralFailure;
    }
}

} // namespace

BOOL MoveFileW(const wchar_t* from, const wchar_t* to)
{
    if (from == nullptr || to == nullptr)
        return failWith(errorInvalidParameter, FALSE);
    return reportingNoMemory(FALSE,
                             [=]
                             {
                                 const int lastError = errno;
                                 const auto source = narrowed(from);
                                 const auto target = narrowed(to);
                                 if (!source || !target)
                                     return failWith(errorInvalidName, FALSE);
                                 if (const int error = move(*source, *target); error != 0)
                                     return failWith(windowsErrorOf(error, *source), FALSE);
                                 errno = lastError;
                                 return TRUE;
                             });
}
