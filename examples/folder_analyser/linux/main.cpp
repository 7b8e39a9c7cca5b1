// Starts the folder analyser on Linux: sets the locale, installs the host and calls the program's own entry point.
#include "linux/host.h"
#include "linux/narrow_text.h"

#include <clocale>
#include <cstring>
#include <langinfo.h>
#include <vector>

extern "C" int wmain(int argc, wchar_t** argv);

namespace
{

// The library converts names through the locale, and names are UTF-8 wherever this program runs.
void setUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0)
    {
        std::setlocale(LC_ALL, "C.UTF-8");
    }
}

} // namespace

int main(int argc, char** argv)
{
    setUtf8Locale();

    static Host host;
    setPlatformServices(&host);

    std::vector<std::wstring> arguments;
    for (int place = 0; place < argc; ++place)
    {
        arguments.push_back(widened(argv[place]));
    }
    std::vector<wchar_t*> wideArguments;
    for (std::wstring& argument : arguments)
    {
        wideArguments.push_back(argument.data());
    }
    wideArguments.push_back(nullptr);
    return wmain(argc, wideArguments.data());
}
