#include "fs/directory_stream.h"
#include "kest/kernel/directories.h"
#include "support/out_of_memory.h"
#include "support/second_name.h"

#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <set>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{

// Bytes of the longest path; what lies deeper is out of reach.
constexpr std::size_t longestPath = 4095;

constexpr const char* unknownType = "unknow file type!";

// Removes a directory and everything in it that can be reached.
class TreeRemoval
{
public:
    explicit TreeRemoval(const char* path) : path_(path) {}

    // Removes the directory at path_. Returns false when part of it was not even looked at; another way to it may
    // still lead there.
    bool remove();

private:
    using Identity = std::pair<dev_t, ino_t>;

    bool empty(kest::DirectoryStream stream);
    bool isWithinReach(std::string_view name) const { return path_.size() + 1 + name.size() <= longestPath; }

    std::string path_;
    // Directories whose content has been removed or is being removed. Links can lead to them any number of times.
    std::set<Identity> emptied_;
};

bool isSelfOrParent(std::string_view name)
{
    return name == "." || name == "..";
}

// The type behind links; DT_UNKNOWN for what is not there or out of reach.
unsigned char typeOf(int directory, const dirent& entry)
{
    // Whether these two are within reach shows when they are removed.
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR)
    {
        return entry.d_type;
    }
    struct stat status;
    if (fstatat(directory, entry.d_name, &status, 0) != 0)
    {
        return DT_UNKNOWN;
    }
    return static_cast<unsigned char>(IFTODT(status.st_mode));
}

bool TreeRemoval::remove()
{
    kest::DirectoryStream stream(opendir(path_.c_str()));
    struct stat status;
    if (stream == nullptr || fstat(dirfd(stream.get()), &status) != 0)
    {
        rmdir(path_.c_str());
        return false;
    }
    const Identity identity(status.st_dev, status.st_ino);
    bool complete = true;
    if (emptied_.insert(identity).second)
    {
        complete = empty(std::move(stream));
        if (!complete)
        {
            emptied_.erase(identity);
        }
    }
    if (rmdir(path_.c_str()) == 0)
    {
        emptied_.erase(identity);
    }
    return complete;
}

// Files go while the directory is read; directories wait until it is closed, so that the depth of the tree is not
// limited by the number of descriptors.
bool TreeRemoval::empty(kest::DirectoryStream stream)
{
    bool complete = true;
    std::vector<std::string> directories;
    const int directory = dirfd(stream.get());
    while (const dirent* const entry = readdir(stream.get()))
    {
        if (isSelfOrParent(entry->d_name))
        {
            continue;
        }
        if (!isWithinReach(entry->d_name))
        {
            complete = false;
            continue;
        }
        switch (typeOf(directory, *entry))
        {
        case DT_REG:
            unlinkat(directory, entry->d_name, 0);
            break;
        case DT_DIR:
            directories.emplace_back(entry->d_name);
            break;
        case DT_UNKNOWN:
            break;
        default:
            std::perror(unknownType);
        }
    }
    stream.reset();

    const std::size_t length = path_.size();
    for (const std::string& name : directories)
    {
        path_.append("/").append(name);
        complete = remove() && complete;
        path_.resize(length);
    }
    return complete;
}

} // namespace

int DeleteDirectory(const char* path)
{
    if (access(path, F_OK) != 0)
    {
        return 0;
    }
    struct stat status;
    if (stat(path, &status) != 0)
    {
        std::perror("get directory stat error");
        return -1;
    }
    if (S_ISREG(status.st_mode))
    {
        std::remove(path);
    }
    else if (S_ISDIR(status.st_mode))
    {
        // What there is no memory to look at stays, like anything else that cannot be removed.
        kest::answerWithoutMemory(false, [path] { return TreeRemoval(path).remove(); });
    }
    else
    {
        std::perror(unknownType);
    }
    return 0;
}

KEST_SECOND_NAME(int plainDeleteDirectory(const char*), "_Z15DeleteDirectoryPKc", "DeleteDirectory");
