#include "harness/hand_laid_host.h"

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <numeric>
#include <string_view>

extern "C" IPlatformServices* g_platformServices;

namespace kest::test
{

namespace
{

// An object with virtual operations: its first word leads to its table.
struct HandLaidObject
{
    void* const* table;
};

struct Record
{
    Word answer = HandLaidHost::answer;
    std::array<bool, serviceCount> withheld{};
    std::array<int, serviceCount> getterCalls{};
    std::array<const void*, serviceCount> handedOutLast{};
    std::vector<ServiceCall> calls;
    std::vector<std::string> unusedCalls;
    std::function<void(const ServiceCall&)> action;
};

Record record;

constexpr std::array<std::string_view, serviceCount> serviceNames = {
    "window", "fileSystem", "cursor", "font", "graphics", "profile", "dialog", "registry", "system"};

constexpr std::size_t index(Service service)
{
    return static_cast<std::size_t>(service);
}

extern HandLaidObject hubObject;
extern std::array<void* const*, serviceCount> serviceTables;

// The objects that a service's getter hands out, one after the other.
std::array<std::array<HandLaidObject, 2>, serviceCount> serviceObjects;

void expectHandedOutLast(const void* self, Service service)
{
    EXPECT_EQ(self, record.handedOutLast[index(service)]);
}

void recordCall(void* self, Service service, int position, std::vector<Word> arguments)
{
    expectHandedOutLast(self, service);
    record.calls.push_back({service, position, std::move(arguments)});
    if (record.action)
    {
        record.action(ServiceCall(record.calls.back()));
    }
}

void recordUnusedCall(std::string_view object, int position)
{
    std::string call(object);
    call.append(" ").append(std::to_string(position));
    record.unusedCalls.push_back(std::move(call));
}

template <Service Name, int Position>
void unused(void* self)
{
    expectHandedOutLast(self, Name);
    recordUnusedCall(serviceNames[index(Name)], Position);
}

template <int Position>
void unusedOfHub(void* self)
{
    EXPECT_EQ(self, &hubObject);
    recordUnusedCall("hub", Position);
}

template <Service Name>
HandLaidObject* getter(void* self)
{
    EXPECT_EQ(self, &hubObject);
    const int call = record.getterCalls[index(Name)]++;
    HandLaidObject& object = serviceObjects[index(Name)][static_cast<std::size_t>(call % 2)];
    object.table = serviceTables[index(Name)];
    record.handedOutLast[index(Name)] = &object;
    return record.withheld[index(Name)] ? nullptr : &object;
}

template <Service Name, int Position, class Result, class... Parameters>
Result operation(void* self, Parameters... parameters)
{
    recordCall(self, Name, Position, {toWord(parameters)...});
    return fromWord<Result>(record.answer);
}

// Named apart, as its result travels through a hidden pointer: the compiler must see the real types.
std::wstring expandText(void* self, const std::wstring& text)
{
    recordCall(self, Service::system, 2, {toWord(text)});
    return HandLaidHost::textAnswer;
}

// The text that a service fills is a reference; a template's parameter would lose that.
BOOL fileExists(void* self, const wchar_t* path, std::wstring& actualPath)
{
    recordCall(self, Service::fileSystem, 4, {toWord(path), toWord(actualPath)});
    return fromWord<BOOL>(record.answer);
}

template <class Function>
void* slot(Function* function)
{
    return reinterpret_cast<void*>(function);
}

using enum Service;
using Wide = const wchar_t*;
using Narrow = const char*;

void* const hubTable[] = {
    /* 1 */ slot(unusedOfHub<1>),
    /* 2 */ slot(unusedOfHub<2>),
    /* 3 */ slot(getter<window>),
    /* 4 */ slot(unusedOfHub<4>),
    /* 5 */ slot(getter<fileSystem>),
    /* 6 */ slot(getter<cursor>),
    /* 7 */ slot(getter<font>),
    /* 8 */ slot(getter<graphics>),
    /* 9 */ slot(getter<profile>),
    /* 10 */ slot(getter<dialog>),
    /* 11 */ slot(getter<registry>),
    /* 12 */ slot(unusedOfHub<12>),
    /* 13 */ slot(getter<system>),
};

void* const windowTable[] = {
    /* 1 */ slot(unused<window, 1>),
    /* 2 GetKeyState */ slot(operation<window, 2, SHORT, int>),
    /* 3 */ slot(unused<window, 3>),
    /* 4 FindWindowW */ slot(operation<window, 4, HWND, Wide, Wide>),
};

void* const fileSystemTable[] = {
    /* 1 FindFirstFileW */ slot(operation<fileSystem, 1, HANDLE, Wide, WIN32_FIND_DATAW*>),
    /* 2 FindNextFileW */ slot(operation<fileSystem, 2, BOOL, HANDLE, WIN32_FIND_DATAW*>),
    /* 3 FindClose */ slot(operation<fileSystem, 3, BOOL, HANDLE>),
    /* 4 PathFileExistsW */ slot(fileExists),
    /* 5 PathIsURLW */ slot(operation<fileSystem, 5, BOOL, Wide>),
    /* 6 PathAddBackslashW */ slot(operation<fileSystem, 6, wchar_t*, wchar_t*>),
    /* 7 SHGetFolderPathW */ slot(operation<fileSystem, 7, HRESULT, HWND, int, HANDLE, DWORD, wchar_t*>),
    /* 8 PathRelativePathToW */ slot(operation<fileSystem, 8, BOOL, wchar_t*, Wide, DWORD, Wide, DWORD>),
    /* 9 GetTempPathW */ slot(operation<fileSystem, 9, DWORD, DWORD, wchar_t*>),
    /* 10 GetFileAttributesW */ slot(operation<fileSystem, 10, DWORD, Wide>),
    /* 11 SetFileAttributesW */ slot(operation<fileSystem, 11, BOOL, Wide, DWORD>),
    /* 12 PathIsRelativeW */ slot(operation<fileSystem, 12, BOOL, Wide>),
    /* 13 PathFindExtensionW */ slot(operation<fileSystem, 13, wchar_t*, Wide>),
};

void* const cursorTable[] = {
    /* 1 */ slot(unused<cursor, 1>),
    /* 2 */ slot(unused<cursor, 2>),
    /* 3 GetCursorPos */ slot(operation<cursor, 3, BOOL, POINT*>),
    /* 4 */ slot(unused<cursor, 4>),
    /* 5 ScreenToClient */ slot(operation<cursor, 5, BOOL, HWND, POINT*>),
    /* 6 GetCursor */ slot(operation<cursor, 6, HCURSOR>),
    /* 7 SetCursor */ slot(operation<cursor, 7, HCURSOR, HCURSOR>),
};

void* const fontTable[] = {
    /* 1 */ slot(unused<font, 1>),
    /* 2 */ slot(unused<font, 2>),
    /* 3 EnumFontFamiliesExW */ slot(operation<font, 3, int, HDC, LOGFONTW*, FONTENUMPROCW, LPARAM, DWORD>),
    /* 4 */ slot(unused<font, 4>),
    /* 5 */ slot(unused<font, 5>),
    /* 6 IsValidCodePage */ slot(operation<font, 6, BOOL, UINT>),
};

void* const graphicsTable[] = {
    /* 1 */ slot(unused<graphics, 1>),
    /* 2 */ slot(unused<graphics, 2>),
    /* 3 LoadStringW */ slot(operation<graphics, 3, int, HINSTANCE, UINT, wchar_t*, int>),
    /* 4 LoadImageW */ slot(operation<graphics, 4, HANDLE, HINSTANCE, Wide, UINT, int, int, UINT>),
    /* 5 */ slot(unused<graphics, 5>),
    /* 6 */ slot(unused<graphics, 6>),
    /* 7 */ slot(unused<graphics, 7>),
    /* 8 DeleteObject */ slot(operation<graphics, 8, BOOL, void*>),
    /* 9 GetSystemMetrics */ slot(operation<graphics, 9, int, int>),
    /* 10 */ slot(unused<graphics, 10>),
    /* 11 */ slot(unused<graphics, 11>),
    /* 12 */ slot(unused<graphics, 12>),
    /* 13 EnumPrintersW */ slot(operation<graphics, 13, BOOL, DWORD, wchar_t*, DWORD, BYTE*, DWORD, DWORD*, DWORD*>),
    /* 14 MonitorFromPoint */ slot(operation<graphics, 14, HMONITOR, POINT, DWORD>),
    /* 15 GetMonitorInfoW */ slot(operation<graphics, 15, BOOL, HMONITOR, MONITORINFO*>),
};

void* const profileTable[] = {
    /* 1 */ slot(unused<profile, 1>),
    /* 2 */ slot(unused<profile, 2>),
    /* 3 GetPrivateProfileStringW */ slot(operation<profile, 3, DWORD, Wide, Wide, Wide, wchar_t*, DWORD, Wide>),
    /* 4 GetPrivateProfileStringA */ slot(operation<profile, 4, DWORD, Narrow, Narrow, Narrow, char*, DWORD, Narrow>),
    /* 5 GetPrivateProfileIntW */ slot(operation<profile, 5, UINT, Wide, Wide, INT, Wide>),
    /* 6 GetPrivateProfileIntA */ slot(operation<profile, 6, UINT, Narrow, Narrow, INT, Narrow>),
    /* 7 */ slot(unused<profile, 7>),
    /* 8 GetPrivateProfileSectionW */ slot(operation<profile, 8, DWORD, Wide, wchar_t*, DWORD, Wide>),
    /* 9 WritePrivateProfileStringW */ slot(operation<profile, 9, BOOL, Wide, Wide, Wide, Wide>),
    /* 10 WritePrivateProfileStringA */ slot(operation<profile, 10, BOOL, Narrow, Narrow, Narrow, Narrow>),
};

void* const dialogTable[] = {
    /* 1 MessageBoxW */ slot(operation<dialog, 1, int, HWND, Wide, Wide, UINT>),
    /* 2 PostMessageW */ slot(operation<dialog, 2, BOOL, HWND, UINT, WPARAM, LPARAM>),
    /* 3 SendMessageW */ slot(operation<dialog, 3, LRESULT, HWND, UINT, WPARAM, LPARAM>),
    /* 4 TaskDialogIndirect */ slot(operation<dialog, 4, HRESULT, const TASKDIALOGCONFIG*, int*, int*, BOOL*>),
};

void* const registryTable[] = {
    /* 1 RegQueryValueExW */ slot(operation<registry, 1, LONG, HKEY, Wide, DWORD*, DWORD*, BYTE*, DWORD*>),
    /* 2 RegCreateKeyExW */
    slot(
        operation<registry, 2, LONG, HKEY, Wide, DWORD, wchar_t*, DWORD, REGSAM, SECURITY_ATTRIBUTES*, HKEY**, DWORD*>),
    /* 3 RegOpenKeyExW */ slot(operation<registry, 3, LONG, HKEY, Wide, DWORD, REGSAM, HKEY*>),
    /* 4 RegOpenKeyW */ slot(operation<registry, 4, LONG, HKEY, Wide, HKEY*>),
    /* 5 RegSetValueExW */ slot(operation<registry, 5, LONG, HKEY, Wide, DWORD, DWORD, const BYTE*, DWORD>),
    /* 6 RegCloseKey */ slot(operation<registry, 6, LONG, HKEY>),
    /* 7 RegQueryInfoKeyW */
    slot(operation<registry, 7, LONG, HKEY, wchar_t*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*,
                   DWORD*, FILETIME*>),
    /* 8 RegEnumKeyW */ slot(operation<registry, 8, LONG, HKEY, DWORD, wchar_t*, DWORD>),
    /* 9 RegDeleteKeyW */ slot(operation<registry, 9, LONG, HKEY, Wide>),
    /* 10 RegDeleteValueW */ slot(operation<registry, 10, LONG, HKEY, Wide>),
    /* 11 RegEnumKeyExW */
    slot(operation<registry, 11, LONG, HKEY, DWORD, wchar_t*, DWORD*, DWORD*, wchar_t*, DWORD*, FILETIME*>),
    /* 12 RegEnumValueW */
    slot(operation<registry, 12, LONG, HKEY, DWORD, wchar_t*, DWORD*, DWORD*, DWORD*, BYTE*, DWORD*>),
    /* 13 RegQueryValueW */ slot(operation<registry, 13, LONG, HKEY, Wide, wchar_t*, LONG*>),
    /* 14 RegDeleteKeyExW */ slot(operation<registry, 14, LONG, HKEY, Wide, REGSAM, DWORD>),
    /* 15 RegCreateKeyW */ slot(operation<registry, 15, LONG, HKEY, Wide, HKEY**>),
};

void* const systemTable[] = {
    /* 1 GetNumberFormatW */ slot(operation<system, 1, int, LCID, DWORD, Wide, const NUMBERFMTW*, wchar_t*, int>),
    /* 2 ExpandEnvironmentStringsW */ slot(expandText),
};

HandLaidObject hubObject = {hubTable};
std::array<void* const*, serviceCount> serviceTables = {windowTable, fileSystemTable, cursorTable,
                                                        fontTable,   graphicsTable,   profileTable,
                                                        dialogTable, registryTable,   systemTable};

} // namespace

const wchar_t* const HandLaidHost::textAnswer = L"text that is too long for a short string";

HandLaidHost::HandLaidHost() : previous_(g_platformServices)
{
    record = {};
    g_platformServices = hub();
}

HandLaidHost::~HandLaidHost()
{
    g_platformServices = previous_;
    EXPECT_EQ(takeUnusedCalls(), std::vector<std::string>());
}

void HandLaidHost::answerWith(Word word)
{
    record.answer = word;
}

void HandLaidHost::withhold(Service service)
{
    record.withheld[index(service)] = true;
}

void HandLaidHost::whenCalled(std::function<void(const ServiceCall&)> action)
{
    record.action = std::move(action);
}

const std::vector<ServiceCall>& HandLaidHost::calls() const
{
    return record.calls;
}

int HandLaidHost::getterCalls(Service service) const
{
    return record.getterCalls[index(service)];
}

int HandLaidHost::getterCalls() const
{
    return std::accumulate(record.getterCalls.begin(), record.getterCalls.end(), 0);
}

std::vector<std::string> HandLaidHost::takeUnusedCalls()
{
    return std::exchange(record.unusedCalls, {});
}

IPlatformServices* HandLaidHost::hub() const
{
    return reinterpret_cast<IPlatformServices*>(&hubObject);
}

} // namespace kest::test
