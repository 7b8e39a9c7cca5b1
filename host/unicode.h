// Text of the stores: UTF-8 inside, independent of the program's locale.
#pragma once

#include <string>
#include <string_view>

namespace kest::host
{

// Wide text as UTF-8. Codes that are no characters become U+FFFD.
std::string toUtf8(std::wstring_view text);

// UTF-8 as wide text. Each malformed byte becomes U+FFFD.
std::wstring fromUtf8(std::string_view text);

// UTF-16, low byte first, as wide text, and back. Surrogates without a partner stay as they are; a last odd byte
// does not count.
std::wstring fromUtf16Le(std::string_view bytes);
std::string toUtf16Le(std::wstring_view text);

// Text with each character in upper case, by Unicode's simple mapping: what two names have in common that
// differ in case only.
std::wstring folded(std::wstring_view text);

} // namespace kest::host
