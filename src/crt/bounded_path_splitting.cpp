// _splitpath_s and _wsplitpath_s: one way of splitting in two widths. What the widths do differently is to copy the
// path and to print text that does not fit.
#include "kest/crt/path_splitting.h"
#include "support/checked_entry_points.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace
{

// Scratch sizes, in characters.
constexpr std::size_t pathSize = 1024;
constexpr std::size_t directorySize = 4096;

void copyPath(char* scratch, const char* path)
{
    __strcpy_chk(scratch, path, pathSize);
}

void copyPath(wchar_t* scratch, const wchar_t* path)
{
    __wcscpy_chk(scratch, path, pathSize);
}

void printCut(char* output, std::size_t size, const char* text)
{
    __snprintf_chk(output, size, kest::checkLevel, kest::unknownObjectSize, "%s", text);
}

void printCut(wchar_t* output, std::size_t size, const wchar_t* text)
{
    __swprintf_chk(output, size, kest::checkLevel, kest::unknownObjectSize, L"%ls", text);
}

void printDirectory(char* scratch, std::size_t size, const char* directory, const char* component)
{
    __snprintf_chk(scratch, size, kest::checkLevel, directorySize, "%s/%s", directory, component);
}

void printDirectory(wchar_t* scratch, std::size_t size, const wchar_t* directory, const wchar_t* component)
{
    __swprintf_chk(scratch, size, kest::checkLevel, directorySize, L"%ls/%ls", directory, component);
}

template <class CharT>
std::size_t lengthOf(const CharT* text)
{
    return std::char_traits<CharT>::length(text);
}

template <class CharT>
void copy(CharT* output, const CharT* text, std::size_t length)
{
    std::char_traits<CharT>::copy(output, text, length);
    output[length] = CharT();
}

// An output of the caller's.
template <class CharT>
struct Part
{
    CharT* text;
    std::size_t size;

    bool isMissing() const { return text == nullptr && size != 0; }
    bool isWanted() const { return text != nullptr && size != 0; }

    // The C library's bounded print; what fits needs no formatting.
    void print(const CharT* source) const
    {
        const std::size_t length = lengthOf(source);
        if (length < size)
        {
            copy(text, source, length);
        }
        else
        {
            printCut(text, size, source);
        }
    }
};

// The directory as it grows, bounded by the size of the output that it is meant for.
template <class CharT>
class DirectoryText
{
public:
    explicit DirectoryText(std::size_t bound) : bound_(bound) { text_[0] = CharT(); }

    const CharT* c_str() const { return text_.data(); }

    void append(const CharT* component)
    {
        if (bound_ > directorySize)
        {
            __chk_fail();
        }
        const std::size_t componentLength = lengthOf(component);
        if (length_ + 1 + componentLength < bound_)
        {
            text_[length_] = CharT('/');
            copy(&text_[length_ + 1], component, componentLength);
            length_ += 1 + componentLength;
            return;
        }
        // A full directory stays as it is.
        if (length_ + 1 >= bound_)
        {
            return;
        }
        std::array<CharT, pathSize> soFar;
        copy(soFar.data(), text_.data(), length_);
        // A wide print that does not fit leaves no terminator.
        std::fill_n(text_.data() + length_, bound_ - length_, CharT());
        printDirectory(text_.data(), bound_, soFar.data(), component);
        length_ = lengthOf(text_.data());
    }

private:
    std::array<CharT, directorySize> text_;
    std::size_t bound_;
    std::size_t length_ = 0;
};

// A path without "/".
template <class CharT>
int splitName(const CharT* name, std::size_t length, Part<CharT> fname, Part<CharT> ext)
{
    const std::size_t dot = std::basic_string_view<CharT>(name, length).rfind(CharT('.'));
    if (dot == std::basic_string_view<CharT>::npos)
    {
        if (fname.isWanted() && fname.size > length)
        {
            copy(fname.text, name, length);
        }
        return 0;
    }
    if (fname.isWanted())
    {
        if (fname.size <= dot)
        {
            return 1;
        }
        copy(fname.text, name, dot);
    }
    if (ext.isWanted())
    {
        if (ext.size <= length - dot)
        {
            return 1;
        }
        copy(ext.text, name + dot, length - dot);
    }
    return 0;
}

// Cuts the next component out of the rest of a path; null when there is none.
template <class CharT>
CharT* nextComponent(CharT*& rest)
{
    while (*rest == CharT('/'))
    {
        ++rest;
    }
    if (*rest == CharT())
    {
        return nullptr;
    }
    CharT* const component = rest;
    while (*rest != CharT() && *rest != CharT('/'))
    {
        ++rest;
    }
    if (*rest != CharT())
    {
        *rest++ = CharT();
    }
    return component;
}

template <class CharT>
bool isDotsOnly(const CharT* name)
{
    return std::basic_string_view<CharT>(name).find_first_not_of(CharT('.')) == std::basic_string_view<CharT>::npos;
}

template <class CharT>
void cutAtFirstDot(CharT* name)
{
    const std::basic_string_view<CharT> whole(name);
    name[std::min(whole.find(CharT('.')), whole.size())] = CharT();
}

// A path with "/", which is cut to pieces.
template <class CharT>
int splitComponents(CharT* path, Part<CharT> drive, Part<CharT> dir, Part<CharT> fname, Part<CharT> ext)
{
    CharT* rest = path;
    const CharT* const first = nextComponent(rest);
    if (first == nullptr)
    {
        std::fputs("failed!\n", stdout);
        return 1;
    }
    if (drive.isMissing())
    {
        return 1;
    }
    drive.print(first);

    DirectoryText<CharT> directory(dir.size);
    CharT* name = nullptr;
    for (CharT* component = nextComponent(rest); component != nullptr;)
    {
        CharT* const following = nextComponent(rest);
        const std::size_t dot = std::basic_string_view<CharT>(component).rfind(CharT('.'));
        if (dot != std::basic_string_view<CharT>::npos)
        {
            if (ext.isMissing())
            {
                return 1;
            }
            name = component;
            ext.print(component + dot);
        }
        else if (following == nullptr)
        {
            name = component;
        }
        else
        {
            directory.append(component);
        }
        component = following;
    }
    if (dir.isMissing())
    {
        return 1;
    }
    dir.print(directory.c_str());

    // A path of one component has no name.
    if (name == nullptr || isDotsOnly(name) || fname.isMissing())
    {
        return 1;
    }
    cutAtFirstDot(name);
    fname.print(name);
    return 0;
}

template <class CharT>
int splitPath(const CharT* path, Part<CharT> drive, Part<CharT> dir, Part<CharT> fname, Part<CharT> ext)
{
    if (path == nullptr)
    {
        return 1;
    }
    std::array<CharT, pathSize> scratch;
    copyPath(scratch.data(), path);
    const std::size_t length = lengthOf(scratch.data());
    if (length == 0)
    {
        return 1;
    }
    std::replace(scratch.data(), scratch.data() + length, CharT('\\'), CharT('/'));
    if (std::find(scratch.data(), scratch.data() + length, CharT('/')) == scratch.data() + length)
    {
        return splitName(scratch.data(), length, fname, ext);
    }
    return splitComponents(scratch.data(), drive, dir, fname, ext);
}

} // namespace

int _splitpath_s(const char* path, char* drive, size_t driveSize, char* dir, size_t dirSize, char* fname,
                 size_t fnameSize, char* ext, size_t extSize)
{
    return splitPath<char>(path, {drive, driveSize}, {dir, dirSize}, {fname, fnameSize}, {ext, extSize});
}

int _wsplitpath_s(const wchar_t* path, wchar_t* drive, size_t driveSize, wchar_t* dir, size_t dirSize, wchar_t* fname,
                  size_t fnameSize, wchar_t* ext, size_t extSize)
{
    return splitPath<wchar_t>(path, {drive, driveSize}, {dir, dirSize}, {fname, fnameSize}, {ext, extSize});
}
