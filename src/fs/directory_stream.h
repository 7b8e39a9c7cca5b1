// A directory being read, closed when it goes out of scope.
#pragma once

#include <dirent.h>
#include <memory>

namespace kest
{

struct CloseDirectory
{
    void operator()(DIR* stream) const { closedir(stream); }
};

using DirectoryStream = std::unique_ptr<DIR, CloseDirectory>;

} // namespace kest
