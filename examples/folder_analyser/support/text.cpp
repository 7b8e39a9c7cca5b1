#include "support/text.h"

#include <cstdint>

namespace text
{

namespace
{

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

void appendUtf8(std::string& out, unsigned long codePoint)
{
    const auto trail = [](unsigned long bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF))
    {
        codePoint = 0xFFFD;
    }
    if (codePoint < 0x80)
    {
        out += static_cast<char>(codePoint);
    }
    else if (codePoint < 0x800)
    {
        out += static_cast<char>(0xC0 | (codePoint >> 6));
        out += trail(codePoint);
    }
    else if (codePoint < 0x10000)
    {
        out += static_cast<char>(0xE0 | (codePoint >> 12));
        out += trail(codePoint >> 6);
        out += trail(codePoint);
    }
    else
    {
        out += static_cast<char>(0xF0 | (codePoint >> 18));
        out += trail(codePoint >> 12);
        out += trail(codePoint >> 6);
        out += trail(codePoint);
    }
}

std::string toUtf8(const std::wstring& wide)
{
    std::string out;
    out.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i)
    {
        std::uint32_t unit = static_cast<std::uint32_t>(wide[i]);
        const std::uint32_t next = i + 1 < wide.size() ? static_cast<std::uint32_t>(wide[i + 1]) : 0;
        if (isHighSurrogate(unit) && isLowSurrogate(next))
        {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
            ++i;
        }
        appendUtf8(out, unit);
    }
    return out;
}

std::wstring grouped(unsigned long long number)
{
    std::wstring digits = std::to_wstring(number);
    for (std::size_t place = digits.size(); place > 3; place -= 3)
    {
        digits.insert(place - 3, 1, L',');
    }
    return digits;
}

std::wstring percentage(unsigned long long part, unsigned long long whole)
{
    // In tenths, rounded; floating point would round differently from compiler to compiler.
    const unsigned long long tenths = whole == 0 ? 0 : (part * 1000 + whole / 2) / whole;
    return std::to_wstring(tenths / 10) + L"." + std::to_wstring(tenths % 10) + L"%";
}

std::wstring counted(unsigned long long number, const wchar_t* noun)
{
    return grouped(number) + L" " + noun + (number == 1 ? L"" : L"s");
}

} // namespace text
