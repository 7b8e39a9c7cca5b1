// Programs of the test suite's own, started as processes.
#pragma once

#include <string>

namespace kest::test
{

// The words that must stand in front of a program built for the target: the emulator where one is in use, else
// nothing. Ends with a space unless empty.
std::string emulatorPrefix();

// Whether the test program itself runs under an emulator. What it cannot do there is then named in the test's output
// and record, with the reason.
bool limitedByEmulator(const std::string& limit);

} // namespace kest::test
