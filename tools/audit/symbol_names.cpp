#include "audit/symbol_names.h"

#include <algorithm>
#include <iterator>

namespace kest::audit
{

namespace
{

struct Ordinal
{
    std::string_view module;
    std::uint32_t ordinal;
    std::string_view name;
};

constexpr Ordinal ordinals[] = {
    {"comctl32.dll", 17, "InitCommonControls"},
    {"comctl32.dll", 410, "SetWindowSubclass"},
    {"comctl32.dll", 411, "GetWindowSubclass"},
    {"comctl32.dll", 412, "RemoveWindowSubclass"},
    {"comctl32.dll", 413, "DefSubclassProc"},
    {"oleaut32.dll", 2, "SysAllocString"},
    {"oleaut32.dll", 3, "SysReAllocString"},
    {"oleaut32.dll", 4, "SysAllocStringLen"},
    {"oleaut32.dll", 5, "SysReAllocStringLen"},
    {"oleaut32.dll", 6, "SysFreeString"},
    {"oleaut32.dll", 7, "SysStringLen"},
    {"oleaut32.dll", 8, "VariantInit"},
    {"oleaut32.dll", 9, "VariantClear"},
    {"oleaut32.dll", 10, "VariantCopy"},
    {"oleaut32.dll", 12, "VariantChangeType"},
    {"oleaut32.dll", 149, "SysStringByteLen"},
    {"oleaut32.dll", 150, "SysAllocStringByteLen"},
    {"ws2_32.dll", 1, "accept"},
    {"ws2_32.dll", 2, "bind"},
    {"ws2_32.dll", 3, "closesocket"},
    {"ws2_32.dll", 4, "connect"},
    {"ws2_32.dll", 8, "htonl"},
    {"ws2_32.dll", 9, "htons"},
    {"ws2_32.dll", 10, "ioctlsocket"},
    {"ws2_32.dll", 13, "listen"},
    {"ws2_32.dll", 16, "recv"},
    {"ws2_32.dll", 18, "select"},
    {"ws2_32.dll", 19, "send"},
    {"ws2_32.dll", 21, "setsockopt"},
    {"ws2_32.dll", 22, "shutdown"},
    {"ws2_32.dll", 23, "socket"},
    {"ws2_32.dll", 111, "WSAGetLastError"},
    {"ws2_32.dll", 115, "WSAStartup"},
    {"ws2_32.dll", 116, "WSACleanup"},
};

// Beginnings of names: the runtime's inner formatted output, and getters that its headers call for variables.
constexpr std::string_view support_prefixes[] = {
    "__CxxFrameHandler", "__RT", "__acrt_", "__mingw_", "__p__", "__std_", "__stdio_common_", "__vcrt_",
};

constexpr std::string_view support_names[] = {
    "DelayLoadFailureHook",
    "ResolveDelayLoadedAPI",
    "_CxxThrowException",
    "_XcptFilter",
    "__C_specific_handler",
    "___chkstk_ms",
    "__chkstk",
    "__current_exception",
    "__current_exception_context",
    "__delayLoadHelper2",
    "__dllonexit",
    "__getmainargs",
    "__gxx_personality_seh0",
    "__initenv",
    "__iob_func",
    "__lconv_init",
    "__main",
    "__security_check_cookie",
    "__security_cookie",
    "__security_init_cookie",
    "__set_app_type",
    "__setusermatherr",
    "__wgetmainargs",
    "__winitenv",
    "_acmdln",
    "_adjust_fdiv",
    "_amsg_exit",
    "_assert",
    "_c_exit",
    "_cexit",
    "_commode",
    "_configthreadlocale",
    "_configure_narrow_argv",
    "_configure_wide_argv",
    "_crt_at_quick_exit",
    "_crt_atexit",
    "_errno",
    "_except_handler3",
    "_except_handler4_common",
    "_execute_onexit_table",
    "_fltused",
    "_fmode",
    "_get_initial_narrow_environment",
    "_get_initial_wide_environment",
    "_get_narrow_winmain_command_line",
    "_get_wide_winmain_command_line",
    "_initialize_narrow_environment",
    "_initialize_onexit_table",
    "_initialize_wide_environment",
    "_initterm",
    "_initterm_e",
    "_iob",
    "_lock",
    "_onexit",
    "_purecall",
    "_register_onexit_function",
    "_register_thread_local_exe_atexit_callback",
    "_seh_filter_dll",
    "_seh_filter_exe",
    "_set_app_type",
    "_set_fmode",
    "_set_new_mode",
    "_unlock",
    "_wassert",
    "_wcmdln",
};

bool startsWithAny(std::string_view name, std::initializer_list<std::string_view> beginnings)
{
    return std::ranges::any_of(beginnings, [name](std::string_view text) { return name.starts_with(text); });
}

// The bytes of arguments that some calling conventions append: "@28".
std::string_view withoutArgumentSize(std::string_view name)
{
    const std::size_t at = name.rfind('@');
    const bool digits = at != std::string_view::npos && at != 0 && at + 1 < name.size() &&
                        std::ranges::all_of(name.substr(at + 1), [](char c) { return c >= '0' && c <= '9'; });
    return digits ? name.substr(0, at) : name;
}

} // namespace

std::string plainName(std::string_view symbol, bool is_x86)
{
    constexpr std::string_view import_prefix = "__imp_";
    if (symbol.starts_with(import_prefix))
    {
        symbol.remove_prefix(import_prefix.size());
    }
    if (is_x86 && !symbol.starts_with('?'))
    {
        symbol = withoutArgumentSize(symbol);
        symbol.remove_prefix(symbol.starts_with('_') || symbol.starts_with('@') ? 1 : 0);
    }
    return std::string(symbol);
}

std::string ordinalName(std::string_view module, std::uint32_t ordinal)
{
    const std::string name = lowerCase(module);
    const auto* known = std::ranges::find_if(ordinals, [&](const Ordinal& row)
                                             { return row.module == name && row.ordinal == ordinal; });
    return known != std::end(ordinals) ? std::string(known->name) : "#" + std::to_string(ordinal);
}

bool isRuntimeModule(std::string_view module)
{
    const std::string name = lowerCase(module);
    return startsWithAny(name, {"msvcr", "msvcp", "ucrtbase", "vcruntime", "concrt", "api-ms-win-crt-", "crtdll.",
                                "ntdll.", "libgcc", "libstdc++", "libwinpthread"});
}

bool isCompilerSupport(std::string_view symbol)
{
    return std::ranges::binary_search(support_names, symbol) ||
           std::ranges::any_of(support_prefixes, [symbol](std::string_view text) { return symbol.starts_with(text); });
}

bool isLinkersOwn(std::string_view symbol)
{
    constexpr std::string_view names[] = {
        "_DYNAMIC",     "_GLOBAL_OFFSET_TABLE_", "__bss_start", "__dso_handle",
        "__ehdr_start", "__executable_start",    "_edata",      "_end",
        "_etext",
    };
    return std::ranges::find(names, symbol) != std::end(names) || symbol.starts_with("__start_") ||
           symbol.starts_with("__stop_");
}

std::string lowerCase(std::string_view name)
{
    std::string result(name);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

static_assert(std::ranges::is_sorted(support_names));

} // namespace kest::audit
