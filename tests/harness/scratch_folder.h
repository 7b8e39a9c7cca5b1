// A folder of a test's own: made empty, entered for the test's duration, removed with everything in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kest::test
{

class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    // Absolute, without symbolic links.
    const std::filesystem::path& path() const { return path_; }

    // Writes a file, making its folders; returns its absolute path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const;

    // The whole content of a file.
    std::string read(const std::filesystem::path& name) const;

private:
    std::filesystem::path previous_;
    std::filesystem::path path_;
};

} // namespace kest::test
