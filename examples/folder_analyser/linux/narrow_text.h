// Conversion between the library's wide text and the names of this system.
#pragma once

#include <string>

// Characters that the locale does not know become question marks.
std::string narrowed(const std::wstring& text);

// Bytes that are no text in this locale become replacement characters.
std::wstring widened(const char* text);
