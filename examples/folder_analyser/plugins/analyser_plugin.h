// A plug-in is one class that derives from AnalyserPlugin, and makePlugin, which makes the one object of it.
// plugin_entry.cpp, compiled into each plug-in, exports the functions that the program looks for.
#pragma once

#include "analyser.h"

#include <memory>

class AnalyserPlugin
{
public:
    virtual ~AnalyserPlugin() = default;

    virtual const wchar_t* title() const = 0;
    virtual void start(const AnalyserSettings& settings) { topEntries_ = settings.topEntries; }
    virtual void analyse(const AnalysedFile& file) = 0;
    virtual void report(IReport& report) const = 0;

protected:
    std::size_t topEntries() const { return topEntries_; }

private:
    std::size_t topEntries_ = 0;
};

std::unique_ptr<AnalyserPlugin> makePlugin();
