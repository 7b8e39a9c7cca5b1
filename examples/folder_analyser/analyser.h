// What the folder analyser and its plug-ins know of each other.
//
// A plug-in is a module that exports the four functions below. The program loads it by its Windows name, finds the
// functions with GetProcAddress, calls AnalyserStart once, AnalyseFile for each file and ReportFindings at the end.
#pragma once

#include <windows.h>

#include <cstddef>

#define ANALYSER_EXPORT extern "C" __declspec(dllexport)

// One file. Everything belongs to the program and lasts for the call only.
struct AnalysedFile
{
    const wchar_t* path; // as the report shows it
    const wchar_t* type; // the extension in lower case with its dot, or "(none)"
    FILETIME lastWrite;
    const unsigned char* bytes;
    std::size_t size;
};

struct AnalyserSettings
{
    const wchar_t* file;    // the settings file, where a plug-in keeps its own section
    std::size_t topEntries; // how many entries a list shows
};

// The report, as far as a plug-in writes it. A column whose title begins with '>' is aligned to the right.
class IReport
{
public:
    virtual void line(const wchar_t* text) = 0;
    virtual void beginTable(const wchar_t* const* titles, std::size_t columns) = 0;
    virtual void row(const wchar_t* const* cells) = 0;
    virtual void totalRow(const wchar_t* const* cells) = 0; // ruled off from the rows above
    virtual void endTable() = 0;

protected:
    ~IReport() = default;
};

using AnalyserTitleFunction = const wchar_t* (*)();
using AnalyserStartFunction = void (*)(const AnalyserSettings* settings);
using AnalyseFileFunction = void (*)(const AnalysedFile* file);
using ReportFindingsFunction = void (*)(IReport* report);
