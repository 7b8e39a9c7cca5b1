// Fixed results of images, resources, messages and the clipboard. The pointers among the arguments lead nowhere: a write
// through one of them would end the test.
#include "harness/hand_laid_host.h"
#include "kest/kernel/strings.h"
#include "kest/user_interface.h"

#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using namespace kest::test;

constexpr int untouchedError = 77;

struct FixedResult
{
    std::string name;
    std::function<Outcome()> call;
    Word result;
};

template <class Result, class... Parameters>
FixedResult fixedResult(const char* name, Result (*function)(Parameters...), Word result)
{
    return {name, [function] { return callWithDistinctArguments<Result, Parameters...>(function); }, result};
}

std::vector<FixedResult> fixedResults()
{
    return {
        fixedResult("FindResourceW", FindResourceW, 0),
        fixedResult("LockResource", LockResource, toWord(distinctValue<HGLOBAL>(0))),
        fixedResult("LoadIconW", LoadIconW, 0),
        fixedResult("CreateCompatibleDC", CreateCompatibleDC, 0),
        fixedResult("CreateBitmap", CreateBitmap, 0),
        fixedResult("CreateDIBSection", CreateDIBSection, 0),
        fixedResult("BitBlt", BitBlt, 1),
        fixedResult("CreatePalette", CreatePalette, 0),
        fixedResult("SelectPalette", SelectPalette, toWord(distinctValue<HPALETTE>(1))),
        fixedResult("RealizePalette", RealizePalette, 0),
        fixedResult("GetForegroundWindow", GetForegroundWindow, 0),
        fixedResult("PeekMessageW", PeekMessageW, 0),
        fixedResult("TranslateMessage", TranslateMessage, 1),
        fixedResult("DispatchMessageW", DispatchMessageW, 0),
        fixedResult("OpenClipboard", OpenClipboard, 0),
        fixedResult("CloseClipboard", CloseClipboard, 0),
        fixedResult("GetClipboardData", GetClipboardData, 0),
        fixedResult("FormatMessageW", FormatMessageW, 0),
    };
}

TEST(FixedImagesAndMessages, AnswerTheSameWhateverTheirArguments)
{
    for (const FixedResult& row : fixedResults())
    {
        SCOPED_TRACE(row.name);
        const HandLaidHost host;
        errno = untouchedError;
        EXPECT_EQ(row.call().result, row.result);
        EXPECT_EQ(errno, untouchedError);
        EXPECT_EQ(host.getterCalls(), 0);
    }
}

TEST(FixedImagesAndMessages, HandNullBack)
{
    EXPECT_EQ(LockResource(nullptr), nullptr);
    EXPECT_EQ(SelectPalette(nullptr, nullptr, 1), nullptr);
    EXPECT_EQ(TranslateMessage(nullptr), 1);
    EXPECT_EQ(BitBlt(nullptr, 0, 0, 0, 0, nullptr, 0, 0, SRCCOPY), 1);
}

} // namespace
