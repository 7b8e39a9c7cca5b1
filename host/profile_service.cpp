#include "kest/host/profile_service.h"

#include "atomic_file.h"
#include "common/windows_errors.h"
#include "folders.h"
#include "out_of_memory.h"
#include "path_resolution.h"
#include "profile_file.h"
#include "unicode.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <vector>

namespace kest::host
{

namespace
{

// ---- Text of the narrow functions: the process's encoding, and UTF-8 where that cannot tell ---------------------------

std::optional<std::wstring> widened(const char* text)
{
    if (text == nullptr)
    {
        return std::nullopt;
    }
    std::wstring result(std::string_view(text).size() + 1, L'\0');
    const std::size_t length = std::mbstowcs(result.data(), text, result.size());
    if (length == static_cast<std::size_t>(-1))
    {
        return fromUtf8(text);
    }
    result.resize(length);
    return result;
}

std::string narrowed(const std::wstring& text)
{
    // A list's terminators are part of the text: piece by piece.
    std::string result;
    for (std::size_t begin = 0; begin <= text.size();)
    {
        const std::wstring piece = text.substr(begin, text.find(L'\0', begin) - begin);
        std::string bytes((piece.size() + 1) * sizeof(wchar_t), '\0');
        const std::size_t length = std::wcstombs(bytes.data(), piece.c_str(), bytes.size());
        result += length == static_cast<std::size_t>(-1) ? toUtf8(piece) : bytes.substr(0, length);
        begin += piece.size() + 1;
        result += begin <= text.size() ? std::string(1, '\0') : "";
    }
    return result;
}

const wchar_t* pointer(const std::optional<std::wstring>& text)
{
    return text ? text->c_str() : nullptr;
}

// ---- Files -----------------------------------------------------------------------------------------------------------

// A name without a folder.
bool isBare(std::wstring_view name)
{
    return name.find_first_of(L"/\\") == name.npos;
}

// Nothing, with errno set, when it cannot be known which file is meant.
std::optional<std::string> fileOf(const wchar_t* name)
{
    if (!isBare(name))
    {
        return intendedPath(name);
    }
    const std::string folder = baseFolder("XDG_CONFIG_HOME", ".config") + "/kest/";
    return intendedPath(fromUtf8(folder) + name);
}

// A failing write's answer.
BOOL refused(int systemError)
{
    errno = common::windowsErrorOf(systemError);
    return 0;
}

std::optional<ProfileFile> read(const wchar_t* name)
{
    const std::optional<std::string> file = name == nullptr ? std::nullopt : fileOf(name);
    const std::optional<std::string> content = file ? readRegularFile(*file) : std::nullopt;
    return content ? std::optional<ProfileFile>(*content) : std::nullopt;
}

std::wstring joined(const std::vector<std::wstring>& texts)
{
    std::wstring list;
    for (const std::wstring& text : texts)
    {
        list.append(text).push_back(L'\0');
    }
    return list;
}

// ---- Handing texts out -------------------------------------------------------------------------------------------------

// A text, cut to the room that there is, and its terminator; the number of characters before that.
template <class CharT>
DWORD storeText(const std::basic_string<CharT>& text, CharT* out, DWORD size)
{
    if (out == nullptr || size == 0)
    {
        return 0;
    }
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    text.copy(out, length);
    out[length] = CharT();
    return static_cast<DWORD>(length);
}

// A list of terminated texts and the list's own terminator. One that does not fit is cut so that it still ends in
// two terminators.
template <class CharT>
DWORD storeList(const std::basic_string<CharT>& list, CharT* out, DWORD size)
{
    if (list.size() < size || size < 2)
    {
        const DWORD length = storeText(list, out, size);
        if (length == 0 && out != nullptr && size > 1)
        {
            out[1] = CharT();
        }
        return length;
    }
    storeText(list, out, size - 1);
    out[size - 1] = CharT();
    return size - 2;
}

// An empty text or list; 0.
template <class CharT>
DWORD storeEmpty(CharT* out, DWORD size, bool isList)
{
    const std::basic_string<CharT> empty;
    return isList ? storeList(empty, out, size) : storeText(empty, out, size);
}

std::wstring withoutTrailingBlanks(const wchar_t* text)
{
    std::wstring result = text == nullptr ? L"" : text;
    result.erase(result.find_last_not_of(L' ') + 1);
    return result;
}

// What a read answers: a text, or a list where a name is null.
struct Answer
{
    std::wstring text;
    bool isList = false;
};

Answer lookUp(const wchar_t* section, const wchar_t* key, const wchar_t* missing, const wchar_t* fileName)
{
    const std::optional<ProfileFile> file = read(fileName);
    if (section == nullptr || key == nullptr)
    {
        const std::vector<std::wstring> names = !file                ? std::vector<std::wstring>()
                                                : section == nullptr ? file->sections()
                                                                     : file->keys(section);
        return {joined(names), true};
    }
    const std::optional<std::wstring> value = file ? file->value(section, key) : std::nullopt;
    return {value ? *value : withoutTrailingBlanks(missing), false};
}

std::uint32_t number(std::wstring_view text)
{
    bool negative = false;
    if (text.starts_with(L'-') || text.starts_with(L'+'))
    {
        negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    std::uint32_t base = 10;
    for (const auto& [prefix, prefixBase] : {std::pair(L"0x", 16U), std::pair(L"0o", 8U), std::pair(L"0b", 2U)})
    {
        if (text.starts_with(prefix))
        {
            base = prefixBase;
            text.remove_prefix(2);
            break;
        }
    }
    std::uint32_t value = 0;
    for (const wchar_t character : text)
    {
        const std::uint32_t code = static_cast<std::uint32_t>(character);
        const std::uint32_t digit = code - '0' < 10            ? code - '0'
                                    : (code | 0x20U) - 'a' < 6 ? (code | 0x20U) - 'a' + 10
                                                               : base;
        if (digit >= base)
        {
            break;
        }
        value = value * base + digit;
    }
    return negative ? 0 - value : value;
}

} // namespace

DWORD ProfileService::GetPrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName,
                                               const wchar_t* lpDefault, wchar_t* lpReturnedString, DWORD nSize,
                                               const wchar_t* lpFileName)
try
{
    const Answer answer = lookUp(lpAppName, lpKeyName, lpDefault, lpFileName);
    return answer.isList ? storeList(answer.text, lpReturnedString, nSize)
                         : storeText(answer.text, lpReturnedString, nSize);
}
catch (const std::bad_alloc&)
{
    return withoutMemory(storeEmpty(lpReturnedString, nSize, lpAppName == nullptr || lpKeyName == nullptr));
}

DWORD ProfileService::GetPrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpDefault,
                                               char* lpReturnedString, DWORD nSize, const char* lpFileName)
