#include "kest/host/dialog_service.h"

#include "out_of_memory.h"
#include "out_parameters.h"
#include "terminal_question.h"
#include "text.h"

#include <cstdint>
#include <deque>
#include <iterator>
#include <mutex>
#include <new>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>
#include <winerror.h>

namespace kest::host
{

namespace
{

enum Button : int
{
    ok = 1,
    cancel = 2,
    abort = 3,
    retry = 4,
    ignore = 5,
    yes = 6,
    no = 7,
    close = 8,
    tryAgain = 10,
    proceed = 11,
};

constexpr UINT kindMask = 0xF;
constexpr UINT iconMask = 0xF0;
constexpr UINT defaultMask = 0xF00;

// The buttons of each kind of message box, in MB_* order.
const std::vector<Choice> boxButtons[] = {
    {{ok, L"OK"}},
    {{ok, L"OK"}, {cancel, L"Cancel"}},
    {{abort, L"Abort"}, {retry, L"Retry"}, {ignore, L"Ignore"}},
    {{yes, L"Yes"}, {no, L"No"}, {cancel, L"Cancel"}},
    {{yes, L"Yes"}, {no, L"No"}},
    {{retry, L"Retry"}, {cancel, L"Cancel"}},
    {{cancel, L"Cancel"}, {tryAgain, L"Try Again"}, {proceed, L"Continue"}},
};

// The common buttons of a task dialog, by their flags.
const std::pair<DWORD, Choice> commonButtons[] = {
    {0x01, {ok, L"OK"}},       {0x02, {yes, L"Yes"}},       {0x04, {no, L"No"}},
    {0x10, {retry, L"Retry"}}, {0x08, {cancel, L"Cancel"}}, {0x20, {close, L"Close"}},
};

const wchar_t* iconWord(UINT type)
{
    switch (type & iconMask)
    {
    case 0x10:
        return L"Error: ";
    case 0x20:
        return L"Question: ";
    case 0x30:
        return L"Warning: ";
    case 0x40:
        return L"Information: ";
    default:
        return L"";
    }
}

// Resource numbers stand where text pointers do; this host has no resources.
std::wstring resourceText(const wchar_t* text)
{
    return reinterpret_cast<std::uintptr_t>(text) < 0x10000 ? L"" : text;
}

void appendLine(std::wstring& prompt, const std::wstring& line)
{
    if (!line.empty())
    {
        prompt += line + L'\n';
    }
}

bool offers(const std::vector<Choice>& choices, int id)
{
    for (const Choice& choice : choices)
    {
        if (choice.id == id)
        {
            return true;
        }
    }
    return false;
}

Question makeQuestion(std::wstring prompt, std::vector<Choice> choices, int preferred)
{
    Question question{std::move(prompt), std::move(choices), 0, 0};
    question.cancel = offers(question.choices, cancel) ? cancel : 0;
    for (std::size_t index = 0; index < question.choices.size(); ++index)
    {
        if (question.choices[index].id == preferred)
        {
            question.preferred = index;
        }
    }
    return question;
}

struct Message
{
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

} // namespace

struct TerminalDialogService::State
{
    std::mutex terminal; // one question at a time
    std::mutex mutex;    // guards the rest; never held while a handler runs
    int answer = 0;
    std::unordered_map<HWND, std::shared_ptr<const WindowHandler>> windows;
    std::deque<Message> posted;

    int askOne(const Question& question)
    {
        const std::lock_guard oneAtATime(terminal);
        int unattended = 0;
        {
            const std::lock_guard lock(mutex);
            unattended = answer;
        }
        return ask(question, unattended);
    }

