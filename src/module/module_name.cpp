#include "kest/kernel/modules.h"
#include "support/second_name.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace
{

// Folds ASCII letters alone: towlower would take U+0130 for an "i" in a UTF-8 locale.
constexpr wchar_t lowered(wchar_t character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

// Whether `text` is `lowerCase` but for the case of its letters.
bool equalsLowered(std::wstring_view text, std::wstring_view lowerCase)
{
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](wchar_t character, wchar_t expected) { return lowered(character) == expected; });
}

std::wstring_view platformExtension(std::wstring_view extension)
{
    return extension.empty() || equalsLowered(extension, L".dll") ? L".so" : extension;
}

std::wstring_view platformPrefix(std::wstring_view stem)
{
    constexpr std::wstring_view prefix = L"lib";
    const bool prefixed = stem.size() > prefix.size() && equalsLowered(stem.substr(0, prefix.size()), prefix);
    return prefixed ? std::wstring_view() : prefix;
}

CStdStr<wchar_t> reported(std::wstring_view text)
{
    return {text.data(), text.size()};
}

CStdStr<wchar_t> translated(std::wstring_view name)
{
    const std::size_t fileStart = name.rfind(L'/') + 1; // 0 without a directory
    const std::wstring_view file = name.substr(fileStart);
    const std::size_t dot = std::min(file.rfind(L'.'), file.size());

    // The pieces are string objects too: applications ask the registry of string objects for them.
    const CStdStr<wchar_t> directory = reported(name.substr(0, fileStart));
    const CStdStr<wchar_t> stem = reported(file.substr(0, dot));
    const CStdStr<wchar_t> extension = reported(platformExtension(file.substr(dot)));
    const CStdStr<wchar_t> prefix = reported(platformPrefix(stem));

    CStdStr<wchar_t> joined;
    joined.reserve(directory.size() + prefix.size() + stem.size() + extension.size());
    joined += directory;
    joined += prefix;
    joined += stem;
    joined += extension;
    return joined;
}

} // namespace

CStdStr<wchar_t> ToPlatformModuleName(const wchar_t* name)
{
    return name == nullptr || *name == L'\0' ? CStdStr<wchar_t>() : translated(name);
}

KEST_SECOND_NAME(CStdStr<wchar_t> plainToPlatformModuleName(const wchar_t*), "_Z20ToPlatformModuleNamePKw",
                 "ToPlatformModuleName");