try
{
    const Answer answer = lookUp(pointer(widened(lpAppName)), pointer(widened(lpKeyName)), pointer(widened(lpDefault)),
                                 pointer(widened(lpFileName)));
    const std::string text = narrowed(answer.text);
    return answer.isList ? storeList(text, lpReturnedString, nSize) : storeText(text, lpReturnedString, nSize);
}
catch (const std::bad_alloc&)
{
    return withoutMemory(storeEmpty(lpReturnedString, nSize, lpAppName == nullptr || lpKeyName == nullptr));
}

UINT ProfileService::GetPrivateProfileIntW(const wchar_t* lpAppName, const wchar_t* lpKeyName, INT nDefault,
                                           const wchar_t* lpFileName)
try
{
    const std::optional<ProfileFile> file = read(lpFileName);
    const std::optional<std::wstring> value =
        file && lpAppName != nullptr && lpKeyName != nullptr ? file->value(lpAppName, lpKeyName) : std::nullopt;
    return value ? number(*value) : static_cast<UINT>(nDefault);
}
catch (const std::bad_alloc&)
{
    return withoutMemory(static_cast<UINT>(nDefault));
}

UINT ProfileService::GetPrivateProfileIntA(const char* lpAppName, const char* lpKeyName, INT nDefault,
                                           const char* lpFileName)
try
{
    return GetPrivateProfileIntW(pointer(widened(lpAppName)), pointer(widened(lpKeyName)), nDefault,
                                 pointer(widened(lpFileName)));
}
catch (const std::bad_alloc&)
{
    return withoutMemory(static_cast<UINT>(nDefault));
}

DWORD ProfileService::GetPrivateProfileSectionW(const wchar_t* lpAppName, wchar_t* lpReturnedString, DWORD nSize,
                                                const wchar_t* lpFileName)
try
{
    const std::optional<ProfileFile> file = read(lpFileName);
    return storeList(file && lpAppName != nullptr ? joined(file->lines(lpAppName)) : std::wstring(), lpReturnedString,
                     nSize);
}
catch (const std::bad_alloc&)
{
    return withoutMemory(storeEmpty(lpReturnedString, nSize, true));
}

BOOL ProfileService::WritePrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName,
                                                const wchar_t* lpString, const wchar_t* lpFileName)
try
{
    if (lpAppName == nullptr || lpFileName == nullptr)
    {
        return refused(EINVAL);
    }
    const std::optional<std::string> file = fileOf(lpFileName);
    if (!file)
    {
        return refused(errno);
    }
    std::string path = *file;
    std::string folder = path.substr(0, path.rfind('/') + 1);
    if (isBare(lpFileName) && !makeFolders(folder))
    {
        return refused(errno);
    }
    // A link stays one: what it leads to is replaced.
    const std::unique_ptr<char, decltype(&std::free)> target(realpath(path.c_str(), nullptr), std::free);
    if (target == nullptr && errno != ENOENT)
    {
        return refused(errno);
    }
    if (target != nullptr)
    {
        path = target.get();
        folder = path.substr(0, path.rfind('/') + 1);
    }
    const FolderLock lock(folder);
    if (!lock.held())
    {
        // Without its folder a file cannot be made: that is not the file's own absence.
        return refused(errno == ENOENT ? ENOTDIR : errno);
    }
    const std::optional<std::string> before = readRegularFile(path);
    if (!before && errno != ENOENT)
    {
        return refused(errno);
    }
    ProfileFile profile(before.value_or(""));
    if (lpKeyName == nullptr)
    {
        profile.removeSection(lpAppName);
    }
    else if (lpString == nullptr)
    {
        profile.remove(lpAppName, lpKeyName);
    }
    else
    {
        profile.set(lpAppName, lpKeyName, lpString);
    }
    const std::string after = profile.content();
    return before == after || replaceFile(path, after) ? 1 : refused(errno);
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

BOOL ProfileService::WritePrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpString,
                                                const char* lpFileName)
try
{
    return WritePrivateProfileStringW(pointer(widened(lpAppName)), pointer(widened(lpKeyName)),
                                      pointer(widened(lpString)), pointer(widened(lpFileName)));
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

} // namespace kest::host
