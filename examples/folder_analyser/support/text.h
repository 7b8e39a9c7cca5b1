// Text helpers of the program and its plug-ins. Nothing here depends on the size of wchar_t.
#pragma once

#include <string>

namespace text
{

// Appends a code point in UTF-8; what is no code point becomes the replacement character.
void appendUtf8(std::string& out, unsigned long codePoint);

// Wide text, UTF-16 or UTF-32, in UTF-8.
std::string toUtf8(const std::wstring& wide);

// 1234567 as "1,234,567".
std::wstring grouped(unsigned long long number);

// The part's share of the whole with one decimal: "12.5%".
std::wstring percentage(unsigned long long part, unsigned long long whole);

// Singular or plural behind the grouped number: "1 file", "2 files".
std::wstring counted(unsigned long long number, const wchar_t* noun);

} // namespace text
