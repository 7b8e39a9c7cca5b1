#include "atomic_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest::host
{

namespace
{

using common::Descriptor;
using common::writeAll;

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

// Where new content is written before it takes its place. One name a file: what a crash leaves there is removed
// by the next writer.
std::string draftOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    return path.substr(0, name) + "." + path.substr(name) + ".kest-new";
}

// A new file gets the mode that the process's mask leaves, as any new file does.
bool writeDraft(const std::string& draft, const std::string& content, std::optional<mode_t> mode)
{
    unlink(draft.c_str());
    Descriptor file(open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode ? 0600 : 0666));
    return file.valid() && writeAll(file.number(), content) && (!mode || fchmod(file.number(), *mode) == 0) &&
           fsync(file.number()) == 0 && file.close();
}

std::optional<std::string> readAll(int descriptor)
{
    std::string content;
    struct stat status;
    if (fstat(descriptor, &status) == 0 && status.st_size > 0)
    {
        content.reserve(static_cast<std::size_t>(status.st_size) + 1);
    }
    char block[16384];
    while (true)
    {
        const ssize_t count = read(descriptor, block, sizeof block);
        if (count < 0 && errno != EINTR)
        {
            return std::nullopt;
        }
        if (count == 0)
        {
            return content;
        }
        content.append(block, static_cast<std::size_t>(count < 0 ? 0 : count));
    }
}

} // namespace

std::optional<std::string> readWholeFile(const std::string& path)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.valid() ? readAll(file.number()) : std::nullopt;
}

std::optional<std::string> readRegularFile(const std::string& path)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status;
    if (!file.valid() || fstat(file.number(), &status) != 0)
    {
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode))
    {
        errno = EACCES;
        return std::nullopt;
    }
    return readAll(file.number());
}

FolderLock::FolderLock(const std::string& folder)
    : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    int result = 0;
    do
    {
        result = held() ? flock(descriptor_.number(), LOCK_EX) : 0;
    } while (result != 0 && errno == EINTR);
    if (result != 0)
    {
        const int error = errno;
        descriptor_.close();
        errno = error;
    }
}

bool replaceFile(const std::string& path, const std::string& content)
{
    struct stat status;
    const bool present = stat(path.c_str(), &status) == 0;
    if (present && access(path.c_str(), W_OK) != 0)
    {
        return false;
    }
    // Before anything is written: once the file is replaced there is no failing.
    const std::string folderPath = folderOf(path);
    const std::string draft = draftOf(path);
    if (!writeDraft(draft, content, present ? std::optional<mode_t>(status.st_mode & 07777) : std::nullopt) ||
        rename(draft.c_str(), path.c_str()) != 0)
    {
        const int error = errno;
        unlink(draft.c_str());
        errno = error;
        return false;
    }
    const Descriptor folder(open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.valid())
    {
        fsync(folder.number());
    }
    return true;
}

} // namespace kest::host
