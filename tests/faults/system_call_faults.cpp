#include "faults/system_call_faults.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <limits>
#include <sys/sendfile.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace
{

using kest::test::SystemCall;

constexpr long never = std::numeric_limits<long>::max();

struct Fault
{
    int error = 0;
    long first = never;
    long seen = 0;
};
constinit std::array<Fault, 9> faults = {};
constinit bool reluctant = false;
constinit bool interruptedLast = false;

Fault& faultOf(SystemCall call)
{
    return faults[static_cast<std::size_t>(call)];
}

bool fails(SystemCall call)
{
    Fault& fault = faultOf(call);
    if (fault.first == never || ++fault.seen < fault.first)
    {
        return false;
    }
    errno = fault.error;
    return true;
}

// Of a reading or writing that is reluctant: whether it is interrupted, and how much it handles.
bool isInterrupted(std::size_t& size)
{
    if (!reluctant)
    {
        return false;
    }
    interruptedLast = !interruptedLast;
    size = std::min<std::size_t>(size, 3);
    errno = interruptedLast ? EINTR : errno;
    return interruptedLast;
}

} // namespace

extern "C"
{
    __attribute__((visibility("default"))) ssize_t faultyRead(int file, void* data, std::size_t size) __asm__("read");
    __attribute__((visibility("default"))) ssize_t faultyWrite(int file, const void* data,
                                                               std::size_t size) __asm__("write");
    __attribute__((visibility("default"))) ssize_t faultyCopyFileRange(int in, off64_t* inPlace, int out,
                                                                       off64_t* outPlace, std::size_t size,
                                                                       unsigned flags) __asm__("copy_file_range");
    __attribute__((visibility("default"))) ssize_t faultySendFile(int out, int in, off_t* place,
                                                                  std::size_t size) __asm__("sendfile");
    __attribute__((visibility("default"))) int faultyRename(const char* from, const char* to) __asm__("rename");
    __attribute__((visibility("default"))) int faultyMove(int fromFolder, const char* from, int toFolder,
                                                          const char* to, unsigned flags) __asm__("renameat2");
    __attribute__((visibility("default"))) int faultyMakeDirectory(const char* path, mode_t mode) __asm__("mkdir");
    __attribute__((visibility("default"))) int faultyCreate(const char* path, mode_t mode) __asm__("creat");
    __attribute__((visibility("default"))) int faultySync(int file) __asm__("fsync");
    __attribute__((visibility("default"))) int faultyDataSync(int file) __asm__("fdatasync");
}

ssize_t faultyRead(int file, void* data, std::size_t size)
{
    return fails(SystemCall::read) || isInterrupted(size) ? -1 : syscall(SYS_read, file, data, size);
}

ssize_t faultyWrite(int file, const void* data, std::size_t size)
{
    return fails(SystemCall::write) || isInterrupted(size) ? -1 : syscall(SYS_write, file, data, size);
}

ssize_t faultyCopyFileRange(int in, off64_t* inPlace, int out, off64_t* outPlace, std::size_t size, unsigned flags)
{
    return fails(SystemCall::copyFileRange) ? -1
                                            : syscall(SYS_copy_file_range, in, inPlace, out, outPlace, size, flags);
}

ssize_t faultySendFile(int out, int in, off_t* place, std::size_t size)
{
    return fails(SystemCall::sendFile) ? -1 : syscall(SYS_sendfile, out, in, place, size);
}

int faultyRename(const char* from, const char* to)
{
    return fails(SystemCall::rename) ? -1 : static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int faultyMove(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags)
{
    return fails(SystemCall::moveWithoutReplacing)
               ? -1
               : static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

int faultyMakeDirectory(const char* path, mode_t mode)
{
    return fails(SystemCall::makeDirectory) ? -1 : static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int faultyCreate(const char* path, mode_t mode)
{
    return fails(SystemCall::create)
               ? -1
               : static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode));
}

// Nothing here must outlast the machine, and hundreds of openings of a database would each wait for the disk.
int faultySync(int)
{
    return fails(SystemCall::sync) ? -1 : 0;
}

int faultyDataSync(int file)
{
    return faultySync(file);
}

namespace kest::test
{

FailingCall::FailingCall(SystemCall call, int error, long from) : call_(call)
{
    faultOf(call) = {error, from, 0};
}

FailingCall::~FailingCall()
{
    faultOf(call_) = {};
}

bool FailingCall::reached() const
{
    return faultOf(call_).seen >= faultOf(call_).first;
}

ReluctantCalls::ReluctantCalls()
    : copyFileRange_(SystemCall::copyFileRange, ENOSYS), sendFile_(SystemCall::sendFile, ENOSYS)
{
    reluctant = true;
}

ReluctantCalls::~ReluctantCalls()
{
    reluctant = false;
}

} // namespace kest::test
