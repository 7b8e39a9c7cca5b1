// Names as object files and import tables have them, and the plain names behind them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kest::audit
{

// The plain name behind a symbol of a Windows object file: without the import prefix, and for 32-bit x86 without the
// decorations of its calling conventions ("__imp__CreateFileW@28" is CreateFileW there).
std::string plainName(std::string_view symbol, bool is_x86);

// The name behind an import by number, for the DLLs whose numbers are part of their interface; else "#12".
std::string ordinalName(std::string_view module, std::uint32_t ordinal);

// A DLL that holds a C or C++ runtime library.
bool isRuntimeModule(std::string_view module);

// Names that the Windows compilers, their startup code and the inner workings of their headers bring in: no source
// names them, and they are gone when the source is compiled here.
bool isCompilerSupport(std::string_view symbol);

// Names that the linker of Linux and the start-up files that it adds define, whatever is linked.
bool isLinkersOwn(std::string_view symbol);

// A module's name for comparison.
std::string lowerCase(std::string_view name);

} // namespace kest::audit
