#include "harness/sentinel_buffer.h"
#include "kest/host/cursor_service.h"
#include "kest/host/font_service.h"
#include "kest/host/graphics_service.h"
#include "kest/host/window_service.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::SentinelBuffer;

TEST(ConsoleServices, FindNoWindowAndNoKey)
{
    kest::host::ConsoleWindowService service;
    EXPECT_EQ(service.GetKeyState(65), 0);
    EXPECT_EQ(service.FindWindowW(L"class", L"window"), nullptr);
}

TEST(ConsoleServices, RememberTheCursorShapeButHaveNoPosition)
{
    kest::host::ConsoleCursorService service;
    const auto shape = reinterpret_cast<HCURSOR>(0x1234);
    EXPECT_EQ(service.GetCursor(), nullptr);
    EXPECT_EQ(service.SetCursor(shape), nullptr);
    EXPECT_EQ(service.GetCursor(), shape);
    EXPECT_EQ(service.SetCursor(nullptr), shape);
    POINT point = {7, 8};
    EXPECT_EQ(service.GetCursorPos(&point), 0);
    EXPECT_EQ(service.ScreenToClient(nullptr, &point), 0);
    EXPECT_EQ(point.x, 7);
    EXPECT_EQ(point.y, 8);
}

TEST(ConsoleServices, KnowTheCodePagesThatCanBeConverted)
{
    kest::host::ConsoleFontService service;
    for (const UINT codePage : {437U, 850U, 932U, 936U, 1250U, 1252U, 65001U})
    {
        EXPECT_EQ(service.IsValidCodePage(codePage), 1) << codePage;
    }
    EXPECT_EQ(service.IsValidCodePage(0), 0);
    EXPECT_EQ(service.IsValidCodePage(4711), 0);
}

TEST(ConsoleServices, EnumerateNoFonts)
{
    kest::host::ConsoleFontService service;
    const auto callback = [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM called)
    { return ++*reinterpret_cast<int*>(called); };
    int calls = 0;
    LOGFONTW font = {};
    EXPECT_EQ(service.EnumFontFamiliesExW(nullptr, &font, callback, reinterpret_cast<LPARAM>(&calls), 0), 0);
    EXPECT_EQ(calls, 0);
}

TEST(ConsoleServices, LoadEmptyStrings)
{
    kest::host::ConsoleGraphicsService service;
    SentinelBuffer<wchar_t, 10> buffer;
    EXPECT_EQ(service.LoadStringW(nullptr, 1, buffer.data(), 0), 0);
    EXPECT_EQ(buffer.contents(), buffer.untouched());
    EXPECT_EQ(service.LoadStringW(nullptr, 1, nullptr, 10), 0);
    EXPECT_EQ(service.LoadStringW(nullptr, 1, buffer.data(), 10), 0);
    EXPECT_EQ(buffer.contents(), buffer.startingWith(std::wstring(1, L'\0')));
}

TEST(ConsoleServices, HaveNoImagesMetricsPrintersOrMonitors)
{
    kest::host::ConsoleGraphicsService service;
    EXPECT_EQ(service.LoadImageW(nullptr, L"image", 0, 0, 0, 0), nullptr);
    EXPECT_EQ(service.GetSystemMetrics(0), 0);
    EXPECT_EQ(service.DeleteObject(nullptr), 0);
    EXPECT_EQ(service.DeleteObject(&service), 1);
    DWORD needed = 9;
    DWORD returned = 9;
    EXPECT_EQ(service.EnumPrintersW(0, nullptr, 2, nullptr, 0, &needed, &returned), 1);
    EXPECT_EQ(needed, 0U);
    EXPECT_EQ(returned, 0U);
    EXPECT_EQ(service.EnumPrintersW(0, nullptr, 2, nullptr, 0, nullptr, nullptr), 1);
    EXPECT_EQ(service.MonitorFromPoint({1, 2}, 1), nullptr);
    MONITORINFO info = {};
    info.dwFlags = 77;
    EXPECT_EQ(service.GetMonitorInfoW(nullptr, &info), 0);
    EXPECT_EQ(info.dwFlags, 77U);
}

} // namespace
