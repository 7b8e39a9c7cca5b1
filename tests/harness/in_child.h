// A part of a test in a process of its own: for what would change the whole test program.
#pragma once

#include <functional>

namespace kest::test
{

// Runs `body` in a forked child and returns the child's wait status: 0 when the body returned and none of the
// expectations in it failed.
int statusInChild(const std::function<void()>& body);

} // namespace kest::test
