#include "program/plugin_set.h"

#include <algorithm>

namespace
{

// Finds a plug-in's functions and remembers which is missing.
class FunctionFinder
{
public:
    explicit FunctionFinder(HMODULE module) : module_(module) {}

    template <class Function>
    void find(Function& function, const char* name)
    {
        // By way of void*: compilers rightly doubt casts between unlike functions.
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
        if (function == nullptr && missing_.empty())
        {
            missing_ = name;
        }
    }

    const std::string& missing() const { return missing_; }

private:
    HMODULE module_;
    std::string missing_;
};

} // namespace

PluginSet::PluginSet(const std::wstring& folder, const std::vector<std::wstring>& names, Problems& problems)
{
    SetDllDirectoryW(folder.c_str());
    for (const std::wstring& name : names)
    {
        load(name, folder, problems);
    }
}

PluginSet::~PluginSet()
{
    for (const Plugin& plugin : plugins_)
    {
        FreeLibrary(plugin.module);
    }
}

void PluginSet::load(const std::wstring& name, const std::wstring& folder, Problems& problems)
{
    Plugin plugin = {};
    plugin.name = name;
    plugin.module = LoadLibraryW(name.c_str());
    if (plugin.module == nullptr)
    {
        problems.add(L"plug-in \"" + name + L"\" cannot be loaded: there is no such module in \"" + folder +
                     L"\", or it is none");
        return;
    }
    FunctionFinder functions(plugin.module);
    functions.find(plugin.title, "AnalyserTitle");
    functions.find(plugin.start, "AnalyserStart");
    functions.find(plugin.analyse, "AnalyseFile");
    functions.find(plugin.report, "ReportFindings");
    const bool twice = std::any_of(plugins_.begin(), plugins_.end(),
                                   [&](const Plugin& other) { return other.module == plugin.module; });
    if (twice || !functions.missing().empty())
    {
        const std::string& missing = functions.missing();
        problems.add(
            L"plug-in \"" + name + L"\" " +
            (twice ? L"is named twice" : L"has no function \"" + std::wstring(missing.begin(), missing.end()) + L"\""));
        FreeLibrary(plugin.module);
        return;
    }
    plugins_.push_back(plugin);
}

std::vector<std::wstring> PluginSet::names() const
{
    std::vector<std::wstring> names;
    for (const Plugin& plugin : plugins_)
    {
        names.push_back(plugin.name);
    }
    return names;
}

void PluginSet::start(const AnalyserSettings& settings) const
{
    for (const Plugin& plugin : plugins_)
    {
        plugin.start(&settings);
    }
}

void PluginSet::analyse(const AnalysedFile& file) const
{
    for (const Plugin& plugin : plugins_)
    {
        plugin.analyse(&file);
    }
}

void PluginSet::report(Report& report) const
{
    for (const Plugin& plugin : plugins_)
    {
        report.heading(plugin.title() + (L" (" + plugin.name + L")"));
        plugin.report(&report);
    }
}
