// Reads what a file needs and defines, whatever its format.
#pragma once

#include "audit/requirement.h"

#include <string>

namespace kest::audit
{

// Never fails: what cannot be read stands among the problems.
FileContents readFile(const std::string& path);

} // namespace kest::audit
