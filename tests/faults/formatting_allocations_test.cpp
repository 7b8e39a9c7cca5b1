// Formatted output without memory: whole texts or none.
#include "faults/allocation_faults.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/companions/crt.h"
#include "kest/companions/strsafe.h"
#include "kest/crt/formatted_output.h"
#include "kest/user_interface/strings.h"

#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using namespace kest::test;

using WideBuffer = SentinelBuffer<wchar_t, 9000>;
using NarrowBuffer = SentinelBuffer<char, 90000>;

// A precision of this size makes the C library ask for a block.
constexpr const char* longNumber = "%.80000f";
constexpr long digitCount = 80002;

// Hands its arguments to a function as a list.
template <class Function>
auto listed(Function function, ...)
{
    std::va_list arguments;
    va_start(arguments, function);
    const auto result = function(arguments);
    va_end(arguments);
    return result;
}

class FormattingAllocations : public testing::Test
{
protected:
    ScratchFolder folder;
    WideBuffer wide;
    NarrowBuffer narrow;
    std::FILE* stream = nullptr;

    // Longer than what formats and texts have room for without memory.
    const std::wstring text = std::wstring(5000, L't');
    const std::wstring format = std::wstring(500, L'f') + L"%s";
    const std::wstring whole = std::wstring(500, L'f') + text;

    void clear()
    {
        wide = {};
        narrow = {};
    }
    void expectWide(const std::wstring& written) { EXPECT_TRUE(wide.contents() == WideBuffer::startingWith(written)); }

    // A row that writes into the wide buffer: the whole text, or nothing.
    AllocatingCall writing(const char* name, std::function<int()> call)
    {
        return {.name = name,
                .call = [call] { return static_cast<long>(call()); },
                .success = 5500,
                .failure = -1,
                .check = [this](bool succeeded) { expectWide(succeeded ? whole + L'\0' : std::wstring()); },
                .prepare = [this] { clear(); }};
    }

    // A row that writes to the stream.
    AllocatingCall printing(const char* name, std::function<int()> call)
    {
        return {.name = name,
                .call = [call] { return static_cast<long>(call()); },
                .success = 5500,
                .failure = -1,
                .prepare =
                    [this]
                {
                    stream = std::fopen("out", "w");
                    // The stream's own blocks, which it asks for only once.
                    std::fwide(stream, 1);
                    std::fputwc(L'-', stream);
                },
                .release =
                    [this]
                {
                    EXPECT_EQ(std::fclose(stream), 0);
                    stream = nullptr;
                }};
    }

    // While this lives, the stream is what the program prints to.
    class Printing
    {
    public:
        explicit Printing(std::FILE* stream) : output_(stdout) { stdout = stream; }
        ~Printing() { stdout = output_; }
        Printing(const Printing&) = delete;
        Printing& operator=(const Printing&) = delete;

    private:
        std::FILE* output_;
    };
};

TEST_F(FormattingAllocations, WriteWholeTextsOrNone)
{
    wchar_t* const out = wide.data();
    const wchar_t* const pattern = format.c_str();
    const wchar_t* const argument = text.c_str();
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        writing("wsprintfW", [=] { return wsprintfW(out, pattern, argument); }),
        writing("swprintf", [=] { return swprintf(out, pattern, argument); }),
        writing("_vswprintf",
                [=] { return listed([=](std::va_list list) { return _vswprintf(out, pattern, list); }, argument); }),
        writing("_tarvswprintf, unbounded",
                [=] { return listed([=](std::va_list list) { return _tarvswprintf(out, pattern, list); }, argument); }),
        writing("_tarvswprintf",
                [=] {
                    return listed([=](std::va_list list) { return _tarvswprintf(out, 6000, pattern, list); }, argument);
                }),
        writing("_tarswprintf", [=] { return _tarswprintf(out, 6000, pattern, argument); }),
        writing("vswprintf_s", [=]
                { return listed([=](std::va_list list) { return vswprintf_s(out, 6000, pattern, list); }, argument); }),
        writing("_vsnwprintf_s",
                [=] {
                    return listed([=](std::va_list list) { return _vsnwprintf_s(out, 6000, 6000, pattern, list); },
                                  argument);
                }),
    });
}

