// The loaded plug-ins.
#pragma once

#include "analyser.h"
#include "program/problems.h"
#include "program/report.h"

#include <string>
#include <vector>

class PluginSet
{
public:
    // Loads what can be loaded; the rest becomes problems.
    PluginSet(const std::wstring& folder, const std::vector<std::wstring>& names, Problems& problems);
    ~PluginSet();
    PluginSet(const PluginSet&) = delete;
    PluginSet& operator=(const PluginSet&) = delete;

    std::vector<std::wstring> names() const;
    void start(const AnalyserSettings& settings) const;
    void analyse(const AnalysedFile& file) const;
    void report(Report& report) const;

private:
    struct Plugin
    {
        std::wstring name;
        HMODULE module;
        AnalyserTitleFunction title;
        AnalyserStartFunction start;
        AnalyseFileFunction analyse;
        ReportFindingsFunction report;
    };

    void load(const std::wstring& name, const std::wstring& folder, Problems& problems);

    std::vector<Plugin> plugins_;
};
