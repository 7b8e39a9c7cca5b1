// Prints what happens to the tables, a module and the hub from before main to the end of the process.
// MODULE_FOLDER names the folder of the test modules.
#include "harness/stub_services.h"
#include "kest/kernel/modules.h"
#include "module/modules/hooks.h"

#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <string>
#include <unistd.h>

namespace
{

// Straight to the descriptor: streams end before the last of this.
void say(const std::string& line)
{
    const std::string text = line + "\n";
    if (write(STDOUT_FILENO, text.data(), text.size()) < 0)
    {
        std::abort();
    }
}

// The heap blocks that the tables own once they are filled.
const char* entryInTable = nullptr;
const char* textOfDirectory = nullptr;

void release(void* block)
{
    const char* const start = static_cast<const char*>(block);
    constexpr std::ptrdiff_t nodeHeader = 64;
    if (entryInTable != nullptr && start <= entryInTable && entryInTable - start < nodeHeader)
    {
        entryInTable = nullptr;
        say("table destroyed");
    }
    if (textOfDirectory != nullptr && start == textOfDirectory)
    {
        textOfDirectory = nullptr;
        say("directory destroyed");
    }
    std::free(block);
}

} // namespace

KEST_API void* operator new(std::size_t size)
{
    void* const block = std::malloc(size);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

KEST_API void operator delete(void* block) noexcept
{
    release(block);
}

KEST_API void operator delete(void* block, std::size_t) noexcept
{
    release(block);
}

void moduleTestDllMain(HMODULE, DWORD reason, LPVOID)
{
    say("DllMain " + std::to_string(reason));
}

void moduleTestConstructed()
{
    say("module constructed");
}

void moduleTestDestroyed()
{
    say("module destroyed");
}

extern "C" KEST_API int observedClose(void* handle) __asm__("dlclose");

int observedClose(void* handle)
{
    say("dlclose");
    return reinterpret_cast<int (*)(void*)>(dlsym(RTLD_NEXT, "dlclose"))(handle);
}

namespace
{

class TellingHub final : public kest::test::StubHub
{
public:
    IWindowService* windowService() override { return told<IWindowService>(); }
    IFileSystemService* fileSystemService() override { return told<IFileSystemService>(); }
    ICursorService* cursorService() override { return told<ICursorService>(); }
    IFontService* fontService() override { return told<IFontService>(); }
    IGraphicsService* graphicsService() override { return told<IGraphicsService>(); }
    IProfileService* profileService() override { return told<IProfileService>(); }
    IDialogService* dialogService() override { return told<IDialogService>(); }
    IRegistryService* registryService() override { return told<IRegistryService>(); }
    ISystemService* systemService() override { return told<ISystemService>(); }
    void reserved1() override { say("hub"); }
    void reserved2() override { say("hub"); }
    void reserved4() override { say("hub"); }
    void reserved12() override { say("hub"); }

private:
    template <class Service>
    Service* told()
    {
        say("hub");
        return nullptr;
    }
};

TellingHub hub;

// Constructed before main, destroyed after it.
struct AroundMain
{
    AroundMain()
    {
        say(KestPlatformCStringManager::m_pInstance == nullptr ? "nothing reported" : "reported already");
        say("entries: " + std::to_string(g_loadedModuleMap.size()));
        say("directory: " + std::to_string(g_strDllPath.size()));
        const std::string folder = std::getenv("MODULE_FOLDER");
        SetDllDirectoryW(std::wstring(folder.begin(), folder.end()).c_str());
        say(KestPlatformCStringManager::m_pInstance == nullptr ? "nothing reported" : "reported already");
        module = LoadLibraryW(L"recorder.dll");
        say(KestPlatformCStringManager::m_pInstance == nullptr ? "nothing reported" : "strings reported");
        say(module == nullptr ? "not loaded" : "loaded");
    }

    ~AroundMain()
    {
        say(module == GetModuleHandleW(L"recorder") ? "still in the table" : "lost");
        entryInTable = reinterpret_cast<const char*>(&*g_loadedModuleMap.begin());
        textOfDirectory = reinterpret_cast<const char*>(g_strDllPath.data());
    }

    HMODULE module;
};

const AroundMain aroundMain;

} // namespace

int main()
{
    setPlatformServices(&hub);
    say("main");
}
