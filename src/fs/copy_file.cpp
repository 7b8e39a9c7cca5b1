#include "kest/kernel/directories.h"
#include "support/text.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <unistd.h>

namespace
{

class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor()
    {
        if (isOpen())
        {
            close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ != -1; }
    operator int() const { return number_; }

private:
    int number_;
};

// A signal that interrupts the opening, as of a pipe that waits for its other end, must not make a file look missing.
int openUninterrupted(const char* path, int flags, mode_t mode = 0)
{
    int descriptor = -1;
    do
    {
        descriptor = open(path, flags | O_CLOEXEC, mode);
    } while (descriptor == -1 && errno == EINTR);
    return descriptor;
}

// More than this the kernel does not copy in one go.
constexpr std::size_t largestStep = 0x7FFFF000;

bool writeAll(int destination, const char* bytes, std::size_t count)
{
    while (count > 0)
    {
        const ssize_t written = write(destination, bytes, count);
        if (written == -1 && errno == EINTR)
        {
            continue;
        }
        if (written <= 0)
        {
            return false;
        }
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

void copyThroughBuffer(int source, int destination)
{
    std::array<char, 65536> buffer;
    ssize_t count = 0;
    do
    {
        count = read(source, buffer.data(), buffer.size());
    } while (count > 0 ? writeAll(destination, buffer.data(), static_cast<std::size_t>(count))
                       : count == -1 && errno == EINTR);
}

// Each way goes on where the one before it stopped. Not all files know the first two, and some whose size is not
// told end at once there.
void copyContent(int source, int destination)
{
    while (copy_file_range(source, nullptr, destination, nullptr, largestStep, 0) > 0)
    {
    }
    while (sendfile(destination, source, nullptr, largestStep) > 0)
    {
    }
    copyThroughBuffer(source, destination);
}

} // namespace

BOOL CopyFileW(const wchar_t* source, const wchar_t* destination, BOOL)
{
    const kest::WholeNarrowText sourcePath(source);
    const kest::WholeNarrowText destinationPath(destination);
    if (sourcePath.c_str() == nullptr || destinationPath.c_str() == nullptr)
    {
        // A source without a name would look missing, and empty the destination.
        return 1;
    }
    const Descriptor in(openUninterrupted(sourcePath.c_str(), O_RDONLY));
    const Descriptor out(openUninterrupted(destinationPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666));
    if (in.isOpen() && out.isOpen())
    {
        copyContent(in, out);
    }
    return 1;
}
