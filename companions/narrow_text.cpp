#include "narrow_text.h"

namespace kest::companions
{

std::optional<std::string> narrowed(const wchar_t* text)
{
    std::mbstate_t state{};
    const wchar_t* from = text;
    const std::size_t size = std::wcsrtombs(nullptr, &from, 0, &state);
    if (size == static_cast<std::size_t>(-1))
        return std::nullopt;
    std::string bytes(size, '\0');
    std::wcsrtombs(bytes.data(), &from, size, &state);
    return bytes;
}

std::optional<std::wstring> widened(const char* bytes)
{
    std::mbstate_t state{};
    const char* from = bytes;
    const std::size_t length = std::mbsrtowcs(nullptr, &from, 0, &state);
    if (length == static_cast<std::size_t>(-1))
        return std::nullopt;
    std::wstring text(length, L'\0');
    std::mbsrtowcs(text.data(), &from, length, &state);
    return text;
}

} // namespace kest::companions
