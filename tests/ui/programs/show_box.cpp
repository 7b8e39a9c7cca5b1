// Shows a message box and prints its caption. With the argument "nameless" nothing tells the program's path.
#include "harness/stub_services.h"
#include "kest/user_interface/dialogs.h"

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

bool nameless = false;

class PrintingDialogService : public kest::test::StubDialogService
{
public:
    int MessageBoxW(HWND, const wchar_t*, const wchar_t* caption, UINT) override { return std::printf("%ls", caption); }
};

} // namespace

// In place of the C library's; under a name of its own, since readlink has a body already where calls are checked
// against their buffers' sizes.
extern "C" __attribute__((visibility("default"))) ssize_t tellLink(const char* path, char* buffer,
                                                                   size_t size) __asm__("readlink");

ssize_t tellLink(const char* path, char* buffer, size_t size)
{
    if (nameless)
    {
        errno = EACCES;
        return -1;
    }
    return syscall(SYS_readlinkat, AT_FDCWD, path, buffer, size);
}

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "C.UTF-8");
    nameless = argc > 1 && std::strcmp(argv[1], "nameless") == 0;
    PrintingDialogService dialog;
    kest::test::StubHub hub;
    hub.dialog = &dialog;
    setPlatformServices(&hub);
    AfxMessageBox(L"text");
    return 0;
}
