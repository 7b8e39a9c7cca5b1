#include "kest/companions/automation.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace
{

// The length stands in the last four bytes of this room, so that the text has the alignment of what malloc gives.
constexpr std::size_t prefix = 2 * sizeof(std::uint64_t);

char* blockOf(BSTR string)
{
    return reinterpret_cast<char*>(string) - prefix;
}

std::uint32_t sizeOf(BSTR string)
{
    std::uint32_t size = 0;
    std::memcpy(&size, reinterpret_cast<const char*>(string) - sizeof size, sizeof size);
    return size;
}

// A string of `size` bytes, terminated, its bytes unspecified; null when it cannot be had.
BSTR allocate(std::uint64_t size)
{
    if (size > UINT_MAX)
        return nullptr;
    const int lastError = errno;
    auto* const block = static_cast<char*>(std::malloc(prefix + size + sizeof(OLECHAR)));
    errno = lastError;
    if (block == nullptr)
        return nullptr;
    const auto length = static_cast<std::uint32_t>(size);
    std::memcpy(block + prefix - sizeof length, &length, sizeof length);
    std::memset(block + prefix + size, 0, sizeof(OLECHAR));
    return reinterpret_cast<BSTR>(block + prefix);
}

BSTR copyOf(const void* bytes, std::uint64_t size)
{
    const BSTR string = allocate(size);
    if (string != nullptr && bytes != nullptr && size != 0)
        std::memcpy(string, bytes, size);
    return string;
}

// Releases the old string last: the new text may be part of it.
INT replace(BSTR* string, BSTR replacement)
{
    SysFreeString(*string);
    *string = replacement;
    return TRUE;
}

} // namespace

BSTR SysAllocString(const OLECHAR* text)
{
    return text == nullptr ? nullptr : copyOf(text, std::wcslen(text) * sizeof(OLECHAR));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    return copyOf(text, length * std::uint64_t{sizeof(OLECHAR)});
}

BSTR SysAllocStringByteLen(const char* bytes, UINT size)
{
    return copyOf(bytes, size);
}

INT SysReAllocString(BSTR* string, const OLECHAR* text)
{
    if (string == nullptr)
        return FALSE;
    const BSTR replacement = SysAllocString(text);
    return replacement == nullptr && text != nullptr ? FALSE : replace(string, replacement);
}

INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length)
{
    if (string == nullptr)
        return FALSE;
    const BSTR replacement = SysAllocStringLen(text, length);
    if (replacement == nullptr)
        return FALSE;
    if (text == nullptr && *string != nullptr)
        std::memcpy(replacement, *string, std::min(sizeOf(*string), sizeOf(replacement)));
    return replace(string, replacement);
}

void SysFreeString(BSTR string)
{
    if (string != nullptr)
        std::free(blockOf(string));
}

UINT SysStringLen(BSTR string)
{
    return SysStringByteLen(string) / static_cast<UINT>(sizeof(OLECHAR));
}

UINT SysStringByteLen(BSTR string)
{
    return string == nullptr ? 0 : sizeOf(string);
}
