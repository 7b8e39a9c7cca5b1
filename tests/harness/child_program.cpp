#include "harness/child_program.h"

#include <gtest/gtest.h>
#include <iostream>

namespace kest::test
{

std::string emulatorPrefix()
{
    const std::string emulator = KEST_TEST_EMULATOR;
    return emulator.empty() ? emulator : emulator + " ";
}

bool limitedByEmulator(const std::string& limit)
{
    if (emulatorPrefix().empty())
    {
        return false;
    }
    std::cout << "[ EMULATOR ] " << limit << '\n';
    testing::Test::RecordProperty("emulator_limit", limit);
    return true;
}

} // namespace kest::test
