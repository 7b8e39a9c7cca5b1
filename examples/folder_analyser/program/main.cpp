// The folder analyser: loads its plug-ins, hands them the files it is given and prints what they found.
#include "program/command_line.h"
#include "program/file_content.h"
#include "program/file_list.h"
#include "program/plugin_set.h"
#include "program/problems.h"
#include "program/report.h"
#include "program/settings.h"
#include "support/date.h"
#include "support/text.h"

#include <shlwapi.h>

#include <cstdio>

namespace
{

constexpr int statusDone = 0;
constexpr int statusProblems = 1;
constexpr int statusBadCommandLine = 2;

std::wstring programFolder()
{
    std::vector<wchar_t> path(4096);
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size() - 1));
    PathRemoveFileSpecW(path.data());
    return path.data();
}

// The absolute path of what is there; other names as they are.
std::wstring fullPath(const std::wstring& path)
{
    std::vector<wchar_t> full(4096);
    const bool known = GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES &&
                       GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr) != 0;
    return known ? full.data() : path;
}

// The extension in lower case, dot included.
std::wstring typeOf(const std::wstring& path)
{
    std::wstring type = PathFindExtensionW(path.c_str());
    CharLowerW(type.data());
    return type.empty() ? L"(none)" : type;
}

std::vector<std::wstring> fullPaths(const std::vector<std::wstring>& paths)
{
    std::vector<std::wstring> result;
    for (const std::wstring& path : paths)
    {
        result.push_back(fullPath(path));
    }
    return result;
}

std::wstring joinedList(const std::vector<std::wstring>& items)
{
    std::wstring result;
    for (const std::wstring& item : items)
    {
        result += (result.empty() ? L"" : L", ") + item;
    }
    return result.empty() ? L"none" : result;
}

// Hands each file that can be read to the plug-ins; returns the bytes read.
unsigned long long analyseFiles(const FileList& list, const PluginSet& plugins, Problems& problems)
{
    unsigned long long allBytes = 0;
    std::vector<unsigned char> bytes;
    for (const FoundFile& file : list.files)
    {
        if (!readWholeFile(file.path, bytes))
        {
            problems.add(L"file \"" + file.shown + L"\" cannot be read");
            continue;
        }
        const std::wstring type = typeOf(file.path);
        plugins.analyse({file.shown.c_str(), type.c_str(), file.lastWrite, bytes.data(), bytes.size()});
        allBytes += bytes.size();
    }
    return allBytes;
}

void reportOverview(Report& report, const CommandLine& commandLine, const FileList& list, unsigned long long bytes,
                    DWORD milliseconds, const PluginSet& plugins)
{
    report.title(L"Folder analysis");
    report.line((L"Analysed  " + joinedList(fullPaths(commandLine.paths))).c_str());
    report.line((L"Contents  " + text::counted(list.files.size(), L"file") + L" in " +
                 text::counted(list.folders, L"folder") + L", " + text::counted(bytes, L"byte"))
                    .c_str());
    if (list.links + list.devices > 0)
    {
        report.line(
            (L"Left out  " + text::counted(list.links, L"link") + L", " + text::counted(list.devices, L"device"))
                .c_str());
    }
    SYSTEMTIME now;
    GetLocalTime(&now);
    report.line((L"Written   " + dateText(now) + L", after " + text::grouped(milliseconds) + L" ms").c_str());
    report.line((L"Plug-ins  " + joinedList(plugins.names())).c_str());
}

void reportProblems(Report& report, const Problems& problems)
{
    if (problems.all().empty())
    {
        return;
    }
    report.heading(L"Problems");
    for (const std::wstring& problem : problems.all())
    {
        report.line(problem.c_str());
    }
}

bool print(std::FILE* stream, const std::wstring& text)
{
    return std::fputs(text::toUtf8(text).c_str(), stream) >= 0 && std::fflush(stream) == 0;
}

int analyse(const CommandLine& commandLine)
{
    const DWORD started = GetTickCount();
    const std::wstring beside = programFolder();
    const std::wstring settingsFile =
        commandLine.settingsFile.empty() ? beside + L"/FolderAnalyser.ini" : fullPath(commandLine.settingsFile);
    Problems problems;
    if (!commandLine.settingsFile.empty() && GetFileAttributesW(settingsFile.c_str()) == INVALID_FILE_ATTRIBUTES)
    {
        problems.add(L"settings file \"" + commandLine.settingsFile + L"\" is not there");
    }
    const Settings settings = readSettings(settingsFile);

    const PluginSet plugins(commandLine.pluginFolder.empty() ? beside : commandLine.pluginFolder,
                            commandLine.plugins.empty() ? settings.plugins : commandLine.plugins, problems);
    plugins.start({settingsFile.c_str(), commandLine.topEntries > 0 ? commandLine.topEntries : settings.topEntries});

    const FileList list = listFiles(commandLine.paths, settings.skippedFolders, problems);
    const unsigned long long bytes = analyseFiles(list, plugins, problems);

    Report report;
    reportOverview(report, commandLine, list, bytes, GetTickCount() - started, plugins);
    plugins.report(report);
    reportProblems(report, problems);

    const bool toFile = !commandLine.reportFile.empty();
    if (toFile ? !writeWholeFile(commandLine.reportFile, text::toUtf8(report.text())) : !print(stdout, report.text()))
    {
        problems.add(L"the report cannot be written" + (toFile ? L" to \"" + commandLine.reportFile + L"\"" : L""));
    }
    return problems.all().empty() ? statusDone : statusProblems;
}

} // namespace

extern "C" int wmain(int argc, wchar_t** argv)
{
    CommandLine commandLine;
    std::wstring problem;
    if (!parseCommandLine(argc, argv, commandLine, problem))
    {
        print(stderr, L"FolderAnalyser: " + problem + L"\n" + usage);
        return statusBadCommandLine;
    }
    if (commandLine.help)
    {
        return print(stdout, usage) ? statusDone : statusProblems;
    }
    return analyse(commandLine);
}
