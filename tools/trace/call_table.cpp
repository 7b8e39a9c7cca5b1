#include "trace/call_table.h"

#include <algorithm>
#include <cstring>

namespace kest::trace
{

namespace
{

// Offset 0 stands for "none", so that text begins at 1.
std::uint32_t addText(CallTable& table, std::string_view text)
{
    const std::size_t needed = text.size() + 1;
    if (needed > CallTable::text_capacity / 2)
    {
        return 0;
    }
    const std::uint32_t offset = 1 + table.text_used.fetch_add(static_cast<std::uint32_t>(needed));
    if (offset + needed > CallTable::text_capacity)
    {
        table.text_used.fetch_sub(static_cast<std::uint32_t>(needed));
        return 0;
    }
    std::memcpy(table.text.data() + offset, text.data(), text.size());
    return offset;
}

} // namespace

std::string_view CallTable::textAt(std::uint32_t offset) const
{
    if (offset >= text_capacity)
    {
        return {};
    }
    const char* begin = text.data() + offset;
    return {begin, strnlen(begin, text_capacity - offset)};
}

std::uint32_t CallTable::entryCount() const
{
    return std::min<std::uint32_t>(entries_used.load(), entry_capacity);
}

std::optional<std::uint32_t> CallTable::add(std::string_view symbol, std::string_view module, Reach reach)
{
    const std::uint32_t symbol_offset = addText(*this, symbol);
    const std::uint32_t module_offset = addText(*this, module);
    if (symbol_offset == 0 || module_offset == 0)
    {
        return std::nullopt;
    }
    const std::uint32_t index = entries_used.fetch_add(1);
    if (index >= entry_capacity)
    {
        entries_used.store(entry_capacity);
        return std::nullopt;
    }
    entries[index].module = module_offset;
    entries[index].reach = reach;
    entries[index].symbol.store(symbol_offset, std::memory_order_release);
    return index;
}

} // namespace kest::trace
