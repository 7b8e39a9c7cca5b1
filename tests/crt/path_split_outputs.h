// What the tests of the path splitters share: calls with sentinels in every output, and what they are to leave there.
#pragma once

#include "kest/crt/path_splitting.h"

#include "harness/sentinel_buffer.h"

#include <cstddef>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace kest::test
{

inline std::wstring widened(const std::string& text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(std::mbstowcs(wide.data(), text.c_str(), text.size()));
    return wide;
}

// The four outputs of a call, filled with sentinels before it.
template <class CharT>
struct Outputs
{
    static constexpr std::size_t size = 1100;
    using Buffer = SentinelBuffer<CharT, size>;

    Buffer drive;
    Buffer dir;
    Buffer fname;
    Buffer ext;
};

// What a split leaves in its outputs: a text and its terminator, or (null) nothing.
struct Split
{
    const char* drive;
    const char* dir;
    const char* fname;
    const char* ext;
};

inline void expectOutputs(const Outputs<char>& outputs, const Split& expected)
{
    const auto expectOne = [](const char* part, const Outputs<char>::Buffer& buffer, const char* text)
    {
        using Buffer = Outputs<char>::Buffer;
        EXPECT_EQ(buffer.contents(),
                  text == nullptr ? Buffer::untouched() : Buffer::startingWith(std::string(text) + '\0'))
            << part;
    };
    expectOne("drive", outputs.drive, expected.drive);
    expectOne("dir", outputs.dir, expected.dir);
    expectOne("fname", outputs.fname, expected.fname);
    expectOne("ext", outputs.ext, expected.ext);
}

inline void expectOutputs(const Outputs<wchar_t>& outputs, const Split& expected)
{
    const auto expectOne = [](const char* part, const Outputs<wchar_t>::Buffer& buffer, const char* text)
    {
        using Buffer = Outputs<wchar_t>::Buffer;
        EXPECT_EQ(buffer.contents(),
                  text == nullptr ? Buffer::untouched() : Buffer::startingWith(widened(text) + L'\0'))
            << part;
    };
    expectOne("drive", outputs.drive, expected.drive);
    expectOne("dir", outputs.dir, expected.dir);
    expectOne("fname", outputs.fname, expected.fname);
    expectOne("ext", outputs.ext, expected.ext);
}

// Room for each part, for the functions that take sizes.
struct Sizes
{
    std::size_t drive = Outputs<char>::size;
    std::size_t dir = Outputs<char>::size;
    std::size_t fname = Outputs<char>::size;
    std::size_t ext = Outputs<char>::size;
};

inline int splitBounded(const char* path, Outputs<char>& outputs, const Sizes& sizes = {})
{
    return _splitpath_s(path, outputs.drive.data(), sizes.drive, outputs.dir.data(), sizes.dir, outputs.fname.data(),
                        sizes.fname, outputs.ext.data(), sizes.ext);
}

inline int splitBounded(const wchar_t* path, Outputs<wchar_t>& outputs, const Sizes& sizes = {})
{
    return _wsplitpath_s(path, outputs.drive.data(), sizes.drive, outputs.dir.data(), sizes.dir, outputs.fname.data(),
                         sizes.fname, outputs.ext.data(), sizes.ext);
}

inline void split(const char* path, Outputs<char>& outputs)
{
    _splitpath(path, outputs.drive.data(), outputs.dir.data(), outputs.fname.data(), outputs.ext.data());
}

inline void split(const wchar_t* path, Outputs<wchar_t>& outputs)
{
    _wsplitpath(path, outputs.drive.data(), outputs.dir.data(), outputs.fname.data(), outputs.ext.data());
}

// An output that is not written to.
inline constexpr const char* none = nullptr;

// A name of that many characters.
template <class CharT>
std::basic_string<CharT> repeated(std::size_t count)
{
    return std::basic_string<CharT>(count, CharT('x'));
}

} // namespace kest::test
