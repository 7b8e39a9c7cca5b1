#include "kest/kernel/environment.h"
#include "kest/kernel/files.h"
#include "support/text.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

// The share value under which OPEN_ALWAYS opens for reading only.
constexpr DWORD readOnlyShare = 0x40;

struct Request
{
    const char* path;
    DWORD share;
    DWORD disposition;
    bool read;
    bool write;
    // What access() says of the desired access.
    bool permitted;

    bool readableAndWritable() const { return read && write ? permitted : ::access(path, R_OK | W_OK) == 0; }
};

// The mode in which the stream is opened; null when the request is refused.
const char* chooseMode(const Request& request)
{
    const char* const createNew = request.read ? "w+b" : "wb";
    const char* const readOnly = "rb";
    const char* const readWrite = "r+b";
    switch (request.disposition)
    {
    case CREATE_NEW:
        return request.readableAndWritable() ? nullptr : createNew;
    case CREATE_ALWAYS:
        return createNew;
    case OPEN_EXISTING:
        if (!request.permitted)
        {
            return nullptr;
        }
        return !request.write && request.share != 0 ? readOnly : readWrite;
    case OPEN_ALWAYS:
        if (!request.readableAndWritable())
        {
            return createNew;
        }
        return !request.write && request.share == readOnlyShare ? readOnly : readWrite;
    case TRUNCATE_EXISTING:
        return request.write && request.readableAndWritable() ? createNew : nullptr;
    default:
        return nullptr;
    }
}

bool isDirectory(const char* path)
{
    struct stat status;
    return stat(path, &status) == 0 && (status.st_mode & S_IFMT) == S_IFDIR;
}

// Whether another process holds a record lock on the file, or anybody else a lock on the whole of it. Takes no lock
// that outlives the call.
bool isLocked(int descriptor)
{
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    if (fcntl(descriptor, F_GETLK, &range) == 0 && range.l_type != F_UNLCK)
    {
        return true;
    }
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0)
    {
        return true;
    }
    flock(descriptor, LOCK_UN | LOCK_NB);
    return false;
}

} // namespace

HANDLE CreateFileW(const wchar_t* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD,
                   HANDLE)
{
    if (name == nullptr || *name == L'\0')
    {
        return INVALID_HANDLE_VALUE;
    }
    const kest::NarrowText path(name);
    const bool read = (access & GENERIC_READ) != 0;
    const bool write = (access & GENERIC_WRITE) != 0;
    const bool permitted = ::access(path.c_str(), (write ? W_OK : 0) | (read ? R_OK : 0)) == 0;
    if (permitted && isDirectory(path.c_str()))
    {
        return INVALID_HANDLE_VALUE;
    }
    const char* const mode = chooseMode({path.c_str(), share, disposition, read, write, permitted});
    std::FILE* const stream = mode != nullptr ? std::fopen(path.c_str(), mode) : nullptr;
    if (stream == nullptr)
    {
        return INVALID_HANDLE_VALUE;
    }
    if (access != 0 && isLocked(fileno(stream)))
    {
        std::fclose(stream);
        SetLastError(ERROR_SHARING_VIOLATION);
        return INVALID_HANDLE_VALUE;
    }
    return stream;
}
