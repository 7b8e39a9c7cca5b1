#include "common/descriptor.h"

#include <cerrno>
#include <cstddef>
#include <unistd.h>
#include <utility>

namespace kest::common
{

bool Descriptor::close()
{
    return !valid() || ::close(std::exchange(number_, -1)) == 0;
}

bool writeAll(int descriptor, std::string_view content)
{
    while (!content.empty())
    {
        const ssize_t written = write(descriptor, content.data(), content.size());
        if (written < 0 && errno != EINTR)
        {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written < 0 ? 0 : written));
    }
    return true;
}

} // namespace kest::common
