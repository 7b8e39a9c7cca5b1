#include "harness/scratch_folder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace kest::test
{

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() : previous_(fs::current_path())
{
    std::string name = (fs::temp_directory_path() / "kest-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
    {
        throw std::system_error(errno, std::generic_category(), name);
    }
    path_ = fs::canonical(name);
    fs::current_path(path_);
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    fs::current_path(previous_, ignored);
    // Folders that a test made unreadable must not stay behind.
    for (fs::recursive_directory_iterator entry(path_, fs::directory_options::skip_permission_denied, ignored), end;
         entry != end; entry.increment(ignored))
    {
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
        {
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
    }
    fs::remove_all(path_, ignored);
}

fs::path ScratchFolder::write(const fs::path& name, std::string_view content) const
{
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out)
    {
        throw std::runtime_error("cannot write " + file.string());
    }
    return file;
}

std::string ScratchFolder::read(const fs::path& name) const
{
    std::ifstream in(path_ / name, std::ios::binary);
    if (!in)
    {
        throw std::runtime_error("cannot read " + (path_ / name).string());
    }
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace kest::test
