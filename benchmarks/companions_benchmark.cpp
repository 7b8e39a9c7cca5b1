// The companions on inputs of growing sizes.
#include "families.h"
#include "kest/companions/automation.h"
#include "kest/companions/crt.h"
#include "kest/companions/encodings.h"
#include "kest/companions/kernel.h"
#include "kest/companions/registry.h"
#include "kest/companions/shell.h"
#include "kest/companions/strsafe.h"
#include "kest/registry.h"
#include "pairs.h"
#include "surroundings.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <stdexcept>
#include <string>

namespace kest::benchmarks
{

namespace
{

constexpr long size = 100;
constexpr UINT utf8 = 65001;

// A text, wide and narrow, and buffers of either that it fits into with its terminator.
struct Texts
{
    std::wstring wideOne;
    std::string narrowOne;
    std::wstring wideOut;
    std::string narrowOut;
};

template <class Function, class Check>
void grow(const std::string& name, const std::string& unit, Function function, Check check)
{
    addGrowth(
        name, unit, size,
        [=](long length)
        {
            return [=, texts = Texts{wideText(length), narrowText(length), wideText(length + 1),
                                     narrowText(length + 1)}]() mutable { return function(texts); };
        },
        {}, check);
}

template <class Text>
int roomFor(const Text& out)
{
    return static_cast<int>(out.size());
}

void growConversions()
{
    grow(
        "WideCharToMultiByte", "characters",
        [](Texts& texts)
        {
            return WideCharToMultiByte(utf8, 0, texts.wideOne.c_str(), -1, texts.narrowOut.data(),
                                       roomFor(texts.narrowOut), nullptr, nullptr);
        },
        NoneZero());
    grow(
        "MultiByteToWideChar", "bytes",
        [](Texts& texts) {
            return MultiByteToWideChar(utf8, 0, texts.narrowOne.c_str(), -1, texts.wideOut.data(),
                                       roomFor(texts.wideOut));
        },
        NoneZero());
    grow(
        "mbstowcs_s", "bytes",
        [](Texts& texts)
        { return mbstowcs_s(nullptr, texts.wideOut.data(), texts.wideOut.size(), texts.narrowOne.c_str(), _TRUNCATE); },
        AllZero());
    grow(
        "wcstombs_s", "characters",
        [](Texts& texts) {
            return wcstombs_s(nullptr, texts.narrowOut.data(), texts.narrowOut.size(), texts.wideOne.c_str(),
                              _TRUNCATE);
        },
        AllZero());
}

void growPrinting(const std::string& name, long smallest)
{
    addGrowth(
        name, "characters", smallest,
        [](long length)
        {
            return [text = wideText(length), out = wideText(length + 1)]() mutable
            { return StringCchPrintfW(out.data(), out.size(), L"%s", text.c_str()); };
        },
        {}, AllZero());
}

void growTexts()
{
    grow(
        "StringCchCopyW", "characters",
        [](Texts& texts) { return StringCchCopyW(texts.wideOut.data(), texts.wideOut.size(), texts.wideOne.c_str()); },
        AllZero());
    grow(
        "StringCchCatW", "characters",
        [](Texts& texts)
        {
            texts.wideOut[0] = L'\0';
            return StringCchCatW(texts.wideOut.data(), texts.wideOut.size(), texts.wideOne.c_str());
        },
        AllZero());
    growPrinting("StringCchPrintfW", 40);
    // Nearly the longest text that can be formatted.
    growPrinting("StringCchPrintfW, beyond its first scratch", 5200);
    grow(
        "_snprintf", "bytes",
        [](Texts& texts)
        { return _snprintf(texts.narrowOut.data(), texts.narrowOut.size(), "%s", texts.narrowOne.c_str()); },
        [](int result) { return result > 0; });
    grow(
        "_memicmp", "bytes",
        [](Texts& texts) { return _memicmp(texts.narrowOne.data(), texts.narrowOut.data(), texts.narrowOne.size()); },
        AllZero());
    grow(
        "strtok_s, all tokens", "bytes",
        [](Texts& texts)
        {
            std::strcpy(texts.narrowOut.data(), texts.narrowOne.c_str());
            char* position = nullptr;
            long tokens = 0;
            for (const char* token = strtok_s(texts.narrowOut.data(), " ", &position); token != nullptr;
                 token = strtok_s(nullptr, " ", &position))
            {
                ++tokens;
            }
            return tokens;
        },
        NoneZero());
    grow(
        "CommandLineToArgvW", "characters",
        [](Texts& texts)
        {
            int count = 0;
            std::free(CommandLineToArgvW(texts.wideOne.c_str(), &count));
            return count;
        },
        NoneZero());
    addGrowth(
        "StrTrimW", "blanks on either side", size,
        [](long length)
        {
            const std::wstring blanks(static_cast<std::size_t>(length), L' ');
            return [text = blanks + L"name" + blanks, out = blanks + L"name" + blanks]() mutable
            {
                std::wmemcpy(out.data(), text.data(), text.size());
                return StrTrimW(out.data(), L" \t");
            };
        },
        {}, NoneZero());
    grow(
        "SysAllocString, SysFreeString", "characters",
        [](Texts& texts)
        {
            const BSTR string = SysAllocString(texts.wideOne.c_str());
            const UINT length = SysStringLen(string);
            SysFreeString(string);
            return length;
        },
        NoneZero());
}

} // namespace

void addCompanions()
{
    growConversions();
    growTexts();
    addGrowth(
        "RegGetValueW", "bytes", 10'000,
        [](long bytes)
        {
            HKEY key = nullptr;
            const std::wstring data(static_cast<std::size_t>(bytes) / sizeof(wchar_t), L'x');
            if (RegCreateKeyW(HKEY_CURRENT_USER, (L"Got" + std::to_wstring(bytes)).c_str(), &key) != 0 ||
                RegSetValueExW(key, L"Data", 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                               static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t))) != 0)
            {
                throw std::runtime_error("cannot create a registry value");
            }
            return [=, out = data + L"more"]() mutable
            {
                auto room = static_cast<DWORD>(out.size() * sizeof(wchar_t));
                return RegGetValueW(key, nullptr, L"Data", RRF_RT_REG_SZ, nullptr, out.data(), &room);
            };
        },
        {}, AllZero());
    addGrowth(
        "MoveFileW, there and back within a file system", "bytes", 65536,
        [](long bytes)
        {
            const std::wstring name = wide(fileOfSize(bytes));
            return [=, moved = name + L"-moved"]
            { return MoveFileW(name.c_str(), moved.c_str()) && MoveFileW(moved.c_str(), name.c_str()); };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
