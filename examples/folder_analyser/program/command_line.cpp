#include "program/command_line.h"

#include <windows.h>

#include <cstdlib>

const wchar_t* const usage =
    L"usage: FolderAnalyser [option]... path...\n"
    L"Reports on the files in the folders and on the files given.\n"
    L"\n"
    L"  --plugin NAME           use this plug-in (may be repeated; else those of the settings)\n"
    L"  --plugin-folder FOLDER  look for plug-ins here (else beside the program)\n"
    L"  --settings FILE         read these settings (else FolderAnalyser.ini beside the program)\n"
    L"  --report FILE           write the report to a file (else to standard output)\n"
    L"  --top NUMBER            show so many entries of each list, 1 to 9999\n"
    L"  --help                  show this help\n"
    L"\n"
    L"Exit status: 0 all done, 1 something could not be done, 2 bad command line.\n";

namespace
{

// The number from 1 to 9999 that the text spells, else 0.
std::size_t smallNumber(const std::wstring& text)
{
    const bool digits = text.find_first_not_of(L"0123456789") == std::wstring::npos;
    return digits && text.size() <= 4 ? static_cast<std::size_t>(_wtoi(text.c_str())) : 0;
}

// Walks through the arguments.
class Parser
{
public:
    Parser(int argc, wchar_t** argv, CommandLine& commandLine) : rest_(argv + 1, argv + argc), out_(commandLine) {}

    bool parse(std::wstring& problem)
    {
        bool optionsEnded = false;
        while (place_ < rest_.size() && problem_.empty())
        {
            const std::wstring argument = rest_[place_++];
            if (optionsEnded || argument.size() < 2 || argument[0] != L'-')
            {
                path(argument);
            }
            else if (argument == L"--")
            {
                optionsEnded = true;
            }
            else
            {
                option(argument);
            }
        }
        if (problem_.empty() && out_.paths.empty() && !out_.help)
        {
            problem_ = L"no folder or file given";
        }
        problem = problem_;
        return problem.empty();
    }

private:
    void path(const std::wstring& argument)
    {
        if (argument.empty())
        {
            problem_ = L"a path is empty";
        }
        out_.paths.push_back(argument);
    }

    void option(const std::wstring& name)
    {
        if (name == L"--help")
        {
            out_.help = true;
        }
        else if (name == L"--plugin")
        {
            out_.plugins.push_back(value(name));
        }
        else if (name == L"--plugin-folder")
        {
            out_.pluginFolder = value(name);
        }
        else if (name == L"--settings")
        {
            out_.settingsFile = value(name);
        }
        else if (name == L"--report")
        {
            out_.reportFile = value(name);
        }
        else if (name == L"--top")
        {
            const std::wstring number = value(name);
            out_.topEntries = smallNumber(number);
            if (problem_.empty() && out_.topEntries == 0)
            {
                problem_ = L"\"" + number + L"\" is no number from 1 to 9999";
            }
        }
        else
        {
            problem_ = L"unknown option \"" + name + L"\"";
        }
    }

    std::wstring value(const std::wstring& name)
    {
        if (place_ == rest_.size() || rest_[place_].empty())
        {
            problem_ = L"option \"" + name + L"\" needs a value";
            return {};
        }
        return rest_[place_++];
    }

    std::vector<std::wstring> rest_;
    CommandLine& out_;
    std::size_t place_ = 0;
    std::wstring problem_;
};

} // namespace

bool parseCommandLine(int argc, wchar_t** argv, CommandLine& commandLine, std::wstring& problem)
{
    return Parser(argc, argv, commandLine).parse(problem);
}
