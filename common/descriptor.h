// File descriptors that close themselves, and writing to them.
#pragma once

#include <string_view>

namespace kest::common
{

// A descriptor, closed with the object.
class Descriptor
{
public:
    // Takes what open() answers.
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool valid() const { return number_ >= 0; }
    int number() const { return number_; }

    // False, with errno set, for what the system could not report earlier.
    bool close();

private:
    int number_;
};

// Writes all of the content, however often that is interrupted. False, with errno set, when it cannot be written.
bool writeAll(int descriptor, std::string_view content);

} // namespace kest::common
