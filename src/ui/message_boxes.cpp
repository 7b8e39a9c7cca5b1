#include "kest/crt/path_splitting.h"
#include "kest/kernel/modules.h"
#include "kest/user_interface/dialogs.h"
#include "kest/user_interface/resources.h"
#include "support/forwarding.h"

#include <array>

namespace
{

// Characters of the program's path and of a message by number. The buffers have one more, for the terminator of a text
// that fills them.
constexpr DWORD textLength = 1024;
using Text = std::array<wchar_t, textLength + 1>;

// _wsplitpath hands out names of at most 255 characters.
using FileName = std::array<wchar_t, 256>;

FileName programName()
{
    Text path{};
    FileName name{L"MORVA"};
    GetModuleFileNameW(GetModuleHandleW(nullptr), path.data(), textLength);
    if (path.front() != L'\0')
    {
        _wsplitpath(path.data(), nullptr, nullptr, name.data(), nullptr);
    }
    return name;
}

} // namespace

int MessageBoxW(const wchar_t* lpText, const wchar_t* lpCaption, UINT uType)
{
    return MessageBoxW(nullptr, lpText, lpCaption, uType);
}

int AfxMessageBox(const wchar_t* lpszText, UINT nType, UINT)
{
    return MessageBoxW(nullptr, lpszText, programName().data(), nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    Text text{};
    // LoadStringW, except that a host without strings shows an empty message.
    kest::forwardCheckedOnce(0, &IPlatformServices::graphicsService, &IGraphicsService::LoadStringW,
                             AfxGetResourceHandle(), nIDPrompt, text.data(), static_cast<int>(textLength));
    return AfxMessageBox(text.data(), nType, nIDHelp);
}
