// Number conversions beside the C library's.
#include "families.h"
#include "kest/crt/numbers.h"
#include "kest/kernel/locale.h"
#include "pairs.h"

#include <array>
#include <climits>
#include <cstdio>
#include <cwchar>
#include <string>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.1;

} // namespace

void addNumbers()
{
    using Wide = std::array<wchar_t, 32>;
    using Narrow = std::array<char, 32>;
    addPair(
        "numbers/_itow, 7 digits", target, "swprintf",
        [out = Wide()]() mutable { return _itow(1234567, out.data(), 10); },
        [out = Wide()]() mutable { return std::swprintf(out.data(), out.size(), L"%d", 1234567); });
    addPair(
        "numbers/_itow, hexadecimal", target, "swprintf",
        [out = Wide()]() mutable { return _itow(INT_MIN, out.data(), 16); },
        [out = Wide()]() mutable { return std::swprintf(out.data(), out.size(), L"%x", INT_MIN); });
    addPair(
        "numbers/_itoa_s, 7 digits", target, "snprintf",
        [out = Narrow()]() mutable { return _itoa_s(1234567, out.data(), out.size(), 10); },
        [out = Narrow()]() mutable { return std::snprintf(out.data(), out.size(), "%d", 1234567); });
    addPair(
        "numbers/_i64tow_s, 19 digits", target, "swprintf",
        [out = Wide()]() mutable { return _i64tow_s(LLONG_MAX, out.data(), out.size(), 10); },
        [out = Wide()]() mutable { return std::swprintf(out.data(), out.size(), L"%lld", LLONG_MAX); });

    const std::wstring digits = L"1234567";
    addPair(
        "numbers/_wtoi, 7 digits", target, "wcstombs and strtol", [=] { return _wtoi(digits.c_str()); },
        [=, out = Narrow()]() mutable
        {
            std::wcstombs(out.data(), digits.c_str(), digits.size() + 1);
            return std::strtol(out.data(), nullptr, 10);
        });
    addPair(
        "numbers/_wtol, 7 digits", target, "wcstol", [=] { return _wtol(digits.c_str()); },
        [=] { return std::wcstol(digits.c_str(), nullptr, 0); });
    addPair(
        "numbers/_wtof", target, "wcstod", [] { return _wtof(L"-1234.5678e3"); },
        [] { return std::wcstod(L"-1234.5678e3", nullptr); });

    const auto growDigits = [](const std::string& name, const std::wstring& start, auto function)
    {
        addGrowth(name, "digits", 1000,
                  [=](long length)
                  {
                      return [=, text = start + std::wstring(static_cast<std::size_t>(length), L'7')]
                      { return function(text.c_str()); };
                  });
    };
    growDigits("_wtoi", L"", _wtoi);
    growDigits("_wtol", L"", _wtol);
    growDigits("_wtoi64", L"", _wtoi64);
    growDigits("_wtof", L"0.", _wtof);
    addGrowth(
        "GetNumberFormatW", "digits", 100,
        [](long length)
        {
            return [text = std::wstring(static_cast<std::size_t>(length), L'7'),
                    out = std::wstring(static_cast<std::size_t>(length) * 2, L'\0')]() mutable
            { return GetNumberFormatW(0, 0, text.c_str(), nullptr, out.data(), static_cast<int>(out.size())); };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
