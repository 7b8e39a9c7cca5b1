// The system's error numbers by their names on Windows.
#pragma once

namespace kest::common
{

// The ERROR_* code of one of errno's values; ERROR_GEN_FAILURE for those that have none of their own.
int windowsErrorOf(int systemError);

} // namespace kest::common
