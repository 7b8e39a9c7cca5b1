// A disk without room, as far as this test program is concerned.
#pragma once

namespace kest::test
{

// While one lives, writing to files fails as it does on a full disk.
class FullDisk
{
public:
    FullDisk();
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
};

} // namespace kest::test
