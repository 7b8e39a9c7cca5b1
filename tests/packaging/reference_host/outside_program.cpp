// Installs the reference host and asks one of its services through the library.
#include <kest/reference_host.h>
#include <shlwapi.h>

#include <cstdio>

int main()
{
    static KestReferenceHost host;
    setPlatformServices(&host);
    const bool relative = PathIsRelativeW(L"folder/file") != 0 && PathIsRelativeW(L"/folder") == 0;
    std::puts(relative ? "the reference host answers" : "something else answers");
    return relative ? 0 : 1;
}
