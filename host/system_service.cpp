#include "kest/host/system_service.h"

#include "folders.h"
#include "out_of_memory.h"
#include "unicode.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <kest_kit/system_errors.h>
#include <new>
#include <optional>
#include <pwd.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace kest::host
{

namespace
{

// ---- Numbers -----------------------------------------------------------------------------------------------------------

struct Format
{
    UINT digits = 2;
    UINT leadingZero = 1;
    UINT grouping = 3;
    std::wstring decimal;
    std::wstring thousands;
    UINT negativeOrder = 1;
};

Format formatOfTheLocale()
{
    const lconv* const locale = localeconv();
    Format format;
    format.decimal = fromUtf8(locale->decimal_point);
    format.thousands = *locale->thousands_sep != '\0' ? fromUtf8(locale->thousands_sep) : L",";
    return format;
}

std::optional<Format> formatOf(const NUMBERFMTW* given, DWORD flags)
{
    if (given == nullptr)
    {
        return formatOfTheLocale();
    }
    if (flags != 0 || given->NumDigits > 9 || given->LeadingZero > 1 ||
        (given->Grouping > 9 && given->Grouping != 32) || given->NegativeOrder > 4 || given->lpDecimalSep == nullptr ||
        given->lpThousandSep == nullptr)
    {
        return std::nullopt;
    }
    return Format{given->NumDigits,    given->LeadingZero,   given->Grouping,
                  given->lpDecimalSep, given->lpThousandSep, given->NegativeOrder};
}

struct Number
{
    bool negative = false;
    std::wstring whole;    // without leading zeros, may be empty
    std::wstring fraction; // exactly the wanted digits
};

bool allDigits(std::wstring_view text)
{
    return text.find_first_not_of(L"0123456789") == text.npos;
}

std::optional<Number> rounded(std::wstring_view text, std::size_t digits)
{
    Number number;
    number.negative = text.starts_with(L'-');
    text.remove_prefix(number.negative ? 1 : 0);
    const std::size_t point = std::min(text.find(L'.'), text.size());
    const std::wstring_view whole = text.substr(0, point);
    const std::wstring_view fraction = text.substr(std::min(point + 1, text.size()));
    if (!allDigits(whole) || !allDigits(fraction) || whole.size() + fraction.size() == 0)
    {
        return std::nullopt;
    }
    // All digits in one row, a zero in front to take a carry.
    std::wstring row = L'0' + std::wstring(whole) + std::wstring(fraction.substr(0, digits));
    row.append(digits - std::min(digits, fraction.size()), L'0');
    if (fraction.size() > digits && fraction[digits] >= L'5')
    {
        std::size_t at = row.size() - 1;
        while (row[at] == L'9')
        {
            row[at--] = L'0';
        }
        ++row[at];
    }
    number.fraction = row.substr(row.size() - digits);
    row.resize(row.size() - digits);
    row.erase(0, std::min(row.find_first_not_of(L'0'), row.size()));
    number.whole = std::move(row);
    number.negative =
        number.negative && (!number.whole.empty() || number.fraction.find_first_not_of(L'0') != number.fraction.npos);
    return number;
}

std::wstring grouped(const std::wstring& whole, const Format& format)
{
    // 32 stands for a first group of three and groups of two behind it.
    const std::size_t last = format.grouping == 32 ? 3 : format.grouping;
    const std::size_t others = format.grouping == 32 ? 2 : format.grouping;
    std::wstring result;
    for (std::size_t at = 0; at < whole.size(); ++at)
    {
        const std::size_t behind = whole.size() - at;
        if (at > 0 && last > 0 && behind >= last && (behind - last) % others == 0)
        {
            result += format.thousands;
        }
        result += whole[at];
    }
    return result;
}

std::wstring signedText(const std::wstring& text, UINT order)
{
    switch (order)
    {
    case 0:
        return L'(' + text + L')';
    case 1:
        return L'-' + text;
    case 2:
        return L"- " + text;
    case 3:
        return text + L'-';
    default:
        return text + L" -";
    }
}

std::wstring formatted(const Number& number, const Format& format)
{
    std::wstring text = grouped(number.whole, format);
    if (text.empty() && (format.leadingZero != 0 || number.fraction.empty()))
    {
        text = L"0";
    }
    if (!number.fraction.empty())
    {
        text += format.decimal + number.fraction;
    }
    return number.negative ? signedText(text, format.negativeOrder) : text;
}

// ---- The environment ---------------------------------------------------------------------------------------------------

std::string hostName()
{
    char name[HOST_NAME_MAX + 1] = {};
    gethostname(name, HOST_NAME_MAX);
    return name;
}

std::optional<std::string> windowsVariable(const std::wstring& foldedName)
{
    if (foldedName == L"USERPROFILE")
    {
        return homeFolder();
    }
    if (foldedName == L"APPDATA")
    {
        return baseFolder("XDG_CONFIG_HOME", ".config");
    }
    if (foldedName == L"LOCALAPPDATA")
    {
        return baseFolder("XDG_DATA_HOME", ".local/share");
    }
    if (foldedName == L"TEMP" || foldedName == L"TMP")
    {
        const char* const folder = std::getenv("TMPDIR");
        return folder != nullptr && *folder != '\0' ? folder : "/tmp";
    }
    if (foldedName == L"USERNAME")
    {
        const passwd* const user = getpwuid(getuid());
        return user == nullptr ? std::nullopt : std::optional<std::string>(user->pw_name);
    }
    if (foldedName == L"COMPUTERNAME")
    {
        return hostName();
    }
    return std::nullopt;
}

std::optional<std::string> variable(std::wstring_view name)
{
    // The environment would take the beginning of a value for a part of the name.
    if (name.find(L'=') != name.npos)
    {
        return std::nullopt;
    }
    if (const char* const value = std::getenv(toUtf8(name).c_str()))
    {
        return value;
    }
    const std::wstring wanted = folded(name);
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry)
    {
        const std::string_view text = *entry;
        const std::size_t equals = text.find('=');
        if (equals != text.npos && folded(fromUtf8(text.substr(0, equals))) == wanted)
        {
            return std::string(text.substr(equals + 1));
        }
    }
    return windowsVariable(wanted);
}

} // namespace

