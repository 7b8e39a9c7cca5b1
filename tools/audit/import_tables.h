// The import tables of a Windows program or DLL.
#pragma once

#include "audit/requirement.h"

#include <llvm/Object/COFF.h>

namespace kest::audit
{

// What the image imports, delayed imports included; an error says what is damaged.
llvm::Expected<std::vector<Need>> readImports(const llvm::object::COFFObjectFile& image);

} // namespace kest::audit
