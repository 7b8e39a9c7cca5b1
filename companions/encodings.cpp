#include "kest/companions/encodings.h"

#include "code_page.h"
#include "common/utf8.h"
#include "failure.h"
#include "kest/kernel/locale.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <optional>
#include <string>
#include <string_view>

using namespace kest::common;
using namespace kest::companions;

namespace
{

constexpr DWORD failOnInvalidBytes = 0x00000008; // MB_ERR_INVALID_CHARS
constexpr DWORD failOnInvalidCodes = 0x00000080; // WC_ERR_INVALID_CHARS
constexpr DWORD flagsToWide = 0x0000000F;        // MB_PRECOMPOSED, MB_COMPOSITE, MB_USEGLYPHCHARS beside it
constexpr DWORD flagsToBytes = 0x00000670;       // WC_COMPOSITECHECK, WC_DISCARDNS, WC_SEPCHARS and the others

// What was made of one whole text.
template <class CharT>
struct Converted
{
    std::basic_string<CharT> text;
    bool valid = true; // without replacements
};

std::size_t lengthWithTerminator(const char* text)
{
    return std::strlen(text) + 1;
}

std::size_t lengthWithTerminator(const wchar_t* text)
{
    return std::wcslen(text) + 1;
}

template <class CharT>
std::basic_string_view<CharT> given(const CharT* text, int size)
{
    return {text, size < 0 ? lengthWithTerminator(text) : static_cast<std::size_t>(size)};
}

// The checks of both directions that need no look at the text.
bool argumentsHold(const void* text, int size, const void* buffer, int capacity)
{
    return text != nullptr && size != 0 && capacity >= 0 && (buffer != nullptr || capacity == 0) &&
           (text != buffer || capacity == 0);
}

// Hands the text out, or its length where there is no buffer.
template <class CharT>
int deliver(std::basic_string_view<CharT> text, CharT* buffer, int capacity)
{
    if (text.size() > static_cast<std::size_t>(INT_MAX))
        return failWith(ERROR_INVALID_PARAMETER, 0);
    if (capacity == 0)
        return static_cast<int>(text.size());
    const auto room = static_cast<std::size_t>(capacity);
    std::copy_n(text.data(), std::min(text.size(), room), buffer);
    return text.size() > room ? failWith(ERROR_INSUFFICIENT_BUFFER, 0) : static_cast<int>(text.size());
}

Converted<wchar_t> widened(std::string_view bytes, Conversion& conversion)
{
    bool valid = true;
    std::string wide; // the bytes of wide characters
    const std::wstring_view replacement(&replacementCharacter, 1);
    while (true)
    {
        const int error = conversion.convert(bytes, wide);
        if (bytes.empty())
            break;
        // A character that the text ends in has its replacement for all of its bytes.
        bytes.remove_prefix(error == EINVAL ? bytes.size() : 1);
        wide.append(reinterpret_cast<const char*>(replacement.data()), sizeof replacementCharacter);
        valid = false;
    }
    std::wstring text(wide.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), wide.data(), text.size() * sizeof(wchar_t));
    return {std::move(text), valid};
}

Converted<char> narrowed(std::wstring_view text, Conversion& conversion, const char* defaultCharacter)
{
    Converted<char> result;
    std::string_view left(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
    while (true)
    {
        conversion.convert(left, result.text);
        if (left.empty())
            break;
        left.remove_prefix(sizeof(wchar_t));
        conversion.finish(result.text);
        result.text += defaultCharacter;
        result.valid = false;
    }
    conversion.finish(result.text);
    return result;
}

// Nothing for an encoding that is not known.
std::optional<Converted<wchar_t>> toWide(const std::string& encoding, std::string_view bytes)
{
    if (isUtf8(encoding))
    {
        DecodedText decoded = decodeUtf8(bytes, Malformed::beginning);
        return Converted<wchar_t>{std::move(decoded.text), decoded.valid()};
    }
    Conversion conversion("WCHAR_T", encoding);
    if (!conversion.known())
        return std::nullopt;
    return widened(bytes, conversion);
}

std::optional<Converted<char>> toBytes(const std::string& encoding, std::wstring_view text,
                                       const char* defaultCharacter)
{
    if (isUtf8(encoding))
    {
        EncodedText encoded = encodeUtf8(text);
        return Converted<char>{std::move(encoded.bytes), encoded.valid};
    }
    Conversion conversion(encoding, "WCHAR_T");
    if (!conversion.known())
        return std::nullopt;
    return narrowed(text, conversion, defaultCharacter);
}

// Success leaves the last error as it is, whatever iconv did on the way.
template <class Body>
int keepingErrorOfSuccess(Body&& body)
{
    const int before = errno;
    const int answer = body();
    if (answer != 0)
        errno = before;
    return answer;
}

} // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* text, int size, wchar_t* buffer, int capacity)
{
    if (!argumentsHold(text, size, buffer, capacity))
        return failWith(ERROR_INVALID_PARAMETER, 0);
    if ((flags & ~(codePage == CP_UTF8 ? failOnInvalidBytes : flagsToWide)) != 0)
        return failWith(ERROR_INVALID_FLAGS, 0);
    const auto body = [&]
    {
        const auto converted = toWide(encodingOf(codePage), given(text, size));
        if (!converted)
            return failWith(ERROR_INVALID_PARAMETER, 0);
        if (!converted->valid && (flags & failOnInvalidBytes) != 0)
            return failWith(ERROR_NO_UNICODE_TRANSLATION, 0);
        return deliver<wchar_t>(converted->text, buffer, capacity);
    };
    return keepingErrorOfSuccess([&] { return reportingNoMemory(0, body); });
}

int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int size, char* buffer, int capacity,
                        const char* defaultCharacter, BOOL* usedDefault)
{
    const bool utf8 = codePage == CP_UTF8;
    if (!argumentsHold(text, size, buffer, capacity) ||
        (utf8 && (defaultCharacter != nullptr || usedDefault != nullptr)))
        return failWith(ERROR_INVALID_PARAMETER, 0);
    if ((flags & ~(utf8 ? failOnInvalidCodes : flagsToBytes)) != 0)
        return failWith(ERROR_INVALID_FLAGS, 0);
    const auto body = [&]
    {
        const auto converted =
            toBytes(encodingOf(codePage), given(text, size), defaultCharacter != nullptr ? defaultCharacter : "?");
        if (!converted)
            return failWith(ERROR_INVALID_PARAMETER, 0);
        if (!converted->valid && (flags & failOnInvalidCodes) != 0)
            return failWith(ERROR_NO_UNICODE_TRANSLATION, 0);
        if (usedDefault != nullptr)
            *usedDefault = converted->valid ? FALSE : TRUE;
        return deliver<char>(converted->text, buffer, capacity);
    };
    return keepingErrorOfSuccess([&] { return reportingNoMemory(0, body); });
}
