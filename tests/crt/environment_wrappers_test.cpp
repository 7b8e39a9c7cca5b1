#include "kest/crt/file_wrappers.h"

#include "crt/wide_wrapper_fixture.h"
#include "harness/locale_requests.h"
#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"

#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::LocaleRequests;
using kest::test::OwnedText;
using kest::test::ScopedLocale;
using kest::test::ScopedVariable;

// ---- The environment ---------------------------------------------------------------------------------------------

class Environment : public testing::Test
{
protected:
    const ScopedLocale locale_{"C.UTF-8"};
};

TEST_F(Environment, HandsOutCopies)
{
    const ScopedVariable variable("KEST_TEST_\u00e9", "v\u00e4lue \U0001F600");
    errno = 77;
    const OwnedText first(_wgetenv(L"KEST_TEST_\u00e9"));
    const OwnedText second(_wgetenv(L"KEST_TEST_\u00e9"));
    EXPECT_EQ(errno, 77);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_STREQ(first.get(), L"v\u00e4lue \U0001F600");
    first.get()[0] = L'x';
    EXPECT_STREQ(second.get(), L"v\u00e4lue \U0001F600");
    EXPECT_STREQ(std::getenv("KEST_TEST_\u00e9"), "v\u00e4lue \U0001F600");
}

TEST_F(Environment, HandsOutEmptyAndLongValues)
{
    const std::string value(100000, 'x');
    const ScopedVariable longOne("KEST_TEST_LONG", value.c_str());
    const OwnedText copy(_wgetenv(L"KEST_TEST_LONG"));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy.get(), std::wstring(100000, L'x'));
    const ScopedVariable empty("KEST_TEST_EMPTY", "");
    const OwnedText none(_wgetenv(L"KEST_TEST_EMPTY"));
    ASSERT_NE(none, nullptr);
    EXPECT_STREQ(none.get(), L"");
}

TEST_F(Environment, AnswersNullForVariablesThatAreNotSet)
{
    const ScopedVariable variable("KEST_TEST_UNSET", nullptr);
    EXPECT_EQ(_wgetenv(L"KEST_TEST_UNSET"), nullptr);
    EXPECT_EQ(_wgetenv(L""), nullptr);
}

TEST_F(Environment, CutsValuesThatTheLocaleCannotConvert)
{
    const ScopedVariable variable("KEST_TEST_BROKEN", "ab\xff"
                                                      "cd");
    const OwnedText copy(_wgetenv(L"KEST_TEST_BROKEN"));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(), L"ab");
}

TEST_F(Environment, CutsNamesAfter4095Bytes)
{
    const std::string name(4095, 'K');
    const ScopedVariable variable(name, "value");
    const OwnedText copy(_wgetenv(std::wstring(5000, L'K').c_str()));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(), L"value");
}

TEST_F(Environment, CutsNamesWhereTheLocaleCannotEncode)
{
    const ScopedVariable variable("KEST_TEST_CUT", "value");
    const ScopedLocale plain("C");
    const OwnedText copy(_wgetenv(L"KEST_TEST_CUT\u00e9"));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(), L"value");
}

