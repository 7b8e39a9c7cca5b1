#include "kest/companions/kernel.h"

#include "common/descriptor.h"
#include "common/windows_errors.h"
#include "failure.h"
#include "narrow_text.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace kest::common;
using namespace kest::companions;

namespace
{

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
        if (!writeAll(to, {block.data(), static_cast<std::size_t>(count)}))
            return false;
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
    if (!source.valid())
        return errno;
    Descriptor target(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!target.valid())
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

// Windows's name for what the system says of a move.
DWORD moveErrorOf(int error, const std::string& from)
{
    switch (error)
    {
    case ENOENT:
        return !exists(from) && exists(folderOf(from)) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    case EBUSY:
        return ERROR_ACCESS_DENIED;
    case EINVAL:
        return ERROR_SHARING_VIOLATION;
    case EEXIST:
        return ERROR_ALREADY_EXISTS;
    // Moving answers the general failure here, as it does for all that its contract does not name.
    case EISDIR:
    case EMFILE:
    case ENFILE:
    case ETXTBSY:
        return ERROR_GEN_FAILURE;
    default:
        return static_cast<DWORD>(windowsErrorOf(error));
    }
}

} // namespace

BOOL MoveFileW(const wchar_t* from, const wchar_t* to)
{
    if (from == nullptr || to == nullptr)
        return failWith(ERROR_INVALID_PARAMETER, FALSE);
    return reportingNoMemory(FALSE,
                             [=]
                             {
                                 const int lastError = errno;
                                 const auto source = narrowed(from);
                                 const auto target = narrowed(to);
                                 if (!source || !target)
                                     return failWith(ERROR_INVALID_NAME, FALSE);
                                 if (const int error = move(*source, *target); error != 0)
                                     return failWith(moveErrorOf(error, *source), FALSE);
                                 errno = lastError;
                                 return TRUE;
                             });
}