// The first block asked for is the largest; a text that needs less of it is written all the same.
TEST_F(FormattingAllocations, MakeDoWithLessScratch)
{
    const FailingAllocation largest(1, FailingAllocation::Extent::thisOne);
    EXPECT_EQ(wsprintfW(wide.data(), L"%s", text.c_str()), 5000);
    EXPECT_TRUE(largest.reached());
    expectWide(text + L'\0');
}

TEST_F(FormattingAllocations, CountNothing)
{
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "_vscwprintf",
         .call =
             [this]
         {
             const auto count = [this](std::va_list list) { return _vscwprintf(format.c_str(), list); };
             return static_cast<long>(listed(count, text.c_str()));
         },
         .success = 5501,
         .failure = -1},
        {.name = "_vscprintf",
         .call = []
         { return static_cast<long>(listed([](std::va_list list) { return _vscprintf(longNumber, list); }, 7.0)); },
         .success = digitCount,
         .failure = -1},
    });
}

TEST_F(FormattingAllocations, PrintNothing)
{
    const wchar_t* const pattern = format.c_str();
    const wchar_t* const argument = text.c_str();
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        printing("_tarfwprintf", [=, this] { return _tarfwprintf(stream, pattern, argument); }),
        printing("_tarvfwprintf",
                 [=, this] {
                     return listed([=, this](std::va_list list) { return _tarvfwprintf(stream, pattern, list); },
                                   argument);
                 }),
        printing("_tarwprintf",
                 [=, this]
                 {
                     const Printing there(stream);
                     return _tarwprintf(pattern, argument);
                 }),
        printing("_tarvwprintf",
                 [=, this]
                 {
                     const Printing there(stream);
                     return listed([=](std::va_list list) { return _tarvwprintf(pattern, list); }, argument);
                 }),
    });
}

TEST_F(FormattingAllocations, WriteNoLongNumbers)
{
    char* const out = narrow.data();
    const std::string digits = "7." + std::string(digitCount - 2, '0');
    const auto row = [this](const char* name, long success, std::function<long()> call, std::function<void(bool)> check)
    {
        return AllocatingCall{.name = name,
                              .call = std::move(call),
                              .success = success,
                              .failure = -1,
                              .check = std::move(check),
                              .prepare = [this] { clear(); }};
    };
    const auto wholeOrFailed = [&](bool succeeded) { EXPECT_TRUE(!succeeded || out == digits); };
    const auto wholeOrEmpty = [&](bool succeeded) { EXPECT_TRUE(out == (succeeded ? digits : std::string())); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row(
            "vsprintf_s", digitCount,
            [=] { return listed([=](std::va_list list) { return vsprintf_s(out, 85000, longNumber, list); }, 7.0); },
            wholeOrFailed),
        row(
            "sprintf_s", digitCount, [=] { return sprintf_s(out, 85000, longNumber, 7.0); }, wholeOrEmpty),
        row(
            "_snprintf", digitCount, [=] { return _snprintf(out, 85000, longNumber, 7.0); }, wholeOrFailed),
        row(
            "_vsnprintf", digitCount,
            [=]
            { return listed([=](std::va_list list) { return _vsnprintf(out, digitCount, longNumber, list); }, 7.0); },
            // Without a terminator; cut texts are not half written.
            [&](bool succeeded) {
                EXPECT_TRUE(narrow.contents() ==
                            (succeeded ? NarrowBuffer::startingWith(digits) : NarrowBuffer::untouched()));
            }),
    });
}

// ---- Companions that cut -------------------------------------------------------------------------------------------

TEST_F(FormattingAllocations, CutWholeTextsOrNone)
{
    wchar_t* const out = wide.data();
    const auto row = [this](const char* name, long success, std::wstring result, std::function<long()> call)
    {
        return AllocatingCall{.name = name,
                              .call = std::move(call),
                              .success = success,
                              .failure = -1,
                              .check = [this, result](bool succeeded)
                              { expectWide((succeeded ? result : std::wstring()) + L'\0'); },
                              .prepare = [this] { clear(); }};
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row("swprintf_s", 5500, whole, [=, this] { return swprintf_s(out, 6000, format.c_str(), text.c_str()); }),
        row("_snwprintf_s", 5500, whole,
            [=, this] { return _snwprintf_s(out, 6000, _TRUNCATE, format.c_str(), text.c_str()); }),
        // That it was cut is no success either: what it leaves tells whether it was.
        row("_snwprintf_s, cut", 1, whole.substr(0, 5200),
            [=, this]
            { return _snwprintf_s(out, 6000, 5200, format.c_str(), text.c_str()) == -1 && *out != L'\0' ? 1L : -1L; }),
    });
}

