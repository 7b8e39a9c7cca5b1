// Every forward without logic of its own, against a host laid out by hand.
#include "harness/hand_laid_host.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/files.h"
#include "kest/kernel/locale.h"
#include "kest/kernel/profiles.h"
#include "kest/registry.h"
#include "kest/shell_paths.h"
#include "kest/user_interface.h"

#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

// The second symbols, as code knows them that was built against the other spelling.
SHORT encodedGetKeyState(int key) __asm__("_Z11GetKeyStatei");
SHORT encodedGetAsyncKeyState(int key) __asm__("_Z16GetAsyncKeyStatei");
HCURSOR encodedGetCursor() __asm__("_Z9GetCursorv");
HCURSOR encodedSetCursor(HCURSOR cursor) __asm__("_Z9SetCursorP7HICON__");
int encodedGetSystemMetrics(int index) __asm__("_Z16GetSystemMetricsi");
HMONITOR encodedMonitorFromPoint(POINT point, DWORD flags) __asm__("_Z16MonitorFromPoint8tagPOINTj");
int encodedMessageBoxW(HWND owner, const wchar_t* text, const wchar_t* caption,
                       UINT type) __asm__("_Z11MessageBoxWP6HWND__PKwS2_j");

namespace
{

using namespace kest::test;

constexpr int untouchedError = 77;

// How often a forward asks for its service, and what it answers when there is none.
struct Pattern
{
    int getterCalls;
    std::optional<Word> missing;
};

constexpr Pattern unchecked{1, std::nullopt};

constexpr Pattern checked(Word missing)
{
    return {2, missing};
}

struct Forward
{
    std::string name;
    Service service;
    int position;
    Pattern pattern;
    std::function<Outcome()> call;
    Word result;
};

template <class Result, class... Parameters>
Forward forward(const char* name, Result (*function)(Parameters...), Service service, int position, Pattern pattern)
{
    return {name,
            service,
            position,
            pattern,
            [function] { return callWithDistinctArguments<Result, Parameters...>(function); },
            toWord(fromWord<Result>(HandLaidHost::answer))};
}

Forward answering(Word result, Forward row)
{
    row.result = result;
    return row;
}

std::vector<Forward> forwards()
{
    using enum Service;
    constexpr Pattern registryPattern = checked(1);
    return {
        forward("GetKeyState", GetKeyState, window, 2, unchecked),
        forward("GetKeyState(int)", encodedGetKeyState, window, 2, unchecked),
        forward("GetAsyncKeyState", GetAsyncKeyState, window, 2, unchecked),
        forward("GetAsyncKeyState(int)", encodedGetAsyncKeyState, window, 2, unchecked),
        forward("FindWindowW", FindWindowW, window, 4, checked(0)),

        forward("FindFirstFileW", FindFirstFileW, fileSystem, 1, unchecked),
        forward("FindNextFileW", FindNextFileW, fileSystem, 2, unchecked),
        forward("FindClose", FindClose, fileSystem, 3, unchecked),
        forward("PathIsURLW", PathIsURLW, fileSystem, 5, unchecked),
        forward("PathAddBackslashW", PathAddBackslashW, fileSystem, 6, unchecked),
        forward("SHGetFolderPathW", SHGetFolderPathW, fileSystem, 7, unchecked),
        forward("PathRelativePathToW", PathRelativePathToW, fileSystem, 8, unchecked),
        forward("SetFileAttributesW", SetFileAttributesW, fileSystem, 11, {1, 0}),
        forward("PathIsRelativeW", PathIsRelativeW, fileSystem, 12, unchecked),
        forward("PathFindExtensionW", PathFindExtensionW, fileSystem, 13, unchecked),

        forward("GetCursorPos", GetCursorPos, cursor, 3, unchecked),
        forward("ScreenToClient", ScreenToClient, cursor, 5, unchecked),
        forward("GetCursor", GetCursor, cursor, 6, unchecked),
        forward("GetCursor()", encodedGetCursor, cursor, 6, unchecked),
        forward("SetCursor", SetCursor, cursor, 7, unchecked),
        forward("SetCursor(HICON__*)", encodedSetCursor, cursor, 7, unchecked),

        forward("EnumFontFamiliesExW", EnumFontFamiliesExW, font, 3, unchecked),
        forward("IsValidCodePage", IsValidCodePage, font, 6, checked(0)),

        forward("LoadStringW", LoadStringW, graphics, 3, unchecked),
        forward("LoadImageW", LoadImageW, graphics, 4, unchecked),
        answering(1, forward("DeleteObject", DeleteObject, graphics, 8, unchecked)),
        answering(1, forward("DestroyIcon", DestroyIcon, graphics, 8, unchecked)),
        forward("GetSystemMetrics", GetSystemMetrics, graphics, 9, unchecked),
        forward("GetSystemMetrics(int)", encodedGetSystemMetrics, graphics, 9, unchecked),
        forward("EnumPrintersW", EnumPrintersW, graphics, 13, unchecked),
        forward("MonitorFromPoint", MonitorFromPoint, graphics, 14, checked(0)),
        forward("MonitorFromPoint(tagPOINT, unsigned int)", encodedMonitorFromPoint, graphics, 14, checked(0)),
        forward("GetMonitorInfoW", GetMonitorInfoW, graphics, 15, checked(0)),

        forward("GetPrivateProfileStringA", GetPrivateProfileStringA, profile, 4, checked(0)),
        forward("GetPrivateProfileIntW", GetPrivateProfileIntW, profile, 5, unchecked),
        forward("GetPrivateProfileIntA", GetPrivateProfileIntA, profile, 6, unchecked),
        forward("GetPrivateProfileSectionW", GetPrivateProfileSectionW, profile, 8,
                checked(distinctValue<DWORD>(2) - 2)),
        forward("WritePrivateProfileStringW", WritePrivateProfileStringW, profile, 9, unchecked),
        forward("WritePrivateProfileStringA", WritePrivateProfileStringA, profile, 10, unchecked),

        forward<int, HWND, const wchar_t*, const wchar_t*, UINT>("MessageBoxW", MessageBoxW, dialog, 1, checked(0)),
        forward("MessageBoxW(HWND__*, ...)", encodedMessageBoxW, dialog, 1, checked(0)),
        forward("PostMessageW", PostMessageW, dialog, 2, checked(0)),
        forward("SendMessageW", SendMessageW, dialog, 3, checked(0)),
        forward("TaskDialogIndirect", TaskDialogIndirect, dialog, 4, checked(1)),

        forward("RegQueryValueExW", RegQueryValueExW, registry, 1, registryPattern),
        forward("RegSetValueExW", RegSetValueExW, registry, 5, registryPattern),
        forward("RegCloseKey", RegCloseKey, registry, 6, registryPattern),
        forward("RegQueryInfoKeyW", RegQueryInfoKeyW, registry, 7, registryPattern),
        forward("RegEnumKeyW", RegEnumKeyW, registry, 8, registryPattern),
        forward("RegDeleteKeyW", RegDeleteKeyW, registry, 9, registryPattern),
        forward("RegDeleteValueW", RegDeleteValueW, registry, 10, registryPattern),
        forward("RegEnumKeyExW", RegEnumKeyExW, registry, 11, registryPattern),
        forward("RegEnumValueW", RegEnumValueW, registry, 12, registryPattern),
        forward("RegQueryValueW", RegQueryValueW, registry, 13, registryPattern),
        forward("RegDeleteKeyExW", RegDeleteKeyExW, registry, 14, registryPattern),

        forward("GetNumberFormatW", GetNumberFormatW, system, 1, checked(0)),
    };
}

TEST(Forwards, HandArgumentsAndResultOnUnchanged)
{
    for (const Forward& row : forwards())
    {
        SCOPED_TRACE(row.name);
        const HandLaidHost host;
        errno = untouchedError;
        const Outcome outcome = row.call();
        EXPECT_EQ(errno, untouchedError);
        EXPECT_EQ(host.calls(), (std::vector<ServiceCall>{{row.service, row.position, outcome.arguments}}));
        EXPECT_EQ(outcome.result, row.result);
        EXPECT_EQ(host.getterCalls(row.service), row.pattern.getterCalls);
        EXPECT_EQ(host.getterCalls(), row.pattern.getterCalls);
    }
}

TEST(Forwards, LeaveTheErrorThatTheServiceSets)
{
    for (const Forward& row : forwards())
    {
        SCOPED_TRACE(row.name);
        HandLaidHost host;
        host.whenCalled([](const ServiceCall&) { errno = 4711; });
        errno = untouchedError;
        row.call();
        EXPECT_EQ(errno, 4711);
    }
}

TEST(Forwards, HandZeroBack)
{
    for (const Forward& row : forwards())
    {
        SCOPED_TRACE(row.name);
        HandLaidHost host;
        host.answerWith(0);
        const bool fixed = row.name == "DeleteObject" || row.name == "DestroyIcon";
        EXPECT_EQ(row.call().result, fixed ? 1u : 0u);
    }
}

// The pointers among the distinct arguments lead nowhere: a write through one of them would end the test.
TEST(Forwards, AnswerWithoutHubWhenChecked)
{
    const InstalledHub none(nullptr);
    for (const Forward& row : forwards())
    {
        if (row.pattern.missing)
        {
            SCOPED_TRACE(row.name);
            errno = untouchedError;
            EXPECT_EQ(row.call().result, *row.pattern.missing);
            EXPECT_EQ(errno, untouchedError);
        }
    }
}

TEST(Forwards, AnswerWithoutServiceWhenChecked)
{
    for (const Forward& row : forwards())
    {
        if (row.pattern.missing)
        {
            SCOPED_TRACE(row.name);
            HandLaidHost host;
            host.withhold(row.service);
            errno = untouchedError;
            EXPECT_EQ(row.call().result, *row.pattern.missing);
            EXPECT_EQ(errno, untouchedError);
            EXPECT_EQ(host.getterCalls(row.service), 1);
            EXPECT_EQ(host.getterCalls(), 1);
            EXPECT_TRUE(host.calls().empty());
        }
    }
}

TEST(Forwards, TakeNullArguments)
{
    const HandLaidHost host;
    FindWindowW(nullptr, nullptr);
    MessageBoxW(nullptr, nullptr, nullptr, 0);
    TaskDialogIndirect(nullptr, nullptr, nullptr, nullptr);
    DeleteObject(nullptr);
    SetCursor(nullptr);
    RegQueryValueExW(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(host.calls(), (std::vector<ServiceCall>{{Service::window, 4, {0, 0}},
                                                      {Service::dialog, 1, {0, 0, 0, 0}},
                                                      {Service::dialog, 4, {0, 0, 0, 0}},
                                                      {Service::graphics, 8, {0}},
                                                      {Service::cursor, 7, {0}},
                                                      {Service::registry, 1, {0, 0, 0, 0, 0, 0}}}));
}

TEST(Forwards, DestroyNoIconWhenItIsNull)
{
    {
        const HandLaidHost host;
        EXPECT_EQ(DestroyIcon(nullptr), 0);
        EXPECT_EQ(host.getterCalls(), 0);
        EXPECT_TRUE(host.calls().empty());
    }
    const InstalledHub none(nullptr);
    EXPECT_EQ(DestroyIcon(nullptr), 0);
}

TEST(GetAsyncKeyState, AsksForTheStateThatGetKeyStateReports)
{
    const HandLaidHost host;
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), GetKeyState(VK_SHIFT));
    EXPECT_EQ(host.calls(),
              (std::vector<ServiceCall>{{Service::window, 2, {VK_SHIFT}}, {Service::window, 2, {VK_SHIFT}}}));
}

