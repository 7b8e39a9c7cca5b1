// What a file's bytes are: their encoding, and their lines when they are text.
#pragma once

#include "analyser.h"

#include <string>
#include <string_view>

enum class Encoding
{
    Empty,
    Ascii,
    Utf8,
    Utf8WithMark,
    Utf16Little,
    Utf16Big,
    EightBit, // text in some single-byte encoding
    Binary
};

constexpr std::size_t encodingCount = 8;

Encoding encodingOf(const AnalysedFile& file);

// A file's text in UTF-8, without byte order mark. Refers to the file's own bytes where they need no conversion.
class TextContent
{
public:
    explicit TextContent(const AnalysedFile& file);
    TextContent(const TextContent&) = delete;
    TextContent& operator=(const TextContent&) = delete;

    bool isText() const { return isText_; }
    std::string_view utf8() const { return utf8_; }

private:
    bool isText_;
    std::string converted_;
    std::string_view utf8_;
};

enum class LineEnd
{
    None, // the last line of a file, when nothing ends it
    Lf,
    CrLf,
    Cr
};

// Splits text into lines. Reads like: for (LineReader reader(text); reader.next();) use(reader.line());
class LineReader
{
public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    bool next();
    std::string_view line() const { return line_; }
    LineEnd end() const { return end_; }

private:
    std::string_view rest_;
    std::string_view line_;
    LineEnd end_ = LineEnd::None;
};

// The number of characters, not bytes, in UTF-8 text.
unsigned long long characterCount(std::string_view utf8);
