#include "path_resolution.h"

#include "unicode.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
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
    bool complete;
};

Resolution resolve(std::wstring_view path)
{
    std::string wanted = posixPath(path);
    if (exists(wanted))
    {
        return {std::move(wanted), true};
    }
    Resolution resolution{wanted.starts_with('/') ? "/" : "", !wanted.empty()};
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
        const std::optional<std::string> entry =
            resolution.complete ? findEntry(resolution.path, component) : std::nullopt;
        resolution.complete = entry.has_value();
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
    return found;
}

std::optional<std::string> existingPath(std::wstring_view path)
{
    Resolution resolution = resolve(path);
    return resolution.complete ? std::optional(std::move(resolution.path)) : std::nullopt;
}

std::string intendedPath(std::wstring_view path)
{
    return resolve(path).path;
}

} // namespace kest::host