TEST(DeleteObject, AnswersOneWhateverTheServiceAnswers)
{
    HandLaidHost host;
    host.answerWith(0);
    EXPECT_EQ(DeleteObject(fromWord<HGDIOBJ>(5)), 1);
    EXPECT_EQ(host.calls(), (std::vector<ServiceCall>{{Service::graphics, 8, {5}}}));
}

TEST(DestroyIcon, AnswersOneWhateverTheServiceAnswers)
{
    HandLaidHost host;
    host.answerWith(0);
    EXPECT_EQ(DestroyIcon(fromWord<HICON>(5)), 1);
    EXPECT_EQ(host.calls(), (std::vector<ServiceCall>{{Service::graphics, 8, {5}}}));
}

TEST(TaskDialogIndirect, AnswersSuccessWithNothingShown)
{
    const InstalledHub none(nullptr);
    const TASKDIALOGCONFIG config{};
    int button = 5;
    int radioButton = 6;
    BOOL verified = 7;
    const HRESULT result = TaskDialogIndirect(&config, &button, &radioButton, &verified);
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(SUCCEEDED(result));
    EXPECT_EQ(button, 5);
    EXPECT_EQ(radioButton, 6);
    EXPECT_EQ(verified, 7);
}

TEST(GetPrivateProfileStringA, WritesNoDefaultWithoutHost)
{
    const InstalledHub none(nullptr);
    using Buffer = SentinelBuffer<char, 16>;
    Buffer buffer;
    EXPECT_EQ(GetPrivateProfileStringA("app", "key", "default", buffer.data(), buffer.size(), "file.ini"), 0u);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(GetPrivateProfileSectionW, WrapsAroundForSizesBelowTwo)
{
    using Buffer = SentinelBuffer<wchar_t, 100>;
    struct Row
    {
        DWORD size;
        DWORD answer;
    };
    const auto answersEverywhere = []
    {
        for (const Row& row : {Row{100, 98}, Row{3, 1}, Row{2, 0}, Row{1, 4294967295}, Row{0, 4294967294}})
        {
            Buffer buffer;
            EXPECT_EQ(GetPrivateProfileSectionW(L"app", buffer.data(), row.size, L"file.ini"), row.answer) << row.size;
            EXPECT_EQ(buffer.contents(), Buffer::untouched());
        }
    };
    {
        const InstalledHub none(nullptr);
        answersEverywhere();
    }
    HandLaidHost host;
    host.withhold(Service::profile);
    answersEverywhere();
}

} // namespace
