#include "kest/host/dialog_service.h"

#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{

using kest::host::TerminalDialogService;

constexpr int ok = 1;
constexpr int cancel = 2;
constexpr int abort_ = 3;
constexpr int ignore = 5;
constexpr int yes = 6;
constexpr int no = 7;

struct Dialogue
{
    int answer;       // what the function returned
    std::string text; // what the terminal showed
};

// Runs an action in a child whose standard streams are a real terminal, types the input there, and collects what is
// shown. The action's result must fit an exit status.
template <class Action>
Dialogue onTerminal(const std::string& input, Action action)
{
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0)
    {
        _exit(action());
    }
    EXPECT_EQ(write(terminal, input.data(), input.size()), static_cast<ssize_t>(input.size()));
    Dialogue dialogue{-1, {}};
    char block[256];
    for (ssize_t count = 0; (count = read(terminal, block, sizeof block)) > 0;)
    {
        dialogue.text.append(block, static_cast<std::size_t>(count));
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    dialogue.answer = WEXITSTATUS(status);
    close(terminal);
    return dialogue;
}

// Runs an action in a child without a terminal.
template <class Action>
int unattended(Action action)
{
    const pid_t child = fork();
    if (child == 0)
    {
        const int nothing = open("/dev/null", O_RDWR);
        dup2(nothing, STDIN_FILENO);
        dup2(nothing, STDERR_FILENO);
        _exit(action());
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int box(UINT type)
{
    TerminalDialogService service;
    return service.MessageBoxW(nullptr, L"Save the file?", L"Editor", type);
}

TEST(MessageBoxes, AreAnsweredFromTheKeyboard)
{
    struct Row
    {
        UINT type;
        const char* input;
        int expected;
    };
    const Row rows[] = {
        {0, "\n", ok},           {1, "\n", ok},       {0x101, "\n", cancel}, {2, "a\n", abort_},
        {2, "Ignore\n", ignore}, {3, "n\n", no},      {4, "yes\n", yes},     {0x104, "\n", no},
        {4, "2\n", no},          {5, "c\n", cancel},  {6, "t\n", 10},        {6, "co\nContinue\n", 11},
        {4, "x\ny\n", yes},      {3, "\x04", cancel}, {0x104, "\x04", no},   {0x304, "\n", yes},
        {0xF, "\n", ok},         {6, "c\n3\n", 11},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(onTerminal(row.input, [&row] { return box(row.type); }).answer, row.expected)
            << std::hex << row.type << ' ' << row.input;
    }
}

TEST(MessageBoxes, ShowTheirCaptionIconTextAndButtons)
{
    const std::string text = onTerminal("y\n", [] { return box(0x134); }).text;
    EXPECT_NE(text.find("== Editor ==\r\nWarning: Save the file?\r\n1) Yes  2) [No]: "), std::string::npos) << text;
    const std::string error = onTerminal("\n",
                                         []
                                         {
                                             TerminalDialogService service;
                                             return service.MessageBoxW(nullptr, nullptr, nullptr, 0x10);
                                         })
                                  .text;
    EXPECT_NE(error.find("== Error ==\r\nError: \r\n1) [OK]: "), std::string::npos) << error;
    const std::string asked = onTerminal("q\ny\n", [] { return box(4); }).text;
    EXPECT_NE(asked.find("\"q\" is none of these."), std::string::npos) << asked;
}

TEST(MessageBoxes, AnswerByThemselvesWithoutATerminal)
{
    EXPECT_EQ(unattended([] { return box(3); }), yes);
    EXPECT_EQ(unattended([] { return box(0x103); }), no);
    const auto withAnswer = [](int answer, UINT type)
    {
        TerminalDialogService service;
        service.setAnswer(answer);
        return service.MessageBoxW(nullptr, L"text", L"caption", type);
    };
    EXPECT_EQ(unattended([&] { return withAnswer(no, 3); }), no);
    EXPECT_EQ(unattended([&] { return withAnswer(no, 1); }), ok);
}

TASKDIALOGCONFIG taskDialog()
{
    TASKDIALOGCONFIG config = {};
    config.cbSize = sizeof config;
    config.pszWindowTitle = L"Setup";
    config.pszMainInstruction = L"Choose";
    config.pszContent = L"content";
    return config;
}

TEST(TaskDialogs, AskForButtonRadioButtonAndVerification)
{
    const TASKDIALOG_BUTTON buttons[] = {{101, L"&Install"}, {102, L"Re&move"}};
    const TASKDIALOG_BUTTON radios[] = {{201, L"For me"}, {202, L"For all"}};
    const auto run = [&]
    {
        TerminalDialogService service;
        TASKDIALOGCONFIG config = taskDialog();
        config.cButtons = 2;
        config.pButtons = buttons;
        config.dwCommonButtons = 0x08;
        config.nDefaultButton = 102;
        config.cRadioButtons = 2;
        config.pRadioButtons = radios;
        config.pszVerificationText = L"Do not ask again";
        int button = 0;
        int radio = 0;
        BOOL checked = 0;
        const HRESULT result = service.TaskDialogIndirect(&config, &button, &radio, &checked);
        return result == 0 && button == 102 && radio == 202 && checked == 1 ? 0 : 1;
    };
    const Dialogue dialogue = onTerminal("\nfor all\ny\n", run);
    EXPECT_EQ(dialogue.answer, 0);
    EXPECT_NE(dialogue.text.find("== Setup ==\r\nChoose\r\ncontent\r\n1) Install  2) [Remove]  3) Cancel: "),
              std::string::npos)
        << dialogue.text;
}

TEST(TaskDialogs, RefuseWrongRecords)
{
    TerminalDialogService service;
    int button = 77;
    TASKDIALOGCONFIG config = taskDialog();
    config.cbSize = 12;
    EXPECT_EQ(service.TaskDialogIndirect(&config, &button, nullptr, nullptr), static_cast<HRESULT>(0x80070057));
    EXPECT_EQ(service.TaskDialogIndirect(nullptr, &button, nullptr, nullptr), static_cast<HRESULT>(0x80070057));
    config = taskDialog();
    config.cButtons = 1;
    EXPECT_EQ(service.TaskDialogIndirect(&config, &button, nullptr, nullptr), static_cast<HRESULT>(0x80070057));
    config = taskDialog();
    config.cRadioButtons = 1;
    EXPECT_EQ(service.TaskDialogIndirect(&config, &button, nullptr, nullptr), static_cast<HRESULT>(0x80070057));
    EXPECT_EQ(button, 77);
}

TEST(TaskDialogs, HaveAnOkButtonIfNoOther)
{
    EXPECT_EQ(unattended(
                  []
                  {
                      TerminalDialogService service;
                      const TASKDIALOGCONFIG config = taskDialog();
                      int button = 0;
                      int radio = 9;
                      BOOL checked = 9;
                      service.TaskDialogIndirect(&config, &button, &radio, &checked);
                      return button == ok && radio == 0 && checked == 0 ? 0 : 1;
                  }),
              0);
}

TEST(Messages, ReachRegisteredWindows)
{
    TerminalDialogService service;
    const auto window = reinterpret_cast<HWND>(0x10);
    const auto other = reinterpret_cast<HWND>(0x20);
    std::vector<std::pair<UINT, LPARAM>> seen;
    EXPECT_EQ(service.SendMessageW(window, 1, 2, 3), 0);
    EXPECT_EQ(service.PostMessageW(window, 1, 2, 3), 0);
    service.registerWindow(window,
                           [&](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT
                           {
                               EXPECT_EQ(handle, window);
                               seen.emplace_back(message, lParam);
                               if (message == 5)
                               {
                                   service.PostMessageW(window, 6, 0, 60);
                               }
                               return static_cast<LRESULT>(wParam) * 2;
                           });
    EXPECT_EQ(service.SendMessageW(window, 4, 21, -1), 42);
    EXPECT_EQ(service.PostMessageW(window, 5, 0, 50), 1);
    EXPECT_EQ(service.PostMessageW(other, 5, 0, 50), 0);
    EXPECT_EQ(seen.size(), 1U);
    EXPECT_EQ(service.dispatchPosted(), 2);
    EXPECT_EQ(seen, (std::vector<std::pair<UINT, LPARAM>>{{4, -1}, {5, 50}, {6, 60}}));
    EXPECT_EQ(service.dispatchPosted(), 0);
    service.registerWindow(window, nullptr);
    EXPECT_EQ(service.SendMessageW(window, 4, 21, -1), 0);
}

TEST(Messages, ComeFromSeveralThreads)
{
    TerminalDialogService service;
    const auto window = reinterpret_cast<HWND>(0x10);
    int count = 0;
    service.registerWindow(window,
                           [&count](HWND, UINT, WPARAM, LPARAM) -> LRESULT
                           {
                               ++count;
                               return 0;
                           });
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
    {
        threads.emplace_back(
            [&]
            {
                for (int round = 0; round < 100; ++round)
                {
                    service.PostMessageW(window, 1, 0, 0);
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(service.dispatchPosted(), 400);
    EXPECT_EQ(count, 400);
}

} // namespace
