// Functions on the text of paths beside the C library's text functions.
#include "families.h"
#include "kest/crt/path_splitting.h"
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <fnmatch.h>
#include <string>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.1;

constexpr const char* path = "/opt/application/modules/reporting/Statistics.dll";
constexpr const wchar_t* folder = L"/opt/application/modules/reporting";
constexpr const wchar_t* file = L"Statistics.dll";

using Bytes = std::array<char, 1024>;
using Characters = std::array<wchar_t, 1024>;

template <class CharT>
struct Pieces
{
    std::array<CharT, 1024> drive;
    std::array<CharT, 1024> folder;
    std::array<CharT, 1024> name;
    std::array<CharT, 1024> extension;
};

// A path of components of nine characters.
std::wstring longPath(long length)
{
    std::wstring text = wideText(length);
    for (std::size_t index = 0; index < text.size(); index += 10)
    {
        text[index] = L'/';
    }
    return text;
}

} // namespace

void addPaths()
{
    addPair(
        "paths/_splitpath", target, "strrchr twice and memcpy",
        [text = std::string(path), out = Pieces<char>()]() mutable
        { _splitpath(text.c_str(), out.drive.data(), out.folder.data(), out.name.data(), out.extension.data()); },
        [text = std::string(path), out = Pieces<char>()]() mutable
        {
            const auto put = [](std::array<char, 1024>& piece, const char* from, const char* to)
            {
                const auto length = static_cast<std::size_t>(to - from);
                std::memcpy(piece.data(), from, length);
                piece[length] = '\0';
            };
            const char* const slash = std::strrchr(text.c_str(), '/');
            const char* const dot = std::strrchr(slash, '.');
            out.drive[0] = '\0';
            put(out.folder, text.c_str(), slash);
            put(out.name, slash + 1, dot);
            put(out.extension, dot, dot + std::strlen(dot));
        });
    addPair(
        "paths/_wmakepath", target, "wcscpy, wcscat",
        [out = Characters()]() mutable
        {
            out[0] = L'\0';
            _wmakepath(out.data(), L"", folder, L"/Statistics", L"dll");
        },
        [out = Characters()]() mutable
        {
            std::wcscpy(out.data(), folder);
            std::wcscat(out.data(), L"/Statistics");
            std::wcscat(out.data(), L".");
            return std::wcscat(out.data(), L"dll");
        });
    addPair(
        "paths/PathCombineW", target, "swprintf",
        [out = Characters()]() mutable { return PathCombineW(out.data(), folder, file); },
        [out = Characters()]() mutable { return std::swprintf(out.data(), out.size(), L"%ls/%ls", folder, file); });
    addPair(
        "paths/PathMatchSpecW", target, "wcstombs twice, fnmatch", [] { return PathMatchSpecW(file, L"*.DLL"); },
        []
        {
            Bytes name;
            Bytes pattern;
            std::wcstombs(name.data(), file, name.size());
            std::wcstombs(pattern.data(), L"*.DLL", pattern.size());
            return fnmatch(pattern.data(), name.data(), FNM_CASEFOLD);
        });

    // The splitters with sizes take 1023 characters, the narrowed names 4095.
    addGrowth("_splitpath_s", "bytes", 10,
              [](long length)
              {
                  const std::wstring text = longPath(length);
                  return [bytes = std::string(text.begin(), text.end()), out = Pieces<char>()]() mutable
                  {
                      return _splitpath_s(bytes.c_str(), out.drive.data(), 1024, out.folder.data(), 1024,
                                          out.name.data(), 1024, out.extension.data(), 1024);
                  };
              });
    addGrowth("_wsplitpath_s", "characters", 10,
              [](long length)
              {
                  return [text = longPath(length), out = Pieces<wchar_t>()]() mutable
                  {
                      return _wsplitpath_s(text.c_str(), out.drive.data(), 1024, out.folder.data(), 1024,
                                           out.name.data(), 1024, out.extension.data(), 1024);
                  };
              });
    addGrowth("_wsplitpath_s, the folder cut to half", "characters", 10,
              [](long length)
              {
                  return [text = longPath(length), half = static_cast<std::size_t>(length) / 2 + 1,
                          out = Pieces<wchar_t>()]() mutable
                  {
                      return _wsplitpath_s(text.c_str(), out.drive.data(), 1024, out.folder.data(), half,
                                           out.name.data(), 1024, out.extension.data(), 1024);
                  };
              });
    addGrowth("_splitpath", "bytes", 10,
              [](long length)
              {
                  const std::wstring text = longPath(length);
                  return [bytes = std::string(text.begin(), text.end()), out = Pieces<char>()]() mutable {
                      _splitpath(bytes.c_str(), out.drive.data(), out.folder.data(), out.name.data(),
                                 out.extension.data());
                  };
              });
    const auto growPath = [](const std::string& name, auto function)
    {
        addGrowth(name, "characters", 100,
                  [=](long length)
                  {
                      return [=, text = longPath(length), out = longPath(2 * length)]() mutable
                      { return function(out.data(), text.c_str()); };
                  });
    };
    using Out = wchar_t*;
    using In = const wchar_t*;
    growPath("_wsplitpath",
             [](Out out, In text)
             {
                 Pieces<wchar_t> pieces;
                 _wsplitpath(text, pieces.drive.data(), nullptr, pieces.name.data(), pieces.extension.data());
                 return out;
             });
    growPath("_wmakepath",
             [](Out out, In text)
             {
                 *out = L'\0';
                 _wmakepath(out, L"", text, L"name", L"dll");
                 return out;
             });
    growPath("PathCombineW", [](Out out, In text) { return PathCombineW(out, text, file); });
    growPath("PathAppendW",
             [](Out out, In text)
             {
                 *out = L'\0';
                 return PathAppendW(out, text);
             });
    growPath("PathRemoveFileSpecW",
             [](Out out, In text)
             {
                 std::wcscpy(out, text);
                 return PathRemoveFileSpecW(out);
             });
    growPath("PathFindFileNameW",
             [](Out out, In text)
             {
                 std::wcscpy(out, text);
                 return PathFindFileNameW(out);
             });
    growPath("GetShortPathNameW",
             [](Out out, In text) { return GetShortPathNameW(text, out, static_cast<DWORD>(std::wcslen(text)) + 1); });
    addGrowth("PathMatchSpecW", "characters", 40,
              [](long length) { return [text = longPath(length)] { return PathMatchSpecW(text.c_str(), L"*.DLL"); }; });
    // A pattern can have 254 bytes.
    addGrowth("PathMatchSpecW, of a pattern", "asterisks", 1,
              [](long asterisks)
              {
                  std::wstring pattern;
                  for (long count = 0; count < asterisks; ++count)
                  {
                      pattern += L"*e";
                  }
                  return [text = wideText(1000), pattern = pattern + L"#"]
                  { return PathMatchSpecW(text.c_str(), pattern.c_str()); };
              });
}

} // namespace kest::benchmarks
