/*
 * Kest reference host: message boxes, task dialogs and messages on a terminal.
 *
 * A box prints its caption, its icon as a word, its text and its buttons on standard error, and reads the answer from
 * standard input: a button's first letter that no other button has, its whole name or its number, or Enter alone for
 * the default button. An unknown answer is asked for again; the end of the input answers Cancel where there is such a
 * button, else the default one. Where standard input is no terminal nothing is read: the answer is the one set with
 * setAnswer, if the box has that button, else the default one. One box is shown at a time.
 *
 * Messages reach windows that the application registers: sent ones at once, posted ones when dispatchPosted is called.
 */
#ifndef KEST_HOST_DIALOG_SERVICE_H
#define KEST_HOST_DIALOG_SERVICE_H

#include "kest/platform_services.h"

#include <functional>
#include <memory>

namespace kest
{
namespace host
{

class KEST_API TerminalDialogService : public IDialogService
{
public:
    using WindowHandler = std::function<LRESULT(HWND, UINT, WPARAM, LPARAM)>;

    /** std::bad_alloc without memory. */
    TerminalDialogService();
    ~TerminalDialogService();
    TerminalDialogService(const TerminalDialogService&) = delete;
    TerminalDialogService& operator=(const TerminalDialogService&) = delete;

    /** Sets the button (IDOK, IDYES ...) that answers when nobody can be asked; 0 stands for the default button. */
    void setAnswer(int button);
    /** Messages to a window reach its handler from now on; an empty handler ends that. std::bad_alloc without memory. */
    void registerWindow(HWND window, WindowHandler handler);
    /** Hands posted messages to their windows, in order, those posted meanwhile included; returns their number. */
    int dispatchPosted();

    /** Returns the button; the default one for an unknown kind of box, whose only button is OK; 0 without memory. */
    int MessageBoxW(HWND hWnd, const wchar_t* lpText, const wchar_t* lpCaption, UINT uType) override;
    /** 1 when the window is registered, else 0. */
    BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) override;
    /** The handler's result; 0 for a window that is not registered. */
    LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) override;
    /**
     * Asks for a button, after that for a radio button where there are any, and for the verification. 0 with the
     * answers stored where pointers are given; 0x80070057 for a null or wrongly sized record, or one that counts
     * buttons and has none; 0x8007000E without memory, with nothing stored.
     */
    HRESULT TaskDialogIndirect(const TASKDIALOGCONFIG* pTaskConfig, int* pnButton, int* pnRadioButton,
                               BOOL* pfVerificationFlagChecked) override;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace host
} // namespace kest

#endif