    // Shared with the map, as a handler may end its own registration; and sharing takes no memory.
    std::shared_ptr<const WindowHandler> handlerOf(HWND window)
    {
        const std::lock_guard lock(mutex);
        const auto found = windows.find(window);
        return found == windows.end() ? nullptr : found->second;
    }
};

TerminalDialogService::TerminalDialogService() : state_(new State)
{
}

TerminalDialogService::~TerminalDialogService() = default;

void TerminalDialogService::setAnswer(int button)
{
    const std::lock_guard lock(state_->mutex);
    state_->answer = button;
}

void TerminalDialogService::registerWindow(HWND window, WindowHandler handler)
{
    if (handler)
    {
        auto shared = std::make_shared<const WindowHandler>(std::move(handler));
        const std::lock_guard lock(state_->mutex);
        state_->windows.insert_or_assign(window, std::move(shared));
    }
    else
    {
        const std::lock_guard lock(state_->mutex);
        state_->windows.erase(window);
    }
}

int TerminalDialogService::dispatchPosted()
{
    for (int count = 0;; ++count)
    {
        Message message;
        {
            const std::lock_guard lock(state_->mutex);
            if (state_->posted.empty())
            {
                return count;
            }
            message = state_->posted.front();
            state_->posted.pop_front();
        }
        SendMessageW(message.window, message.message, message.wParam, message.lParam);
    }
}

int TerminalDialogService::MessageBoxW(HWND, const wchar_t* lpText, const wchar_t* lpCaption, UINT uType)
try
{
    const std::size_t kind = uType & kindMask;
    const std::vector<Choice>& choices = boxButtons[kind < std::size(boxButtons) ? kind : 0];
    std::wstring prompt;
    // Windows shows "Error" above a box without a caption.
    appendLine(prompt, L"== " + (lpCaption == nullptr ? L"Error" : std::wstring(lpCaption)) + L" ==");
    appendLine(prompt, iconWord(uType) + std::wstring(textOrEmpty(lpText)));
    Question question = makeQuestion(std::move(prompt), choices, 0);
    const std::size_t preferred = (uType & defaultMask) >> 8;
    question.preferred = preferred < choices.size() ? preferred : 0;
    return state_->askOne(question);
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

BOOL TerminalDialogService::PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
try
{
    const std::lock_guard lock(state_->mutex);
    if (!state_->windows.contains(hWnd))
    {
        return 0;
    }
    state_->posted.push_back({hWnd, Msg, wParam, lParam});
    return 1;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

LRESULT TerminalDialogService::SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    const std::shared_ptr<const WindowHandler> handler = state_->handlerOf(hWnd);
    return handler != nullptr ? (*handler)(hWnd, Msg, wParam, lParam) : 0;
}

HRESULT TerminalDialogService::TaskDialogIndirect(const TASKDIALOGCONFIG* pTaskConfig, int* pnButton,
                                                  int* pnRadioButton, BOOL* pfVerificationFlagChecked)
try
{
    if (pTaskConfig == nullptr || pTaskConfig->cbSize != sizeof(TASKDIALOGCONFIG))
    {
        return HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER);
    }
    const TASKDIALOGCONFIG& dialog = *pTaskConfig;
    if ((dialog.cButtons > 0 && dialog.pButtons == nullptr) ||
        (dialog.cRadioButtons > 0 && dialog.pRadioButtons == nullptr))
    {
        return HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER);
    }
    constexpr DWORD verificationChecked = 0x0100;

    std::wstring prompt;
    appendLine(prompt, L"== " + resourceText(dialog.pszWindowTitle) + L" ==");
    for (const wchar_t* const text :
         {dialog.pszMainInstruction, dialog.pszContent, dialog.pszExpandedInformation, dialog.pszFooter})
    {
        appendLine(prompt, resourceText(text));
    }
    std::vector<Choice> buttons;
    for (UINT index = 0; index < dialog.cButtons; ++index)
    {
        buttons.push_back({dialog.pButtons[index].nButtonID, resourceText(dialog.pButtons[index].pszButtonText)});
    }
    for (const auto& [flag, choice] : commonButtons)
    {
        if ((dialog.dwCommonButtons & flag) != 0)
        {
            buttons.push_back(choice);
        }
    }
    if (buttons.empty())
    {
        buttons.push_back({ok, L"OK"});
    }
    const int button = state_->askOne(makeQuestion(std::move(prompt), std::move(buttons), dialog.nDefaultButton));
    int radio = 0;
    if (dialog.cRadioButtons > 0)
    {
        std::vector<Choice> radios;
        for (UINT index = 0; index < dialog.cRadioButtons; ++index)
        {
            const TASKDIALOG_BUTTON& offered = dialog.pRadioButtons[index];
            radios.push_back({offered.nButtonID, resourceText(offered.pszButtonText)});
        }
        radio = state_->askOne(makeQuestion({}, std::move(radios), dialog.nDefaultRadioButton));
    }
    BOOL checked = (dialog.dwFlags & verificationChecked) != 0 ? 1 : 0;
    if (!resourceText(dialog.pszVerificationText).empty())
    {
        const int standing = checked != 0 ? yes : no;
        checked = state_->askOne(makeQuestion(resourceText(dialog.pszVerificationText) + L'\n',
                                              {{yes, L"Yes"}, {no, L"No"}}, standing)) == yes;
    }
    storeIfWanted(pnButton, button);
    storeIfWanted(pnRadioButton, radio);
    storeIfWanted(pfVerificationFlagChecked, checked);
    return 0;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(E_OUTOFMEMORY);
}

} // namespace kest::host
