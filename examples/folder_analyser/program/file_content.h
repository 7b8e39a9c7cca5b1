// Reading and writing whole files.
#pragma once

#include <string>
#include <vector>

// Reads a file of at most 1 GB into bytes; false when it cannot be read.
bool readWholeFile(const std::wstring& path, std::vector<unsigned char>& bytes);

// Writes the text over what the file held; false when it cannot be written.
bool writeWholeFile(const std::wstring& path, const std::string& text);
