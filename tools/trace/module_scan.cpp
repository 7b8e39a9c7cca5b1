#include "trace/module_scan.h"

namespace kest::trace
{

ModuleScan::ModuleScan(const link_map& module)
{
    // The loader has turned most of these offsets into addresses, but not those of a read-only dynamic section.
    const auto address = [&module](const ElfW(Dyn) & entry)
    {
        const std::uintptr_t value = entry.d_un.d_ptr;
        return value < module.l_addr ? value + module.l_addr : value;
    };
    const Elf64_Rela* relocations = nullptr;
    std::size_t size = 0;
    std::size_t soname = 0;
    for (const ElfW(Dyn)* entry = module.l_ld; entry != nullptr && entry->d_tag != DT_NULL; ++entry)
    {
        switch (entry->d_tag)
        {
        case DT_STRTAB:
            strings_ = reinterpret_cast<const char*>(address(*entry));
            break;
        case DT_SYMTAB:
            symbols_ = reinterpret_cast<const Elf64_Sym*>(address(*entry));
            break;
        case DT_RELA:
            relocations = reinterpret_cast<const Elf64_Rela*>(address(*entry));
            break;
        case DT_RELASZ:
            size = entry->d_un.d_val;
            break;
        case DT_SONAME:
            soname = entry->d_un.d_val;
            break;
        default:
            break;
        }
    }
    if (relocations != nullptr && strings_ != nullptr && symbols_ != nullptr)
    {
        relocations_ = {relocations, size / sizeof(Elf64_Rela)};
    }
    if (strings_ != nullptr && soname != 0)
    {
        soname_ = strings_ + soname;
    }
}

bool ModuleScan::isExportingLibrary() const
{
    return std::ranges::find(tools::libraries(), soname_) != tools::libraries().end();
}

} // namespace kest::trace
