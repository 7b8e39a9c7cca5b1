// Windows's wildcards.
#pragma once

#include <string_view>

namespace kest::host
{

// Whether a name matches a pattern; both must be folded.
bool matchesWildcard(std::wstring_view name, std::wstring_view pattern);

// Whether every name matches a pattern.
bool matchesEverything(std::wstring_view pattern);

} // namespace kest::host
