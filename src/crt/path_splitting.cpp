#include "kest/crt/path_splitting.h"

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <string>

namespace
{

// The text and its terminator; nothing where no output is wanted.
template <class CharT>
void put(CharT* output, const CharT* text, std::size_t length)
{
    if (output != nullptr)
    {
        std::char_traits<CharT>::move(output, text, length);
        output[length] = CharT();
    }
}

// The most characters that _wsplitpath puts into its outputs.
constexpr std::size_t longestDirectory = 1025;
constexpr std::size_t longestName = 255;

} // namespace

void _splitpath(const char* path, char* drive, char* dir, char* fname, char* ext)
{
    *drive = '\0';
    if (path == nullptr)
    {
        *dir = *fname = *ext = '\0';
        return;
    }
    const char* const slash = std::strrchr(path, '/');
    const char* const name = slash == nullptr ? path : slash + 1;
    const std::size_t nameLength = std::strlen(name);
    const char* const dot = std::strrchr(name, '.');
    const std::size_t stemLength = dot == nullptr ? nameLength : static_cast<std::size_t>(dot - name);
    put(fname, name, stemLength);
    put(ext, name + stemLength, nameLength - stemLength);
    put(dir, path, slash == nullptr ? 0 : static_cast<std::size_t>(slash - path));
}

void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* dir, wchar_t* fname, wchar_t* ext)
{
    for (wchar_t* const output : {drive, dir, fname, ext})
    {
        put(output, L"", 0);
    }
    if (path == nullptr)
    {
        return;
    }
    const wchar_t* separator = std::wcsrchr(path, L'/');
    if (separator == nullptr)
    {
        separator = std::wcsrchr(path, L'\\');
    }
    const wchar_t* const name = separator == nullptr ? path : separator + 1;
    const std::size_t nameLength = std::wcslen(name);
    const wchar_t* const dot = std::wcsrchr(name, L'.');
    const std::size_t stemLength = dot == nullptr ? nameLength : static_cast<std::size_t>(dot - name);
    const std::size_t directoryLength = static_cast<std::size_t>(name - path);
    if (directoryLength <= longestDirectory)
    {
        put(dir, path, directoryLength);
    }
    // Behind a directory the whole component must fit.
    if ((separator == nullptr ? stemLength : nameLength) <= longestName)
    {
        put(fname, name, stemLength);
    }
    if (nameLength - stemLength <= longestName)
    {
        put(ext, name + stemLength, nameLength - stemLength);
    }
}

void _wmakepath(wchar_t* destination, const wchar_t* drive, const wchar_t* dir, const wchar_t* fname,
                const wchar_t* ext)
{
    wchar_t* end = destination + std::wcslen(destination);
    end = wcpcpy(end, drive);
    end = wcpcpy(end, dir);
    if (fname != nullptr)
    {
        end = wcpcpy(end, fname);
    }
    if (ext == nullptr || *ext == L'\0')
    {
        return;
    }
    if (*ext != L'.')
    {
        *end++ = L'.';
    }
    wcpcpy(end, ext);
}
