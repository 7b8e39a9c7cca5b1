#include "value_text.h"

#include "failure.h"
#include "kest/registry.h"
#include "registry_store.h"

#include <cstring>
#include <optional>
#include <utility>

using namespace kest::host;

namespace
{

// The first name of a number is the one shown.
constexpr std::pair<std::wstring_view, std::uint32_t> types[] = {
    {L"REG_NONE", REG_NONE},
    {L"REG_SZ", REG_SZ},
    {L"REG_EXPAND_SZ", REG_EXPAND_SZ},
    {L"REG_BINARY", REG_BINARY},
    {L"REG_DWORD", REG_DWORD},
    {L"REG_DWORD_LITTLE_ENDIAN", REG_DWORD_LITTLE_ENDIAN},
    {L"REG_DWORD_BIG_ENDIAN", REG_DWORD_BIG_ENDIAN},
    {L"REG_LINK", REG_LINK},
    {L"REG_MULTI_SZ", REG_MULTI_SZ},
    {L"REG_RESOURCE_LIST", REG_RESOURCE_LIST},
    {L"REG_FULL_RESOURCE_DESCRIPTOR", REG_FULL_RESOURCE_DESCRIPTOR},
    {L"REG_RESOURCE_REQUIREMENTS_LIST", REG_RESOURCE_REQUIREMENTS_LIST},
    {L"REG_QWORD", REG_QWORD},
    {L"REG_QWORD_LITTLE_ENDIAN", REG_QWORD_LITTLE_ENDIAN},
};

// Bytes of a number's type; 0 for other types.
std::size_t numberSize(std::uint32_t type)
{
    return type == REG_DWORD || type == REG_DWORD_BIG_ENDIAN ? 4 : type == REG_QWORD ? 8 : 0;
}

std::size_t place(std::uint32_t type, std::size_t byte)
{
    return type == REG_DWORD_BIG_ENDIAN ? 3 - byte : byte;
}

std::wstring hexadecimal(std::uint64_t number)
{
    std::wstring digits;
    do
    {
        digits.insert(digits.begin(), L"0123456789abcdef"[number & 0xF]);
        number >>= 4;
    } while (number != 0);
    return L"0x" + digits;
}

std::wstring hexadecimal(std::span<const unsigned char> data)
{
    std::wstring digits;
    for (const unsigned char byte : data)
    {
        digits += L"0123456789ABCDEF"[byte >> 4];
        digits += L"0123456789ABCDEF"[byte & 0xF];
    }
    return digits;
}

std::wstring charactersOf(std::span<const unsigned char> data)
{
    std::wstring text(data.size() / sizeof(wchar_t), L'\0');
    if (!data.empty())
    {
        std::memcpy(text.data(), data.data(), data.size());
    }
    text.erase(text.find_last_not_of(L'\0') + 1);
    return text;
}

std::optional<unsigned> digit(wchar_t character)
{
    const std::size_t value = std::wstring_view(L"0123456789ABCDEF").find(folded({&character, 1}));
    return value == std::wstring_view::npos ? std::nullopt : std::optional(static_cast<unsigned>(value));
}

// A decimal or, behind 0x, hexadecimal number of so many bytes.
std::optional<std::uint64_t> numberIn(std::wstring_view text, std::size_t bytes)
{
    const bool hex = text.starts_with(L"0x") || text.starts_with(L"0X");
    text.remove_prefix(hex ? 2 : 0);
    const std::uint64_t base = hex ? 16 : 10;
    const std::uint64_t largest = bytes == 8 ? UINT64_MAX : UINT32_MAX;
    std::uint64_t number = 0;
    for (const wchar_t character : text)
    {
        const std::optional<unsigned> next = digit(character);
        if (!next || *next >= base || number > (largest - *next) / base)
        {
            return std::nullopt;
        }
        number = number * base + *next;
    }
    return text.empty() ? std::nullopt : std::optional(number);
}

std::vector<unsigned char> bytesOf(const std::wstring& text)
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    return {bytes, bytes + text.size() * sizeof(wchar_t)};
}

std::wstring listOf(std::wstring_view text, std::wstring_view separator)
{
    std::wstring list;
    while (!text.empty())
    {
        const std::wstring_view item = text.substr(0, text.find(separator));
        if (item.empty())
        {
            throw Failure(L"a list cannot hold an empty text", statusBadCommandLine);
        }
        list.append(item).push_back(L'\0');
        text.remove_prefix(std::min(item.size() + separator.size(), text.size()));
    }
    return list + L'\0';
}

} // namespace

std::wstring typeName(std::uint32_t type)
{
    for (const auto& [name, number] : types)
    {
        if (number == type)
        {
            return std::wstring(name);
        }
    }
    return std::to_wstring(type);
}

std::uint32_t typeNamed(std::wstring_view name)
{
    const std::wstring wanted = folded(name);
    for (const auto& [known, number] : types)
    {
        if (known == wanted)
        {
            return number;
        }
    }
    if (const std::optional<std::uint64_t> number = numberIn(name, 4))
    {
        return static_cast<std::uint32_t>(*number);
    }
    throw Failure(L"\"" + std::wstring(name) + L"\" is no type of value", statusBadCommandLine);
}

std::wstring dataText(std::uint32_t type, std::span<const unsigned char> data)
{
    if (isRegistryText(type) && data.size() % sizeof(wchar_t) == 0)
    {
        std::wstring text = charactersOf(data);
        for (std::size_t at = text.find(L'\0'); at != text.npos; at = text.find(L'\0', at))
        {
            text.replace(at, 1, L"\\0");
        }
        return text;
    }
    if (const std::size_t size = numberSize(type); size != 0 && data.size() == size)
    {
        std::uint64_t number = 0;
        for (std::size_t byte = 0; byte < size; ++byte)
        {
            number |= std::uint64_t{data[place(type, byte)]} << (8 * byte);
        }
        return hexadecimal(number);
    }
    return hexadecimal(data);
}

std::vector<unsigned char> dataOf(std::uint32_t type, std::wstring_view text, std::wstring_view separator)
{
    if (type == REG_MULTI_SZ)
    {
        return bytesOf(listOf(text, separator));
    }
    if (isRegistryText(type))
    {
        return bytesOf(std::wstring(text) + L'\0');
    }
    if (const std::size_t size = numberSize(type); size != 0)
    {
        const std::optional<std::uint64_t> number = numberIn(text.empty() ? L"0" : text, size);
        if (!number)
        {
            throw Failure(L"\"" + std::wstring(text) + L"\" is no number from 0 to " +
                              std::to_wstring(size == 8 ? UINT64_MAX : UINT32_MAX),
                          statusBadCommandLine);
        }
        std::vector<unsigned char> data(size);
        for (std::size_t byte = 0; byte < size; ++byte)
        {
            data[place(type, byte)] = static_cast<unsigned char>(*number >> (8 * byte));
        }
        return data;
    }
    std::vector<unsigned char> data;
    for (std::size_t at = 0; at < text.size(); at += 2)
    {
        const std::optional<unsigned> high = digit(text[at]);
        const std::optional<unsigned> low = at + 1 < text.size() ? digit(text[at + 1]) : std::nullopt;
        if (!high || !low)
        {
            throw Failure(L"\"" + std::wstring(text) + L"\" is no row of bytes with two hexadecimal digits each",
                          statusBadCommandLine);
        }
        data.push_back(static_cast<unsigned char>(*high << 4 | *low));
    }
    return data;
}
