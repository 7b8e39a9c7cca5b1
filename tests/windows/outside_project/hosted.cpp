// Shows what the hub answers and how the locale stands.
#include <kest/platform_services.h>
#include <windows.h>

#include <clocale>
#include <cstdio>
#include <langinfo.h>

int main()
{
    if (platformServices() == nullptr)
    {
        std::printf("no hub\n");
        return 0;
    }
    const unsigned attributes = GetFileAttributesW(L"/");
    std::printf("key %d, root %s, %s, numbers %s\n", GetKeyState(1),
                attributes == INVALID_FILE_ATTRIBUTES ? "unknown" : "known", nl_langinfo(CODESET),
                std::setlocale(LC_NUMERIC, nullptr));
}
