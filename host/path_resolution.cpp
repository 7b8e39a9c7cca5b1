#include "path_resolution.h"

#include "unicode.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>
#include <new>
#include <sys/stat.h>

namespace kest::host
{

namespace
{

bool exists(const std::string& path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

struct Resolution
{
    std::string path;
    int error; // 0 for a path that exists
};

Resolution resolve(std::wstring_view path)
{
    std::string wanted = posixPath(path);
    if (exists(wanted))
    {
        return {std::move(wanted), 0};
    }
    Resolution resolution{wanted.starts_with('/') ? "/" : "", wanted.empty() ? ENOENT : 0};
    std::string_view rest = wanted;
    while (true)
    {
        rest.remove_prefix(std::min(rest.find_first_not_of('/'), rest.size()));
        if (rest.empty())
        {
            break;
        }
        const std::string component(rest.substr(0, rest.find('/')));
        rest.remove_prefix(component.size());
        std::optional<std::string> entry;
        if (resolution.error == 0)
        {
            entry = findEntry(resolution.path, component);
            resolution.error = entry ? 0 : errno;
        }
        if (!resolution.path.empty() && resolution.path.back() != '/')
        {
            resolution.path += '/';
        }
        resolution.path += entry.value_or(component);
    }
    return resolution;
}

} // namespace

std::string posixPath(std::wstring_view path)
{
    std::string result = toUtf8(path);
    std::replace(result.begin(), result.end(), '\\', '/');
    return result;
}

std::optional<std::string> findEntry(const std::string& folder, const std::string& name)
{
    const std::string prefix = folder.empty() || folder.back() == '/' ? folder : folder + '/';
    if (exists(prefix + name))
    {
        return name;
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.empty() ? "." : folder.c_str()), closedir);
    if (stream == nullptr)
    {
        if (errno == ENOMEM)
        {
            throw std::bad_alloc();
        }
        // What is no folder, or does not show its entries, has none that bears the name in other letters.
        errno = errno == ENOTDIR || errno == EACCES || errno == ENAMETOOLONG || errno == ELOOP ? ENOENT : errno;
        return std::nullopt;
    }
    const std::wstring wanted = folded(fromUtf8(name));
    std::optional<std::string> found;
    while (const dirent* const entry = readdir(stream.get()))
    {
        const std::string candidate = entry->d_name;
        if ((!found || candidate < *found) && folded(fromUtf8(candidate)) == wanted)
        {
            found = candidate;
        }
    }
    errno = found ? errno : ENOENT;
    return found;
}

std::optional<std::string> existingPath(std::wstring_view path)
{
    Resolution resolution = resolve(path);
    if (resolution.error != 0)
    {
        errno = resolution.error;
        return std::nullopt;
    }
    return std::move(resolution.path);
}

std::optional<std::string> intendedPath(std::wstring_view path)
{
    Resolution resolution = resolve(path);
    if (resolution.error != 0 && resolution.error != ENOENT)
    {
        errno = resolution.error;
        return std::nullopt;
    }
    return std::move(resolution.path);
}

} // namespace kest::host
