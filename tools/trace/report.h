// What kest-trace tells at the end.
#pragma once

#include "trace/call_table.h"

#include <string>

namespace kest::trace
{

// The whole report; `status` is the program's wait status.
std::string report(const CallTable& table, int status);

} // namespace kest::trace
