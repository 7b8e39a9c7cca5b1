// Types and data of values as the user reads and writes them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// "REG_SZ"; of types without a name the number.
std::wstring typeName(std::uint32_t type);
// The type that a name or a number means; throws Failure where there is none.
std::uint32_t typeNamed(std::wstring_view name);

// Text as it is, the texts of a list with \0 between them, numbers as 0x2a, other data and what is malformed as
// hexadecimal digits.
std::wstring dataText(std::uint32_t type, std::span<const unsigned char> data);
// The data that a text means; throws Failure where it means none. The texts of a list stand between separators.
std::vector<unsigned char> dataOf(std::uint32_t type, std::wstring_view text, std::wstring_view separator);
