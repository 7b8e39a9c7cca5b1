#include "full_disk.h"

#include <atomic>
#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

std::atomic<bool> diskIsFull = false;

// Terminals and pipes have room on a full disk, too.
bool refuses(int descriptor)
{
    struct stat status;
    if (!diskIsFull || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
    {
        return false;
    }
    errno = ENOSPC;
    return true;
}

} // namespace

// The registry's database is written through the first, profile files through the second.
extern "C" __attribute__((visibility("default"))) ssize_t pwrite64(int descriptor, const void* data, size_t size,
                                                                   off64_t offset);
extern "C" ssize_t pwrite64(int descriptor, const void* data, size_t size, off64_t offset)
{
    return refuses(descriptor) ? -1 : syscall(SYS_pwrite64, descriptor, data, size, offset);
}

extern "C" __attribute__((visibility("default"))) ssize_t write(int descriptor, const void* data, size_t size);
extern "C" ssize_t write(int descriptor, const void* data, size_t size)
{
    return refuses(descriptor) ? -1 : syscall(SYS_write, descriptor, data, size);
}

namespace kest::test
{

FullDisk::FullDisk()
{
    diskIsFull = true;
}

FullDisk::~FullDisk()
{
    diskIsFull = false;
}

} // namespace kest::test
