#include "kest/crt/strings.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <gtest/gtest.h>
#include <ostream>
#include <stdexcept>
#include <string>

namespace
{

struct Unsupported
{
    const char* name;
    void (*call)();
};

// The name stands for the whole where GoogleTest shows a parameter.
void PrintTo(const Unsupported& member, std::ostream* out)
{
    *out << member.name;
}

const Unsupported members[] = {
    {"_mbsdec", [] { _mbsdec(nullptr, nullptr); }},
    {"_ismbclower", [] { _ismbclower('a'); }},
    {"_ismbcupper", [] { _ismbcupper('a'); }},
    {"_ismbcdigit", [] { _ismbcdigit('1'); }},
    {"_mbctolower", [] { _mbctolower('a'); }},
    {"_mbctoupper", [] { _mbctoupper('a'); }},
    {"_mbslwr", [] { _mbslwr(nullptr); }},
    {"_mbsupr", [] { _mbsupr(nullptr); }},
    {"_mbsncmp", [] { _mbsncmp(nullptr, nullptr, 0); }},
    {"_mbsspn", [] { _mbsspn(nullptr, nullptr); }},
    {"_mbscspn", [] { _mbscspn(nullptr, nullptr); }},
    {"_mbsrev", [] { _mbsrev(nullptr); }},
    {"_wcsncoll", [] { _wcsncoll(L"a", L"a", 0); }},
    {"_wcsnicoll", [] { _wcsnicoll(L"a", L"a", 0); }},
};

class UnsupportedFunction : public testing::TestWithParam<Unsupported>
{
};

TEST_P(UnsupportedFunction, EndsTheProcess)
{
    EXPECT_EXIT(GetParam().call(), testing::KilledBySignal(SIGABRT), "");
}

TEST_P(UnsupportedFunction, EndsTheProcessInsideACatchBlockToo)
{
    const auto callWhileHandling = []
    {
        try
        {
            throw std::runtime_error("being handled");
        }
        catch (const std::exception&)
        {
            try
            {
                GetParam().call();
            }
            catch (...)
            {
                std::_Exit(1);
            }
        }
    };
    EXPECT_EXIT(callWhileHandling(), testing::KilledBySignal(SIGABRT), "");
}

TEST_P(UnsupportedFunction, EndsTheProcessThroughTheTerminateHandler)
{
    const auto callWithHandler = []
    {
        std::set_terminate([] { std::_Exit(42); });
        GetParam().call();
    };
    EXPECT_EXIT(callWithHandler(), testing::ExitedWithCode(42), "");
}

INSTANTIATE_TEST_SUITE_P(All, UnsupportedFunction, testing::ValuesIn(members),
                         [](const testing::TestParamInfo<Unsupported>& info)
                         { return std::string(info.param.name).substr(1); });

} // namespace
