#include "kest/crt/strings.h"
#include "kest/kernel/locale.h"
#include "kest/user_interface.h"
#include "services/fixed_results.h"

#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>

namespace
{

using namespace kest::test;

std::vector<FixedResultTopic> allTopics()
{
    std::vector<FixedResultTopic> topics = userInterfaceTopics();
    for (FixedResultTopic& topic : systemTopics())
    {
        topics.push_back(std::move(topic));
    }
    return topics;
}

class FixedResults : public testing::TestWithParam<FixedResultTopic>
{
};

TEST_P(FixedResults, StayTheSameAndChangeNothing)
{
    for (const FixedResult& row : GetParam().rows)
    {
        for (const Arguments kind : {Arguments::plausible, Arguments::null, Arguments::allBitsSet})
        {
            SCOPED_TRACE(row.name);
            FixedResultCall call(kind);
            row.call(call);
            call.expectNothingChanged();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, FixedResults, testing::ValuesIn(allTopics()),
                         [](const auto& topic) { return topic.param.name; });

// ---- The tables are whole ----------------------------------------------------------------------------------------

// "KestUser32::GetFocus" for a type-encoded symbol; a plain one is its own name.
std::string nameOf(const std::string& symbol)
{
    const std::unique_ptr<char, decltype(&std::free)> demangled(
        abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, nullptr), std::free);
    const std::string name = demangled ? demangled.get() : symbol;
    return name.substr(0, name.find('('));
}

// The exports whose kind is "fixed result".
std::multiset<std::string> listedFixedResults()
{
    std::ifstream table(KEST_EXPORTS_TABLE);
    if (!table)
    {
        throw std::runtime_error("cannot read " KEST_EXPORTS_TABLE);
    }
    std::multiset<std::string> names;
    for (std::string line; std::getline(table, line);)
    {
        std::istringstream cells(line);
        std::string symbol, symbolOnArm, secondNameOf, header, kind;
        std::getline(cells, symbol, '\t');
        std::getline(cells, symbolOnArm, '\t');
        std::getline(cells, secondNameOf, '\t');
        std::getline(cells, header, '\t');
        std::getline(cells, kind, '\t');
        if (kind == "fixed result" && secondNameOf == "-")
        {
            names.insert(nameOf(symbol));
        }
    }
    return names;
}

TEST(FixedResultTables, HoldEachFixedResultOnce)
{
    std::multiset<std::string> called;
    for (const FixedResultTopic& topic : allTopics())
    {
        for (const FixedResult& row : topic.rows)
        {
            called.insert(row.name);
        }
    }
    EXPECT_EQ(called, listedFixedResults());
}

// ---- Beside the tables -------------------------------------------------------------------------------------------

TEST(LeadBytes, AreNone)
{
    for (int byte = 0; byte <= 255; ++byte)
    {
        EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(byte)), 0) << byte;
        EXPECT_EQ(isleadbyte(byte), 0) << byte;
    }
    EXPECT_EQ(isleadbyte(-1), 0);
}

// Both symbols of a function are one function.
TEST(FixedResultNames, LeadToOneFunction)
{
    const struct
    {
        const char *plain, *encoded;
    } rows[] = {
        {"SelectObject", "_Z12SelectObjectP5HDC__Pv"},
        {"IsDBCSLeadByte", "_Z14IsDBCSLeadByteh"},
    };
    for (const auto& row : rows)
    {
        void* const plain = dlsym(RTLD_DEFAULT, row.plain);
        EXPECT_NE(plain, nullptr) << row.plain;
        EXPECT_EQ(plain, dlsym(RTLD_DEFAULT, row.encoded)) << row.encoded;
    }
}

} // namespace
