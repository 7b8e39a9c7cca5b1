// Forwards to the dialog service, in the order of its operations.
#include "kest/user_interface/dialogs.h"
#include "kest/user_interface/windows_and_input.h"
#include "support/forwarding.h"
#include "support/second_name.h"

using kest::forwardChecked;

namespace
{
constexpr auto service = &IPlatformServices::dialogService;
}

int MessageBoxW(HWND hWnd, const wchar_t* lpText, const wchar_t* lpCaption, UINT uType)
{
    return forwardChecked(0, service, &IDialogService::MessageBoxW, hWnd, lpText, lpCaption, uType);
}

BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return forwardChecked(0, service, &IDialogService::PostMessageW, hWnd, Msg, wParam, lParam);
}

LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return forwardChecked(0, service, &IDialogService::SendMessageW, hWnd, Msg, wParam, lParam);
}

HRESULT TaskDialogIndirect(const TASKDIALOGCONFIG* pTaskConfig, int* pnButton, int* pnRadioButton,
                           BOOL* pfVerificationFlagChecked)
{
    return forwardChecked(1, service, &IDialogService::TaskDialogIndirect, pTaskConfig, pnButton, pnRadioButton,
                          pfVerificationFlagChecked);
}

KEST_SECOND_NAME(int encodedMessageBoxW(HWND, const wchar_t*, const wchar_t*, UINT), "MessageBoxW",
                 "_Z11MessageBoxWP6HWND__PKwS2_j");
