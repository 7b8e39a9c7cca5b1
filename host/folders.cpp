#include "folders.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest::host
{

std::string homeFolder()
{
    if (const char* const home = std::getenv("HOME"); home != nullptr && *home != '\0')
    {
        return home;
    }
    const passwd* const user = getpwuid(getuid());
    return user == nullptr ? "" : user->pw_dir;
}

std::string baseFolder(const char* variable, const char* belowHome)
{
    const char* const folder = std::getenv(variable);
    return folder != nullptr && *folder == '/' ? folder : homeFolder() + '/' + belowHome;
}

bool makeFolders(const std::string& folder)
{
    std::filesystem::path made;
    for (const std::filesystem::path& component : std::filesystem::path(folder))
    {
        made /= component;
        if (mkdir(made.c_str(), 0700) != 0 && errno != EEXIST && access(made.c_str(), F_OK) != 0)
        {
            return false;
        }
    }
    return true;
}

} // namespace kest::host