int SystemService::GetNumberFormatW(LCID, DWORD dwFlags, const wchar_t* lpValue, const NUMBERFMTW* lpFormat,
                                    wchar_t* lpNumberStr, int cchNumber)
try
{
    const std::optional<Format> format = formatOf(lpFormat, dwFlags);
    const std::optional<Number> number = format && lpValue != nullptr ? rounded(lpValue, format->digits) : std::nullopt;
    if (!number || cchNumber < 0 || (cchNumber > 0 && lpNumberStr == nullptr))
    {
        errno = ERROR_INVALID_PARAMETER;
        return 0;
    }
    const std::wstring text = formatted(*number, *format);
    const int needed = static_cast<int>(text.size() + 1);
    if (cchNumber == 0)
    {
        return needed;
    }
    if (cchNumber < needed)
    {
        errno = ERROR_INSUFFICIENT_BUFFER;
        return 0;
    }
    std::wmemcpy(lpNumberStr, text.c_str(), text.size() + 1);
    return needed;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

std::wstring SystemService::ExpandEnvironmentStringsW(const std::wstring& text)
{
    std::wstring result;
    for (std::size_t at = 0; at < text.size();)
    {
        const std::size_t end = text[at] == L'%' ? text.find(L'%', at + 1) : text.npos;
        const std::optional<std::string> value =
            end == text.npos ? std::nullopt : variable(std::wstring_view(text).substr(at + 1, end - at - 1));
        if (value)
        {
            result += fromUtf8(*value);
            at = end + 1;
        }
        else
        {
            // What is no variable stays; its closing percent sign may open the next.
            result += text[at++];
        }
    }
    return result;
}

} // namespace kest::host