// The texts stay part of the environment: variables that these tests set are theirs alone and stay set.
TEST_F(Environment, TakesVariables)
{
    EXPECT_EQ(_wputenv(L"KEST_TEST_PUT\u00e9=v\u00e4lue \U0001F600"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_PUT\u00e9"), "v\u00e4lue \U0001F600");
    EXPECT_EQ(_wputenv(L"KEST_TEST_SIGNS=a=b=c"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_SIGNS"), "a=b=c");
}

TEST_F(Environment, KeepsItsOwnCopyOfTheText)
{
    std::wstring text = L"KEST_TEST_KEPT=first";
    EXPECT_EQ(_wputenv(text.c_str()), 0);
    static const char* first; // what the environment has let go of stays in sight of the leak checker
    first = std::getenv("KEST_TEST_KEPT") - std::strlen("KEST_TEST_KEPT=");
    text.replace(text.size() - 5, 5, L"other");
    EXPECT_STREQ(std::getenv("KEST_TEST_KEPT"), "first");
    EXPECT_EQ(_wputenv(L"KEST_TEST_KEPT=second"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_KEPT"), "second");
    EXPECT_STREQ(first, "KEST_TEST_KEPT=first");
}

TEST_F(Environment, CutsTextsWhereTheLocaleCannotEncode)
{
    const ScopedLocale plain("C");
    EXPECT_EQ(_wputenv(L"KEST_TEST_PUT_CUT=ab\u00e9cd"), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_PUT_CUT"), "ab");
}

// ---- The locale --------------------------------------------------------------------------------------------------

TEST(WideLocaleNames, SetTheLocale)
{
    const ScopedLocale before("C");
    EXPECT_STREQ(_wsetlocale(LC_ALL, L"C.UTF-8"), "C.UTF-8");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
    EXPECT_STREQ(_wsetlocale(LC_NUMERIC, L"C"), "C");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
    EXPECT_STREQ(_wsetlocale(LC_ALL, L"C"), "C");
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
}

TEST(WideLocaleNames, AnswerNullWhenThereIsNoSuchLocale)
{
    const ScopedLocale before("C.UTF-8");
    EXPECT_EQ(_wsetlocale(LC_ALL, L"no such locale"), nullptr);
    EXPECT_EQ(_wsetlocale(4711, L"C"), nullptr);
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
}

TEST(WideLocaleNames, ArePassedOnWhole)
{
    const ScopedLocale before("C.UTF-8");
    const LocaleRequests requests;
    EXPECT_EQ(_wsetlocale(LC_TIME, (L"\u00e9" + std::wstring(5000, L'x')).c_str()), nullptr);
    EXPECT_EQ(requests.made(), (LocaleRequests::Requests{{LC_TIME, "\u00e9" + std::string(5000, 'x')}}));
}

// ---- Deviations --------------------------------------------------------------------------------------------------

TEST(wputenv, KeepsVariablesWithEmptyValues)
{
    EXPECT_EQ(_wputenv(L"KEST_TEST_PUT_EMPTY="), 0);
    EXPECT_STREQ(std::getenv("KEST_TEST_PUT_EMPTY"), "");
}

TEST(wputenv, RemovesVariablesNamedAlone)
{
    const ScopedVariable variable("KEST_TEST_REMOVED", "value");
    EXPECT_EQ(_wputenv(L"KEST_TEST_REMOVED"), 0);
    EXPECT_EQ(std::getenv("KEST_TEST_REMOVED"), nullptr);
}

TEST(wputenv, CutsTextAt4095Bytes)
{
    EXPECT_EQ(_wputenv((L"KEST_TEST_PUT_LONG=" + std::wstring(5000, L'x')).c_str()), 0);
    EXPECT_EQ(std::getenv("KEST_TEST_PUT_LONG"), std::string(4095 - std::strlen("KEST_TEST_PUT_LONG="), 'x'));
}

TEST(wgetenv, AnswersANewCopy)
{
    const ScopedVariable variable("KEST_TEST_COPY", "value");
    const OwnedText first(_wgetenv(L"KEST_TEST_COPY"));
    const OwnedText second(_wgetenv(L"KEST_TEST_COPY"));
    EXPECT_NE(first, second);
}

TEST(wgetenv, TellsUpperFromLowerCase)
{
    const ScopedVariable variable("KEST_TEST_CASE", "value");
    EXPECT_EQ(_wgetenv(L"kest_test_case"), nullptr);
}

TEST(wsetlocale, AnswersNarrowText)
{
    const ScopedLocale locale("C");
    const char* const name = _wsetlocale(LC_ALL, L"C");
    EXPECT_STREQ(name, "C");
}

TEST(wsetlocale, NeedsAName)
{
    EXPECT_DEATH(_wsetlocale(LC_ALL, nullptr), "");
}

TEST(wsetlocale, KnowsTheSystemsNamesOnly)
{
    EXPECT_EQ(_wsetlocale(LC_ALL, L"English_United States.1252"), nullptr);
}

} // namespace
