// What the loader's data about a module tells: whether it is a library whose exports are counted, and which exports
// it holds by address.
#pragma once

#include "tables/export_table.h"

#include <algorithm>
#include <link.h>
#include <span>
#include <string_view>

namespace kest::trace
{

#if defined(__x86_64__)
inline constexpr unsigned plt_slot = R_X86_64_JUMP_SLOT;
#elif defined(__aarch64__)
inline constexpr unsigned plt_slot = R_AARCH64_JUMP_SLOT;
#endif

class ModuleScan
{
public:
    explicit ModuleScan(const link_map& module);

    bool isExportingLibrary() const;

    // Calls `found` with each export that the module refers to by relocations that the loader does not report as
    // bindings: function pointers, and calls compiled without a PLT.
    template <typename Found>
    void forEachAddressHeld(const Found& found) const
    {
        for (const Elf64_Rela& relocation : relocations_)
        {
            const std::size_t index = ELF64_R_SYM(relocation.r_info);
            if (index == 0 || symbols_[index].st_shndx != SHN_UNDEF || ELF64_R_TYPE(relocation.r_info) == plt_slot)
            {
                continue;
            }
            const char* symbol = strings_ + symbols_[index].st_name;
            const tools::Export* row = tools::findExport(symbol);
            if (row != nullptr && row->kind != tools::Kind::variable)
            {
                found(std::string_view(symbol));
            }
        }
    }

private:
    const char* strings_ = nullptr;
    const Elf64_Sym* symbols_ = nullptr;
    std::span<const Elf64_Rela> relocations_; // empty without the tables that they refer to
    std::string_view soname_;
};

} // namespace kest::trace
