// A program built against a header that left the table of loaded modules out of its extern "C" block: it knows the
// variable by its encoded name alone, and may have a copy of it in its own data.
#include <cstdio>
#include <dlfcn.h>
#include <map>
#include <string>

struct HINSTANCE__;

struct ModuleInfo
{
    unsigned int count;
    HINSTANCE__* handle;
};

extern std::map<std::string, ModuleInfo> g_loadedModuleMap;
extern "C" HINSTANCE__* LoadLibraryW(const wchar_t* name);

int main()
{
    HINSTANCE__* const program = LoadLibraryW(L"");
    const bool shared = g_loadedModuleMap.size() == 1 && g_loadedModuleMap.begin()->second.handle == program &&
                        dlsym(RTLD_DEFAULT, "g_loadedModuleMap") == &g_loadedModuleMap;
    std::puts(shared ? "one table" : "two tables");
}
