#include "plugins/analyser_plugin.h"

namespace
{

std::unique_ptr<AnalyserPlugin> plugin;

} // namespace

// Sets the plug-in up when the module is loaded and clears it away when the module goes.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
    {
        plugin = makePlugin();
    }
    else if (reason == DLL_PROCESS_DETACH)
    {
        plugin.reset();
    }
    return TRUE;
}

ANALYSER_EXPORT const wchar_t* AnalyserTitle()
{
    return plugin->title();
}

ANALYSER_EXPORT void AnalyserStart(const AnalyserSettings* settings)
{
    plugin->start(*settings);
}

ANALYSER_EXPORT void AnalyseFile(const AnalysedFile* file)
{
    plugin->analyse(*file);
}

ANALYSER_EXPORT void ReportFindings(IReport* report)
{
    plugin->report(*report);
}
