#include "kest/crt/formatted_output.h"
#include "kest/user_interface/strings.h"

#include "crt/formatting_calls.h"
#include "harness/in_child.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"

#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{

using kest::test::encodedSwprintf;
using kest::test::fourArguments;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::scwprintf;
using kest::test::SentinelBuffer;
using kest::test::snwprintfS;
using kest::test::statusInChild;
using kest::test::swprintfS;
using kest::test::unlimitedWriters;
using namespace std::string_literals;

int printList(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvwprintf(format, arguments);
    va_end(arguments);
    return result;
}

int printListTo(FILE* stream, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvfwprintf(stream, format, arguments);
    va_end(arguments);
    return result;
}

struct Close
{
    void operator()(FILE* stream) const { std::fclose(stream); }
};

using Buffer = SentinelBuffer<wchar_t, 80>;

// What the format makes of the arguments, by the shortest way to the C library.
template <class... Arguments>
std::wstring formatted(const wchar_t* format, Arguments... arguments)
{
    Buffer buffer;
    const int length = _tarswprintf(buffer.data(), Buffer::size(), format, arguments...);
    if (length < 0)
    {
        return L"failed";
    }
    const std::wstring text(buffer.data(), static_cast<std::size_t>(length));
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(text + L'\0'));
    return text;
}

// Standard output keeps the width that it was first used with: wide text goes to it only after this, and only in a
// process of its own.
void reopenStandardOutput(const char* file)
{
    if (std::freopen(file, "w", stdout) == nullptr)
    {
        std::perror(file);
        _exit(1);
    }
}

// Runs expectations in a process of its own with standard output going to a file; returns what stands there.
std::string printedBy(const std::function<void()>& body)
{
    const ScratchFolder folder;
    const int status = statusInChild(
        [&body]
        {
            reopenStandardOutput("printed");
            body();
        });
    EXPECT_EQ(status, 0);
    return folder.read("printed");
}

template <class Action>
void expectNullRefusal(Action action)
{
    try
    {
        action();
        ADD_FAILURE() << "nothing thrown";
    }
    catch (const std::logic_error& error)
    {
        EXPECT_STREQ(error.what(), "basic_string::_M_construct null not valid");
    }
}

// ---- Wide formats ------------------------------------------------------------------------------------------------

TEST(WideFormats, ReadBareStringConversionsAsWide)
{
    EXPECT_EQ(formatted(L"%s", L"ab"), L"ab");
    EXPECT_EQ(formatted(L"%s|%ls", L"ab", L"cd"), L"ab|cd");
    EXPECT_EQ(formatted(L"<%s%s>%d", L"ab", L"cd", 7), L"<abcd>7");
    EXPECT_EQ(formatted(L"%%%s", L"ab"), L"%ab");
    EXPECT_EQ(formatted(L"%d%s", 1, L"\u00e9\U0001F600"), L"1\u00e9\U0001F600");
    EXPECT_EQ(formatted(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
}

TEST(WideFormats, LeaveEverythingElseToTheCLibrary)
{
    EXPECT_EQ(formatted(L""), L"");
    EXPECT_EQ(formatted(L"plain s"), L"plain s");
    EXPECT_EQ(formatted(L"%10s|", "ab"), L"        ab|");
    EXPECT_EQ(formatted(L"%-10s|", "ab"), L"ab        |");
    EXPECT_EQ(formatted(L"%.*s|", 1, "ab"), L"a|");
    EXPECT_EQ(formatted(L"%5s|", "ab"), L"   ab|");
    EXPECT_EQ(formatted(L"%1$s|", "ab"), L"ab|");
    EXPECT_EQ(formatted(L"%hs|", "ab"), L"ab|");
    EXPECT_EQ(formatted(L"%10ls|", L"ab"), L"        ab|");
    EXPECT_EQ(formatted(L"%S|", L"ab"), L"ab|");
    EXPECT_EQ(formatted(L"%c%C%lc|", 'a', L'b', L'c'), L"abc|");
    EXPECT_EQ(formatted(L"%d%% %x %5.2f", 42, 255, 1.5), L"42% ff  1.50");
    EXPECT_EQ(formatted(L"%ws|"), L"%ws|");
    EXPECT_EQ(formatted(L"%I64d|", 5), std::wstring(63, L' ') + L"5|");
    EXPECT_EQ(formatted(L"abc%"), L"failed");
}

TEST(WideFormats, TurnPercentPercentSIntoPercentLs)
{
    EXPECT_EQ(formatted(L"%%s"), L"%ls");
    EXPECT_EQ(formatted(L"%%s %s %%s", L"ab"), L"%ls ab %ls");
}

// Formats of every length around the room that short ones are kept in, and one so long that replacing must not
// start over each time.
TEST(WideFormats, AreReplacedWhateverTheirLength)
{
    for (const std::size_t count : {1U, 84U, 85U, 86U, 87U, 127U, 128U, 129U, 255U, 256U, 257U, 60000U})
    {
        std::wstring format;
        std::wstring expected;
        for (std::size_t index = 0; index < count; ++index)
        {
            format += L"%%s";
            expected += L"%ls";
        }
        format += L"%s";
        expected += L"end";
        std::vector<wchar_t> buffer(expected.size() + 2, L'#');
        EXPECT_EQ(encodedSwprintf(buffer.data(), format.c_str(), L"end"), static_cast<int>(expected.size()));
        EXPECT_EQ(std::wstring(buffer.data(), buffer.size()), expected + L"\0#"s) << count;
    }
}

TEST(WideFormats, AreNotChangedThemselves)
{
    wchar_t format[] = L"%s %%s";
    Buffer buffer;
    EXPECT_EQ(encodedSwprintf(buffer.data(), format, L"ab"), 6);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"ab %ls\0"s));
    EXPECT_STREQ(format, L"%s %%s");
}

