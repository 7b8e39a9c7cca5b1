// What the tests of the wide wrappers share.
#pragma once

#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace kest::test
{

struct Release
{
    void operator()(wchar_t* text) const { std::free(text); }
};
using OwnedText = std::unique_ptr<wchar_t, Release>;

// A file name of one, two, three and four bytes a character.
inline constexpr const wchar_t* wideName = L"x\u00e9\u4e2d\U0001F600.txt";
inline const std::string narrowName = "x\u00e9\u4e2d\U0001F600.txt";

// A path whose first 4095 bytes name the file "kept".
inline std::wstring tooLongPath()
{
    return L"." + std::wstring(4090, L'/') + L"kept-and-more";
}

// Everything here runs in a folder of its own and with UTF-8.
class WithFiles : public testing::Test
{
protected:
    const ScopedLocale locale_{"C.UTF-8"};
    const ScratchFolder folder_;
};

} // namespace kest::test