TEST_F(FormattingAllocations, PrintEmptyTextsIntoBuffers)
{
    wchar_t* const wideOut = wide.data();
    char* const narrowOut = narrow.data();
    const std::string digits = "7." + std::string(digitCount - 2, '0');
    const auto row = [this](const char* name, std::function<HRESULT()> call, std::function<void(bool)> check)
    {
        return AllocatingCall{.name = name,
                              .call = [call] { return static_cast<long>(call()); },
                              .success = S_OK,
                              .failure = STRSAFE_E_INVALID_PARAMETER,
                              .check = std::move(check),
                              .prepare = [this] { clear(); }};
    };
    const auto wideText = [this](bool succeeded) { expectWide((succeeded ? whole : std::wstring()) + L'\0'); };
    const auto narrowText = [&](bool succeeded) { EXPECT_TRUE(narrowOut == (succeeded ? digits : std::string())); };
    const wchar_t* const pattern = format.c_str();
    const wchar_t* const argument = text.c_str();
    constexpr std::size_t bytes = 6000 * sizeof(wchar_t);
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row(
            "StringCchPrintfW", [=] { return StringCchPrintfW(wideOut, 6000, pattern, argument); }, wideText),
        row(
            "StringCbPrintfW", [=] { return StringCbPrintfW(wideOut, bytes, pattern, argument); }, wideText),
        row(
            "StringCchPrintfExW",
            [=] { return StringCchPrintfExW(wideOut, 6000, nullptr, nullptr, 0, pattern, argument); }, wideText),
        row(
            "StringCbPrintfExW",
            [=] { return StringCbPrintfExW(wideOut, bytes, nullptr, nullptr, 0, pattern, argument); }, wideText),
        row(
            "StringCchVPrintfW",
            [=] {
                return listed([=](std::va_list list) { return StringCchVPrintfW(wideOut, 6000, pattern, list); },
                              argument);
            },
            wideText),
        row(
            "StringCbVPrintfW",
            [=] {
                return listed([=](std::va_list list) { return StringCbVPrintfW(wideOut, bytes, pattern, list); },
                              argument);
            },
            wideText),
        row(
            "StringCchVPrintfExW",
            [=]
            {
                return listed([=](std::va_list list)
                              { return StringCchVPrintfExW(wideOut, 6000, nullptr, nullptr, 0, pattern, list); },
                              argument);
            },
            wideText),
        row(
            "StringCbVPrintfExW",
            [=]
            {
                return listed([=](std::va_list list)
                              { return StringCbVPrintfExW(wideOut, bytes, nullptr, nullptr, 0, pattern, list); },
                              argument);
            },
            wideText),
        row(
            "StringCchPrintfA", [=] { return StringCchPrintfA(narrowOut, 85000, longNumber, 7.0); }, narrowText),
        row(
            "StringCbPrintfA", [=] { return StringCbPrintfA(narrowOut, 85000, longNumber, 7.0); }, narrowText),
        row(
            "StringCchPrintfExA",
            [=] { return StringCchPrintfExA(narrowOut, 85000, nullptr, nullptr, 0, longNumber, 7.0); }, narrowText),
        row(
            "StringCbPrintfExA",
            [=] { return StringCbPrintfExA(narrowOut, 85000, nullptr, nullptr, 0, longNumber, 7.0); }, narrowText),
        row(
            "StringCchVPrintfA",
            [=] {
                return listed([=](std::va_list list) { return StringCchVPrintfA(narrowOut, 85000, longNumber, list); },
                              7.0);
            },
            narrowText),
        row(
            "StringCbVPrintfA",
            [=] {
                return listed([=](std::va_list list) { return StringCbVPrintfA(narrowOut, 85000, longNumber, list); },
                              7.0);
            },
            narrowText),
        row(
            "StringCchVPrintfExA",
            [=]
            {
                return listed([=](std::va_list list)
                              { return StringCchVPrintfExA(narrowOut, 85000, nullptr, nullptr, 0, longNumber, list); },
                              7.0);
            },
            narrowText),
        row(
            "StringCbVPrintfExA",
            [=]
            {
                return listed([=](std::va_list list)
                              { return StringCbVPrintfExA(narrowOut, 85000, nullptr, nullptr, 0, longNumber, list); },
                              7.0);
            },
            narrowText),
    });
}

} // namespace
