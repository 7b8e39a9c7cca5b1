// A part of a test in a process of its own: for what would change the whole test program.
#pragma once

#include <chrono>
#include <functional>

namespace kest::test
{

// Runs `body` in a forked child and returns the child's wait status: 0 when the body returned and none of the
// expectations in it failed.
int statusInChild(const std::function<void()>& body);

// Runs `body` in so many forked children at once, each with its number from 0 on, and returns how many of them ended
// with another status than 0.
int failuresInChildren(int count, const std::function<void(int)>& body);

// Runs `body` in a forked child, which is killed after a while if it has not ended by then.
void killedInChild(const std::function<void()>& body, std::chrono::microseconds lifetime);

} // namespace kest::test
