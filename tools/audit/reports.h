// An audit as text and as JSON.
#pragma once

#include "audit/audit.h"

#include <string>

namespace kest::audit
{

std::string textReport(const Audit& audit);
std::string jsonReport(const Audit& audit);

} // namespace kest::audit