TEST(WideFormats, EndTheProcessOverPercentN)
{
    int written = 0;
    Buffer buffer;
    const std::wstring longFormat = std::wstring(1000, L'x') + L"%n";
    std::vector<wchar_t> large(2000);
    const auto aborted = testing::KilledBySignal(SIGABRT);
    EXPECT_EXIT(fourArguments(buffer.data(), 8, L"ab%n", &written), aborted, "");
    EXPECT_EXIT(_tarswprintf(buffer.data(), 8, L"ab%n", &written), aborted, "");
    EXPECT_EXIT(_tarswprintf(large.data(), 2000, longFormat.c_str(), &written), aborted, "");
    EXPECT_EXIT(scwprintf(L"ab%n", &written), aborted, "");
    EXPECT_EXIT(swprintfS(buffer.data(), 8, L"ab%n", &written), aborted, "");
    EXPECT_EXIT(snwprintfS(buffer.data(), 8, 8, L"ab%n", &written), aborted, "");
    EXPECT_EXIT((reopenStandardOutput("/dev/null"), printList(L"ab%n", &written)), aborted, "");
    EXPECT_EXIT((reopenStandardOutput("/dev/null"), _tarwprintf(L"ab%n", &written)), aborted, "");
    // A stream that nothing was printed to yet: it would refuse wide text after narrow text.
    const std::unique_ptr<FILE, Close> stream(std::fopen("/dev/null", "w"));
    ASSERT_NE(stream, nullptr);
    EXPECT_EXIT(printListTo(stream.get(), L"ab%n", &written), aborted, "");
    EXPECT_EXIT(_tarfwprintf(stream.get(), L"ab%n", &written), aborted, "");
    for (const auto& [name, write] : unlimitedWriters)
    {
        EXPECT_EXIT(write(buffer.data(), L"ab%n", &written), aborted, "") << name;
    }
}

TEST(WideFormats, MustNotBeNull)
{
    Buffer buffer;
    const wchar_t* const null = nullptr;
    expectNullRefusal([&] { fourArguments(buffer.data(), 8, null); });
    expectNullRefusal([&] { _tarswprintf(buffer.data(), 8, null); });
    expectNullRefusal([&] { scwprintf(null); });
    expectNullRefusal([&] { swprintfS(buffer.data(), 8, null); });
    expectNullRefusal([&] { snwprintfS(buffer.data(), 8, 8, null); });
    expectNullRefusal([&] { printListTo(stderr, null); });
    expectNullRefusal([&] { _tarfwprintf(stderr, null); });
    for (const auto& [name, write] : unlimitedWriters)
    {
        SCOPED_TRACE(name);
        expectNullRefusal([&, function = write] { function(buffer.data(), null); });
    }
    EXPECT_EQ(buffer.contents(), Buffer::untouched());

    const std::string printed = printedBy(
        []
        {
            expectNullRefusal([] { printList(nullptr); });
            expectNullRefusal([] { _tarwprintf(nullptr); });
        });
    EXPECT_EQ(printed, "");
}

// ---- Streams -----------------------------------------------------------------------------------------------------

TEST(WideStreams, PrintToStandardOutput)
{
    const std::string printed = printedBy(
        []
        {
            const ScopedLocale locale("C.UTF-8");
            EXPECT_EQ(printList(L"<%s|%d>", L"\u00e9", 7), 5);
            EXPECT_EQ(_tarwprintf(L"[%s|%hs]", L"wide", "narrow"), 13);
        });
    EXPECT_EQ(printed, "<\u00e9|7>[wide|narrow]");
}

TEST(WideStreams, PrintToAStream)
{
    const ScopedLocale locale("C.UTF-8");
    const ScratchFolder folder;
    FILE* const stream = std::fopen("printed", "w");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(printListTo(stream, L"<%s|%d>", L"\u00e9", 7), 5);
    EXPECT_EQ(_tarfwprintf(stream, L"[%s|%hs]", L"wide", "narrow"), 13);
    EXPECT_EQ(std::fclose(stream), 0);
    EXPECT_EQ(folder.read("printed"), "<\u00e9|7>[wide|narrow]");
}

TEST(WideStreams, AnswerThatAStreamCannotBeWrittenTo)
{
    const std::unique_ptr<FILE, Close> stream(std::fopen("/dev/null", "r"));
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(printListTo(stream.get(), L"%s", L"text"), -1);
    EXPECT_EQ(_tarfwprintf(stream.get(), L"%s", L"text"), -1);
    EXPECT_EQ(statusInChild(
                  []
                  {
                      ASSERT_NE(std::freopen("/dev/null", "r", stdout), nullptr);
                      EXPECT_EQ(printList(L"%s", L"text"), -1);
                      EXPECT_EQ(_tarwprintf(L"%s", L"text"), -1);
                  }),
              0);
}

TEST(WideStreams, AnswerThatAStreamIsNarrow)
{
    const std::unique_ptr<FILE, Close> stream(std::fopen("/dev/null", "w"));
    ASSERT_NE(stream, nullptr);
    ASSERT_GE(std::fputs("narrow", stream.get()), 0);
    EXPECT_EQ(printListTo(stream.get(), L"%s", L"text"), -1);
    EXPECT_EQ(_tarfwprintf(stream.get(), L"%s", L"text"), -1);
    const std::string printed = printedBy(
        []
        {
            ASSERT_GE(std::fputs("narrow", stdout), 0);
            EXPECT_EQ(printList(L"%s", L"text"), -1);
            EXPECT_EQ(_tarwprintf(L"%s", L"text"), -1);
        });
    EXPECT_EQ(printed, "narrow");
}

} // namespace
