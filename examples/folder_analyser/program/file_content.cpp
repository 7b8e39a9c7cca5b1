#include "program/file_content.h"

#include <windows.h>

namespace
{

constexpr DWORD largestSize = 1U << 30;

// A file that closes with its owner.
class File
{
public:
    explicit File(HANDLE handle) : handle_(handle) {}
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return handle_; }

    bool close()
    {
        const bool closed = isOpen() && CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
        return closed;
    }

private:
    HANDLE handle_;
};

} // namespace

bool readWholeFile(const std::wstring& path, std::vector<unsigned char>& bytes)
{
    const File file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.isOpen())
    {
        return false;
    }
    DWORD sizeHigh = 0;
    const DWORD size = GetFileSize(file.handle(), &sizeHigh);
    if (sizeHigh != 0 || size > largestSize)
    {
        return false;
    }
    bytes.resize(size);
    if (size == 0)
    {
        return true;
    }
    // Asking for the size moves the position where files are streams.
    SetFilePointer(file.handle(), 0, nullptr, FILE_BEGIN);
    DWORD read = 0;
    return ReadFile(file.handle(), bytes.data(), size, &read, nullptr) && read == size;
}

bool writeWholeFile(const std::wstring& path, const std::string& text)
{
    File file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD size = static_cast<DWORD>(text.size());
    DWORD written = 0;
    return file.isOpen() && WriteFile(file.handle(), text.data(), size, &written, nullptr) && written == size &&
           file.close();
}
