// The folder analyser: loads its plug-ins, hands them the files it is given and prints what they found.
#include "program/command_line.h"
#include "program/file_content.h"
#include "program/file_list.h"
#include "program/history.h"
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

// "2 files more": what has become of a number.
std::wstring change(unsigned long long before, unsigned long long now, const wchar_t* noun)
{
    return before < now ? text::counted(now - before, noun) + L" more" : text::counted(before - now, noun) + L" fewer";
}

std::wstring changes(const Run& last, const Run& run)
{
    std::vector<std::wstring> parts;
    if (last.files != run.files)
    {
        parts.push_back(change(last.files, run.files, L"file"));
    }
    if (last.folders != run.folders)
    {
        parts.push_back(change(last.folders, run.folders, L"folder"));
    }
    if (last.bytes != run.bytes)
    {
        parts.push_back(change(last.bytes, run.bytes, L"byte"));
    }
    return parts.empty() ? L"no change in number and size" : joinedList(parts);
}

void reportOverview(Report& report, const std::wstring& paths, const FileList& list, const Run& run, const Run& last,
                    DWORD milliseconds, const PluginSet& plugins)
{
    report.title(L"Folder analysis");
    report.line((L"Analysed  " + paths).c_str());
    report.line((L"Contents  " + text::counted(run.files, L"file") + L" in " + text::counted(run.folders, L"folder") +
                 L", " + text::counted(run.bytes, L"byte"))
                    .c_str());
    if (list.links + list.devices > 0)
    {
        report.line(
            (L"Left out  " + text::counted(list.links, L"link") + L", " + text::counted(list.devices, L"device"))
                .c_str());
    }
    report.line((L"Written   " + dateText(run.written) + L", after " + text::grouped(milliseconds) + L" ms").c_str());
    if (last.number > 0)
    {
        report.line((L"Last run  " + dateText(last.written) + L", run " + text::grouped(last.number) +
                     L"; since then " + changes(last, run))
                        .c_str());
    }
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

    const std::wstring paths = joinedList(fullPaths(commandLine.paths));
    const Run last = recallRun(paths);
    Run run = {last.number + 1, list.files.size(), list.folders, bytes, {}};
    GetLocalTime(&run.written);

    Report report;
    reportOverview(report, paths, list, run, last, GetTickCount() - started, plugins);
    plugins.report(report);
    reportProblems(report, problems);

    const bool toFile = !commandLine.reportFile.empty();
    if (toFile ? !writeWholeFile(commandLine.reportFile, text::toUtf8(report.text())) : !print(stdout, report.text()))
    {
        problems.add(L"the report cannot be written" + (toFile ? L" to \"" + commandLine.reportFile + L"\"" : L""));
    }
    else if (!rememberRun(paths, run))
    {
        problems.add(L"the totals cannot be kept for the next run");
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
