// The format of profile (INI) files: sections in brackets, keys with values, and lines that are nobody's business
// but are kept as they stand.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kest::host
{

// A profile file in memory. Names are compared without case and found in their first place. UTF-8 (with or
// without byte-order mark) and UTF-16LE (with) are read, and written back in the same encoding; lines that are
// not changed keep every byte.
class ProfileFile
{
public:
    explicit ProfileFile(std::string_view content);

    std::string content() const;

    std::vector<std::wstring> sections() const;
    // The names of a section's keys, in order.
    std::vector<std::wstring> keys(std::wstring_view section) const;
    // A section's lines that are neither empty nor comments, keys as "name=value".
    std::vector<std::wstring> lines(std::wstring_view section) const;
    // A key's value without blanks around it and without one pair of quotes.
    std::optional<std::wstring> value(std::wstring_view section, std::wstring_view key) const;

    // Sets a value where its key stands, else behind the section's last line with content, else in a new
    // section at the end.
    void set(std::wstring_view section, std::wstring_view key, std::wstring_view value);
    void remove(std::wstring_view section, std::wstring_view key);
    void removeSection(std::wstring_view section);

private:
    enum class Encoding
    {
        utf8,
        utf8WithMark,
        utf16,
    };

    struct Line
    {
        enum class Kind
        {
            other, // blank or without meaning
            comment,
            section,
            key,
        };

        std::string bytes; // with its line end
        Kind kind = Kind::other;
        std::wstring name; // of the section or key
        std::wstring text; // the value; of other lines all
    };

    Line parsed(std::string_view bytes) const;
    std::string encoded(std::wstring_view text) const;
    Line made(std::wstring_view text) const;
    // Index of a section's header, or the number of lines.
    std::size_t header(std::wstring_view section) const;
    // Index behind the last line of the section that begins at a header.
    std::size_t end(std::size_t header) const;
    std::size_t findKey(std::wstring_view section, std::wstring_view key) const;
    void terminateLastLine();

    Encoding encoding_ = Encoding::utf8;
    std::wstring lineEnd_ = L"\r\n";
    std::vector<Line> lines_;
};

} // namespace kest::host
