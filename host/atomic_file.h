// Files that are replaced whole or not at all, one writer at a time.
#pragma once

#include "common/descriptor.h"

#include <optional>
#include <string>

namespace kest::host
{

// The whole content of a file; nothing, with errno set, if it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

// The same, of regular files only: devices and pipes, which may have no end, are refused without waiting.
std::optional<std::string> readRegularFile(const std::string& path);

// Keeps other writers of a folder's files out, in this process and in others, for as long as it lives. The lock
// stands on the folder itself, so it leaves nothing behind and outlives the files that are replaced.
class FolderLock
{
public:
    explicit FolderLock(const std::string& folder);

    // False, with errno set, when the folder cannot be locked.
    bool held() const { return descriptor_.valid(); }

private:
    common::Descriptor descriptor_;
};

// Puts new content in a file's place in one step, keeping its mode; a crash leaves the old or the new content.
// The folder's lock must be held, and what stands there must be a regular file. False, with errno set and the file as it was, when that is not possible.
bool replaceFile(const std::string& path, const std::string& content);

} // namespace kest::host
