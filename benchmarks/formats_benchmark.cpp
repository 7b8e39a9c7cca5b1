// Formatted output beside the C library's.
#include "families.h"
#include "kest/crt/formatted_output.h"
#include "kest/user_interface/strings.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <memory>
#include <string>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.25;

using Buffer = std::array<wchar_t, 256>;

// Functions that take a va_list, from arguments.
template <class Function>
int withArguments(Function function, ...)
{
    va_list arguments;
    va_start(arguments, function);
    const int result = function(arguments);
    va_end(arguments);
    return result;
}

} // namespace

void addFormats()
{
    const auto addShort = [](const std::string& what, const wchar_t* windowsFormat, const wchar_t* format, auto value)
    {
        addPair(
            "formats/wsprintfW, " + what, target, "swprintf",
            [=, out = Buffer()]() mutable { return wsprintfW(out.data(), windowsFormat, value); },
            [=, out = Buffer()]() mutable { return std::swprintf(out.data(), out.size(), format, value); }, {},
            EqualResults());
    };
    addShort("an integer", L"%d", L"%d", 1234567);
    addShort("a hexadecimal number", L"0x%08X", L"0x%08X", 0xC0FFEEu);
    addShort("a string", L"%s", L"%ls", L"The quick brown fox");
    addPair(
        "formats/wsprintfW, several values", target, "swprintf",
        [out = Buffer()]() mutable
        { return wsprintfW(out.data(), L"%s: line %d of %d (0x%x)", L"settings.ini", 12, 345, 0xBEEFu); },
        [out = Buffer()]() mutable {
            return std::swprintf(out.data(), out.size(), L"%ls: line %d of %d (0x%x)", L"settings.ini", 12, 345,
                                 0xBEEFu);
        });
    addPair(
        "formats/_tarswprintf, an integer", target, "swprintf",
        [out = Buffer()]() mutable { return _tarswprintf(out.data(), out.size(), L"%d", 1234567); },
        [out = Buffer()]() mutable { return std::swprintf(out.data(), out.size(), L"%d", 1234567); });

    const std::wstring text = wideText(20'000);
    const auto count = [=]
    { return withArguments([](va_list arguments) { return _vscwprintf(L"[%s]", arguments); }, text.c_str()); };
    addPair(
        "formats/_vscwprintf, 20000 characters", target, "swprintf into a buffer that suffices", count,
        [=]
        {
            const auto buffer = std::make_unique_for_overwrite<wchar_t[]>(text.size() + 3);
            return std::swprintf(buffer.get(), text.size() + 3, L"[%ls]", text.c_str()) + 1;
        },
        {}, EqualResults());
    // The C library has no way to count but to try.
    addPair(
        "formats/_vscwprintf, 20000 characters, beside trying", target,
        "swprintf, from 1024 characters doubled until they suffice", count,
        [=]
        {
            int length = -1;
            for (std::size_t size = 1024; length < 0; size *= 2)
            {
                const auto buffer = std::make_unique_for_overwrite<wchar_t[]>(size);
                length = std::swprintf(buffer.get(), size, L"[%ls]", text.c_str());
            }
            return length + 1;
        },
        {}, EqualResults());

    const auto growText = [](const std::string& name, long size)
    {
        addGrowth(name, "characters", size,
                  [](long length)
                  {
                      return [text = wideText(length), out = wideText(length + 1)]() mutable
                      { return wsprintfW(out.data(), L"%s", text.c_str()); };
                  });
    };
    growText("wsprintfW", 40);
    // Nearly the longest text that can be formatted.
    growText("wsprintfW, beyond its first scratch", 5200);
    addGrowth("_tarswprintf", "characters", 40,
              [](long length)
              {
                  return [text = wideText(length), out = wideText(length + 1)]() mutable
                  { return _tarswprintf(out.data(), out.size(), L"%s", text.c_str()); };
              });
    addGrowth("_tarfwprintf", "characters", 1000,
              [](long length)
              {
                  const std::shared_ptr<std::FILE> stream(std::fopen("/dev/null", "w"), std::fclose);
                  return [=, text = wideText(length)] { return _tarfwprintf(stream.get(), L"%s", text.c_str()); };
              });
    addGrowth("vswprintf_s, cut to half", "characters", 40,
              [](long length)
              {
                  return [text = wideText(length), out = wideText(length / 2 + 1)]() mutable
                  {
                      return withArguments([&](va_list arguments)
                                           { return vswprintf_s(out.data(), out.size() - 1, L"%s", arguments); },
                                           text.c_str());
                  };
              });
    addGrowth("vsprintf_s", "bytes", 40,
              [](long length)
              {
                  return [text = narrowText(length), out = narrowText(length + 1)]() mutable
                  {
                      return withArguments([&](va_list arguments)
                                           { return vsprintf_s(out.data(), out.size(), "%s", arguments); },
                                           text.c_str());
                  };
              });
    addGrowth("_vscprintf", "bytes", 1000,
              [](long length)
              {
                  return [text = narrowText(length)] {
                      return withArguments([](va_list arguments) { return _vscprintf("%s", arguments); }, text.c_str());
                  };
              });
    addGrowth("_vscwprintf", "characters", 40,
              [](long length)
              {
                  return [text = wideText(length)] {
                      return withArguments([](va_list arguments) { return _vscwprintf(L"%s", arguments); },
                                           text.c_str());
                  };
              });
    addGrowth("wsprintfW, of a long format", "characters", 40,
              [](long length)
              {
                  return [text = wideText(length), out = wideText(length + 1)]() mutable
                  { return wsprintfW(out.data(), text.c_str()); };
              });
}

} // namespace kest::benchmarks
