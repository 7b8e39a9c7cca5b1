#include "kest/kernel/files.h"

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <sys/stat.h>

namespace
{

std::FILE* streamOf(HANDLE handle)
{
    return static_cast<std::FILE*>(handle);
}

bool queryStatus(HANDLE handle, struct stat& status)
{
    const int descriptor = fileno(streamOf(handle));
    return descriptor != -1 && fstat(descriptor, &status) == 0;
}

FILETIME toFileTime(std::time_t seconds)
{
    const auto count = static_cast<std::uint64_t>(seconds);
    return {static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)};
}

void storeFileTime(FILETIME* destination, std::time_t seconds)
{
    if (destination != nullptr)
    {
        *destination = toFileTime(seconds);
    }
}

} // namespace

BOOL ReadFile(HANDLE handle, void* buffer, DWORD count, DWORD* read, OVERLAPPED*)
{
    if (std::fread(buffer, count, 1, streamOf(handle)) != 1)
    {
        return 0;
    }
    *read = count;
    return 1;
}

BOOL WriteFile(HANDLE handle, const void* buffer, DWORD count, DWORD* written, OVERLAPPED*)
{
    if (std::fwrite(buffer, count, 1, streamOf(handle)) != 1)
    {
        return 0;
    }
    *written = count;
    return 1;
}

DWORD SetFilePointer(HANDLE handle, LONG low, LONG* high, DWORD method)
{
    const long distance = high == nullptr ? low : static_cast<long>(static_cast<DWORD>(low));
    return static_cast<DWORD>(std::fseek(streamOf(handle), distance, static_cast<int>(method)));
}

DWORD GetFileSize(HANDLE handle, DWORD* high)
{
    if (handle == nullptr || std::fseek(streamOf(handle), 0, SEEK_END) != 0)
    {
        return INVALID_FILE_SIZE;
    }
    const long size = std::ftell(streamOf(handle));
    if (high != nullptr)
    {
        *high = 0;
    }
    return static_cast<DWORD>(size);
}

BOOL CloseHandle(HANDLE handle)
{
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && std::fclose(streamOf(handle)) == 0;
}

BOOL GetFileTime(HANDLE handle, FILETIME* creation, FILETIME* access, FILETIME* write)
{
    struct stat status;
    if (!queryStatus(handle, status))
    {
        return 0;
    }
    storeFileTime(creation, status.st_ctime);
    storeFileTime(access, status.st_atime);
    storeFileTime(write, status.st_mtime);
    return 1;
}

BOOL GetFileInformationByHandle(HANDLE handle, BY_HANDLE_FILE_INFORMATION* info)
{
    struct stat status;
    if (info == nullptr || !queryStatus(handle, status))
    {
        return 0;
    }
    info->dwFileAttributes = 0;
    info->ftCreationTime = toFileTime(status.st_ctime);
    info->ftLastAccessTime = toFileTime(status.st_atime);
    info->ftLastWriteTime = toFileTime(status.st_mtime);
    info->dwVolumeSerialNumber = static_cast<DWORD>(status.st_dev);
    info->nFileSizeHigh = 0;
    info->nFileSizeLow = GetFileSize(handle, nullptr);
    info->nNumberOfLinks = static_cast<DWORD>(status.st_nlink);
    info->nFileIndexHigh = 0;
    info->nFileIndexLow = static_cast<DWORD>(status.st_ino);
    return 1;
}
