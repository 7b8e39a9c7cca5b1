// Wide text in the process's encoding, whole.
#pragma once

#include <cstddef>
#include <cwchar>
#include <optional>
#include <string>

namespace kest::companions
{

// Nothing for a text that the locale cannot encode; errno is then EILSEQ.
std::optional<std::string> narrowed(const wchar_t* text);

// Nothing for bytes that the locale cannot convert; errno is then EILSEQ.
std::optional<std::wstring> widened(const char* bytes);

} // namespace kest::companions
