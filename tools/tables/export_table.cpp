#include "tables/export_table.h"

#include <algorithm>

namespace kest::tools
{

const Export* findExport(std::string_view symbol)
{
    const auto rows = exports();
    const auto row = std::ranges::lower_bound(rows, symbol, {}, &Export::symbol);
    return row != rows.end() && row->symbol == symbol ? &*row : nullptr;
}

std::string_view kindName(Kind kind)
{
    switch (kind)
    {
    case Kind::variable:
        return "variable";
    case Kind::local:
        return "local";
    case Kind::forward:
        return "forward";
    case Kind::checked_forward:
        return "checked forward";
    case Kind::fixed_result:
        return "fixed result";
    case Kind::ends_the_process:
        return "ends the process";
    }
    return {};
}

} // namespace kest::tools
