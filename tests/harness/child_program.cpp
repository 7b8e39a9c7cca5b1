#include "harness/child_program.h"

namespace kest::test
{

std::string emulatorPrefix()
{
    const std::string emulator = KEST_TEST_EMULATOR;
    return emulator.empty() ? emulator : emulator + " ";
}

} // namespace kest::test
