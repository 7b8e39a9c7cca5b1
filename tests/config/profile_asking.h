// Asking about profile files in brief.
#pragma once

#include "config/profile_model.h"
#include "harness/scratch_folder.h"
#include "kest/kernel/profiles.h"

#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace kest::test
{

inline void PrintTo(const ProfileAnswer& answer, std::ostream* out)
{
    *out << answer.count << " " << testing::PrintToString(answer.buffer) << (answer.endsProcess ? " process end" : "");
}

// A name or default; none is a null pointer.
using Text = std::optional<std::string>;

inline constexpr auto none = std::nullopt;

inline char* writable(Text& text)
{
    return text ? text->data() : nullptr;
}

// Asks with a buffer of exactly `size` bytes, which are compared whole.
inline ProfileAnswer askProfile(Text path, Text section, Text key, Text defaultValue, std::size_t size = 64)
{
    std::string buffer(size, '\x5A');
    const int count = read_profile_string(writable(section), writable(key), writable(defaultValue), buffer.data(),
                                          static_cast<int>(size), writable(path));
    return {count, buffer};
}

// What a call leaves: the text, zeros behind it.
inline ProfileAnswer answered(int count, std::string text, std::size_t size = 64)
{
    text.resize(size, '\0');
    return {count, text};
}

// A file for a test's duration, asked about in brief.
class Profile
{
public:
    explicit Profile(std::string_view content) : path_(folder_.write("file.ini", content)) {}

    ProfileAnswer ask(Text section, Text key, Text defaultValue = "default", std::size_t size = 64) const
    {
        return askProfile(path_, std::move(section), std::move(key), std::move(defaultValue), size);
    }
    const std::string& path() const { return path_; }
    const ScratchFolder& folder() const { return folder_; }

private:
    ScratchFolder folder_;
    std::string path_;
};

inline const ProfileAnswer byDefault = answered(7, "default");

} // namespace kest::test
