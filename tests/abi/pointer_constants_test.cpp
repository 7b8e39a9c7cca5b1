#include "kest/kernel.h"
#include "kest/registry.h"
#include "kest/user_interface.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>

namespace
{

// Constants that are addresses on Windows: no compiler takes them for constant expressions.
TEST(PointerConstants, HaveTheValuesOfWindows)
{
    const struct
    {
        const char* name;
        const void* value;
        std::uintptr_t expected;
    } rows[] = {
        {"INVALID_HANDLE_VALUE", INVALID_HANDLE_VALUE, 0xFFFFFFFFFFFFFFFF},
        {"HGDI_ERROR", HGDI_ERROR, 0xFFFFFFFFFFFFFFFF},
        {"HWND_BROADCAST", HWND_BROADCAST, 0xFFFF},
        {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT, 0xFFFFFFFF80000000},
        {"HKEY_CURRENT_USER", HKEY_CURRENT_USER, 0xFFFFFFFF80000001},
        {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE, 0xFFFFFFFF80000002},
        {"HKEY_USERS", HKEY_USERS, 0xFFFFFFFF80000003},
        {"HKEY_PERFORMANCE_DATA", HKEY_PERFORMANCE_DATA, 0xFFFFFFFF80000004},
        {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG, 0xFFFFFFFF80000005},
        {"HKEY_DYN_DATA", HKEY_DYN_DATA, 0xFFFFFFFF80000006},
        {"HKEY_CURRENT_USER_LOCAL_SETTINGS", HKEY_CURRENT_USER_LOCAL_SETTINGS, 0xFFFFFFFF80000007},
        {"TD_WARNING_ICON", TD_WARNING_ICON, 0xFFFF},
        {"TD_ERROR_ICON", TD_ERROR_ICON, 0xFFFE},
        {"TD_INFORMATION_ICON", TD_INFORMATION_ICON, 0xFFFD},
        {"TD_SHIELD_ICON", TD_SHIELD_ICON, 0xFFFC},
        {"RT_CURSOR", RT_CURSOR, 1},
        {"RT_BITMAP", RT_BITMAP, 2},
        {"RT_ICON", RT_ICON, 3},
        {"RT_MENU", RT_MENU, 4},
        {"RT_DIALOG", RT_DIALOG, 5},
        {"RT_STRING", RT_STRING, 6},
        {"RT_FONTDIR", RT_FONTDIR, 7},
        {"RT_FONT", RT_FONT, 8},
        {"RT_ACCELERATOR", RT_ACCELERATOR, 9},
        {"RT_RCDATA", RT_RCDATA, 10},
        {"RT_MESSAGETABLE", RT_MESSAGETABLE, 11},
        {"RT_GROUP_CURSOR", RT_GROUP_CURSOR, 12},
        {"RT_GROUP_ICON", RT_GROUP_ICON, 14},
        {"RT_VERSION", RT_VERSION, 16},
        {"RT_HTML", RT_HTML, 23},
        {"RT_MANIFEST", RT_MANIFEST, 24},
        {"IDI_APPLICATION", IDI_APPLICATION, 32512},
        {"IDI_HAND", IDI_HAND, 32513},
        {"IDI_ERROR", IDI_ERROR, 32513},
        {"IDI_QUESTION", IDI_QUESTION, 32514},
        {"IDI_EXCLAMATION", IDI_EXCLAMATION, 32515},
        {"IDI_WARNING", IDI_WARNING, 32515},
        {"IDI_ASTERISK", IDI_ASTERISK, 32516},
        {"IDI_INFORMATION", IDI_INFORMATION, 32516},
        {"MAKEINTRESOURCEW", MAKEINTRESOURCEW(0x12345), 0x2345},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(row.value), row.expected) << row.name;
    }
}

TEST(PointerConstants, TellNumbersFromNames)
{
    EXPECT_TRUE(IS_INTRESOURCE(MAKEINTRESOURCEW(0xFFFF)));
    EXPECT_FALSE(IS_INTRESOURCE(reinterpret_cast<const wchar_t*>(0x10000L)));
}

TEST(Results, AreFailuresWhenNegative)
{
    EXPECT_TRUE(SUCCEEDED(S_OK) && SUCCEEDED(S_FALSE) && !SUCCEEDED(E_FAIL));
    EXPECT_TRUE(FAILED(E_FAIL) && FAILED(E_UNEXPECTED) && !FAILED(S_FALSE));
}

TEST(TrustActions, HaveTheIdentifiersOfWindows)
{
    const GUID verify = WINTRUST_ACTION_GENERIC_VERIFY_V2;
    const GUID expected = {0x00AAC56B, 0xCD44, 0x11D0, {0x8C, 0xC2, 0x00, 0xC0, 0x4F, 0xC2, 0x95, 0xEE}};
    EXPECT_EQ(std::memcmp(&verify, &expected, sizeof verify), 0);
}

} // namespace
