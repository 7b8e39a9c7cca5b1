// Code pages as the C library's iconv knows them.
#pragma once

#include "kest/base_types.h"

#include <iconv.h>
#include <string>
#include <string_view>

namespace kest::companions
{

// The encoding's name for iconv; of the process's own for the code pages that stand for it.
std::string encodingOf(UINT codePage);

bool isUtf8(std::string_view encoding);

// A conversion of iconv's, closed with the object.
class Conversion
{
public:
    // Throws std::bad_alloc when iconv says that it is memory it lacks.
    Conversion(const std::string& to, const std::string& from);
    ~Conversion();
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    bool known() const;

    // Converts as many bytes of `input` as it can, takes them off and appends the result to `output`: all of them, or
    // up to one that is invalid, incomplete or unknown in the target. Answers 0, or iconv's error.
    int convert(std::string_view& input, std::string& output);

    // Appends what brings a stateful encoding back to its beginning.
    void finish(std::string& output);

private:
    iconv_t handle_;
};

} // namespace kest::companions
