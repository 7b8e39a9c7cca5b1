// The text format in which registries travel between computers: .reg files, version 5.00.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kest::host
{

// A change to one value. Data is as the registry keeps it: text with 4 bytes a character.
struct RegTextValue
{
    std::wstring name; // empty for the default value
    bool removed = false;
    std::uint32_t type = 0;
    std::vector<unsigned char> data;
};

// A key and the changes to its values, or a key that goes with all that is below it.
struct RegTextKey
{
    std::wstring path; // from its root on
    bool removed = false;
    std::size_t line = 0;
    std::vector<RegTextValue> values;
};

class RegTextError : public std::runtime_error
{
public:
    RegTextError(std::size_t line, const std::string& message) : std::runtime_error(message), line_(line) {}

    // Counted from 1.
    std::size_t line() const { return line_; }

private:
    std::size_t line_;
};

// Reads a whole file, UTF-16LE with its byte-order mark or UTF-8. Throws RegTextError where it is malformed.
std::vector<RegTextKey> readRegText(std::string_view bytes);

class RegTextWriter
{
public:
    void beginKey(std::wstring_view path);
    // False, with a comment in the value's place, for text types whose data is no text that UTF-16 can hold.
    bool addValue(std::wstring_view name, std::uint32_t type, std::span<const unsigned char> data);

    // All that has been written, as Windows encodes it and as UTF-8.
    std::string utf16() const;
    std::string utf8() const;

private:
    void add(std::wstring_view text) { text_ += text; }
    void addQuoted(std::wstring_view text);
    void addBytes(std::size_t column, std::span<const unsigned char> bytes);

    std::wstring text_ = L"Windows Registry Editor Version 5.00\r\n";
};

} // namespace kest::host
