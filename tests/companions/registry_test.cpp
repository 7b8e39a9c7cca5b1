#include "kest/companions/registry.h"

#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/host/registry_service.h"
#include "kest/host/system_service.h"
#include "kest/registry.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace kest::test;
using namespace std::string_literals;

namespace
{

std::string bytesOf(const std::wstring& text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

// The reference host's registry, in a scratch folder, with one key open.
class RegistryCompanions : public testing::Test
{
protected:
    RegistryCompanions() : service((folder.path() / "registry.db").string())
    {
        hub.registry = &service;
        hub.system = &system;
        EXPECT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Kest", &key), 0);
    }
    ~RegistryCompanions() override { RegCloseKey(key); }

    void set(const wchar_t* name, DWORD type, const std::string& data)
    {
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(data.data()),
                                 static_cast<DWORD>(data.size())),
                  0);
    }

    // What RegGetValueW answers to a caller with much room; the size that it tells must be that of what it wrote.
    struct Answer
    {
        LONG result;
        DWORD type;
        std::string data;

        bool operator==(const Answer&) const = default;
    };

    Answer get(const wchar_t* name, DWORD flags)
    {
        using Buffer = SentinelBuffer<char, 200>;
        Buffer buffer;
        Answer answer{};
        DWORD size = 200;
        answer.result = RegGetValueW(key, nullptr, name, flags, &answer.type, buffer.data(), &size);
        if (answer.result != 0)
        {
            EXPECT_EQ(buffer.contents(), Buffer::untouched());
            return answer;
        }
        answer.data = buffer.contents().substr(0, size);
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(answer.data));
        DWORD measured = 0;
        EXPECT_EQ(RegGetValueW(key, nullptr, name, flags, nullptr, nullptr, &measured), 0);
        EXPECT_EQ(measured, size);
        return answer;
    }

    static bool exists(HKEY parent, const wchar_t* path)
    {
        HKEY found = nullptr;
        const bool there = RegOpenKeyExW(parent, path, 0, KEY_READ, &found) == 0;
        if (there)
            RegCloseKey(found);
        return there;
    }

    void make(const wchar_t* path)
    {
        HKEY made = nullptr;
        ASSERT_EQ(RegCreateKeyW(key, path, &made), 0);
        RegCloseKey(made);
    }

    const ScratchFolder folder;
    kest::host::RegistryService service;
    kest::host::SystemService system;
    StubHub hub;
    InstalledHub installed{&hub};
    HKEY key = nullptr;
};

// ---- Reading -------------------------------------------------------------------------------------------------------

TEST_F(RegistryCompanions, ReadValuesOfTheTypesAskedFor)
{
    set(L"number", REG_DWORD, "\1\2\3\4");
    set(L"large", REG_QWORD, "12345678");
    set(L"four", REG_BINARY, "1234");
    set(L"eight", REG_BINARY, "12345678");
    set(L"none", REG_NONE, "");
    set(L"text", REG_SZ, bytesOf(L"abc\0"s));
    set(L"link", REG_LINK, "xyz");

    const struct
    {
        const wchar_t* name;
        DWORD flags;
        Answer answer;
    } cases[] = {
        {L"number", RRF_RT_REG_DWORD, {0, REG_DWORD, "\1\2\3\4"}},
        {L"number", RRF_RT_DWORD, {0, REG_DWORD, "\1\2\3\4"}},
        {L"number", RRF_RT_ANY, {0, REG_DWORD, "\1\2\3\4"}},
        {L"number", RRF_RT_REG_QWORD, {1630, 0, ""}},
        {L"number", RRF_RT_REG_SZ, {1630, 0, ""}},
        {L"large", RRF_RT_REG_QWORD, {0, REG_QWORD, "12345678"}},
        {L"large", RRF_RT_QWORD, {0, REG_QWORD, "12345678"}},
        {L"four", RRF_RT_DWORD, {0, REG_BINARY, "1234"}},
        {L"four", RRF_RT_QWORD, {1629, 0, ""}},
        {L"eight", RRF_RT_QWORD, {0, REG_BINARY, "12345678"}},
        {L"eight", RRF_RT_DWORD, {1629, 0, ""}},
        {L"eight", RRF_RT_REG_BINARY, {0, REG_BINARY, "12345678"}},
        {L"none", RRF_RT_REG_NONE, {0, REG_NONE, ""}},
        {L"text", RRF_RT_REG_SZ | RRF_RT_REG_DWORD, {0, REG_SZ, bytesOf(L"abc\0"s)}},
        {L"text", RRF_RT_REG_BINARY, {1630, 0, ""}},
        {L"link", RRF_RT_ANY, {0, REG_LINK, "xyz"}},
        {L"link", RRF_RT_REG_BINARY, {1630, 0, ""}},
        {L"missing", RRF_RT_ANY, {2, 0, ""}},
        {L"text", 0, {87, 0, ""}},
        {L"text", RRF_RT_REG_EXPAND_SZ | RRF_RT_REG_SZ, {87, 0, ""}},
        {L"text", RRF_RT_ANY | RRF_SUBKEY_WOW6464KEY | RRF_SUBKEY_WOW6432KEY, {87, 0, ""}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(get(row.name, row.flags), row.answer) << row.name << ' ' << row.flags;
}

TEST_F(RegistryCompanions, TerminateWhatTheyRead)
{
    set(L"bare", REG_SZ, bytesOf(L"abc"));
    set(L"empty", REG_SZ, "");
    set(L"odd", REG_SZ, bytesOf(L"abc") + "xyz");
    set(L"list", REG_MULTI_SZ, bytesOf(L"a\0b"s));
    set(L"list with one", REG_MULTI_SZ, bytesOf(L"a\0b\0"s));
    set(L"whole list", REG_MULTI_SZ, bytesOf(L"a\0b\0\0"s));
    set(L"empty list", REG_MULTI_SZ, "");
    EXPECT_EQ(get(L"bare", RRF_RT_ANY).data, bytesOf(L"abc\0"s));
    EXPECT_EQ(get(L"empty", RRF_RT_ANY).data, bytesOf(L"\0"s));
    EXPECT_EQ(get(L"odd", RRF_RT_ANY).data, bytesOf(L"abc\0"s));
    for (const wchar_t* const name : {L"list", L"list with one", L"whole list"})
        EXPECT_EQ(get(name, RRF_RT_ANY).data, bytesOf(L"a\0b\0\0"s)) << name;
    EXPECT_EQ(get(L"empty list", RRF_RT_ANY).data, bytesOf(L"\0\0"s));
}

TEST_F(RegistryCompanions, ExpandVariables)
{
    const ScopedVariable variable("KEST_TEST_VARIABLE", "a value");
    set(L"path", REG_EXPAND_SZ, bytesOf(L"<%KEST_TEST_VARIABLE%>"));
    const Answer expanded = {0, REG_SZ, bytesOf(L"<a value>\0"s)};
    EXPECT_EQ(get(L"path", RRF_RT_REG_SZ), expanded);
    EXPECT_EQ(get(L"path", RRF_RT_ANY), expanded);
    const Answer kept = {0, REG_EXPAND_SZ, bytesOf(L"<%KEST_TEST_VARIABLE%>\0"s)};
    EXPECT_EQ(get(L"path", RRF_RT_ANY | RRF_NOEXPAND), kept);
    EXPECT_EQ(get(L"path", RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND), kept);
    EXPECT_EQ(get(L"path", RRF_RT_REG_SZ | RRF_NOEXPAND).result, 1630);

    const ScopedVariable much("KEST_TEST_MUCH", std::string(1000, 'x').c_str());
    set(L"nothing", REG_EXPAND_SZ, "");
    EXPECT_EQ(get(L"nothing", RRF_RT_ANY), (Answer{0, REG_SZ, bytesOf(L"\0"s)}));
    set(L"much", REG_EXPAND_SZ, bytesOf(L"%KEST_TEST_MUCH%"));
    DWORD size = 0;
    EXPECT_EQ(RegGetValueW(key, nullptr, L"much", RRF_RT_ANY, nullptr, nullptr, &size), 0);
    EXPECT_EQ(size, 1001 * sizeof(wchar_t));
}

TEST_F(RegistryCompanions, ReadBelowTheKey)
{
    EXPECT_EQ(RegSetValueW(key, L"Below", REG_SZ, L"abc", 0), 0);
    wchar_t text[10] = {};
    DWORD size = sizeof text;
    EXPECT_EQ(RegGetValueW(key, L"Below", nullptr, RRF_RT_REG_SZ | RRF_SUBKEY_WOW6464KEY, nullptr, text, &size), 0);
    EXPECT_STREQ(text, L"abc");
    EXPECT_EQ(size, 16U);
    EXPECT_EQ(RegGetValueW(key, L"Missing", nullptr, RRF_RT_ANY, nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(RegGetValueW(key, L"Below", L"", RRF_RT_ANY, nullptr, nullptr, nullptr), 0);
}

TEST_F(RegistryCompanions, TellTheSizeNeeded)
{
    set(L"text", REG_SZ, bytesOf(L"abc"));
    using Buffer = SentinelBuffer<char, 20>;
    Buffer buffer;
    DWORD size = 15;
    DWORD type = 0;
    EXPECT_EQ(RegGetValueW(key, nullptr, L"text", RRF_RT_ANY, &type, buffer.data(), &size), 234);
    EXPECT_EQ(size, 16U);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
    EXPECT_EQ(RegGetValueW(key, nullptr, L"text", RRF_RT_ANY, &type, buffer.data(), nullptr), 87);
}

TEST_F(RegistryCompanions, ClearTheBufferOnRequest)
{
    set(L"text", REG_SZ, bytesOf(L"abc"));
    using Buffer = SentinelBuffer<char, 20>;
    for (const wchar_t* const name : {L"text", L"missing"})
    {
        Buffer buffer;
        DWORD size = 15;
        EXPECT_NE(RegGetValueW(key, nullptr, name, RRF_RT_ANY | RRF_ZEROONFAILURE, nullptr, buffer.data(), &size), 0);
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(std::string(15, '\0')));
    }
}

TEST(RegGetValueW, KeepsVariablesWithoutService)
{
    // A value with variables, and nothing to expand them.
    class Value : public StubRegistryService
    {
    public:
        LONG RegQueryValueExW(HKEY, const wchar_t*, DWORD*, DWORD* type, BYTE* data, DWORD* size) override
        {
            const std::string bytes = bytesOf(L"%HOME%\0"s);
            *type = REG_EXPAND_SZ;
            *size = static_cast<DWORD>(bytes.size());
            if (data != nullptr)
                std::memcpy(data, bytes.data(), bytes.size());
            return 0;
        }
    };
    StubHub hub;
    Value service;
    hub.registry = &service;
    const InstalledHub installed(&hub);
    wchar_t text[10] = {};
    DWORD size = sizeof text;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, nullptr, L"x", RRF_RT_REG_SZ, nullptr, text, &size), 0);
    EXPECT_STREQ(text, L"%HOME%");
}

// ---- Deleting ------------------------------------------------------------------------------------------------------

TEST_F(RegistryCompanions, DeleteAKeyWithAllBelowIt)
{
    make(L"Tree\\A\\B\\C");
    make(L"Tree\\D");
    make(L"Treetop");
    EXPECT_EQ(RegSetValueW(key, L"Tree\\A\\B", REG_SZ, L"text", 0), 0);
    EXPECT_EQ(RegDeleteTreeW(key, L"Tree"), 0);
    EXPECT_FALSE(exists(key, L"Tree"));
    EXPECT_TRUE(exists(key, L"Treetop"));
    EXPECT_EQ(RegDeleteTreeW(key, L"Tree"), 2);
}

TEST_F(RegistryCompanions, EmptyTheKeyItself)
{
    for (const wchar_t* const path : {static_cast<const wchar_t*>(nullptr), L""})
    {
        make(L"A\\B");
        make(L"C");
        set(L"one", REG_SZ, bytesOf(L"text\0"s));
        set(nullptr, REG_SZ, bytesOf(L"text\0"s));
        EXPECT_EQ(RegDeleteTreeW(key, path), 0);
        DWORD keys = 77;
        DWORD values = 77;
        EXPECT_EQ(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                                   nullptr, nullptr),
                  0);
        EXPECT_EQ(keys, 0U);
        EXPECT_EQ(values, 0U);
    }
}

TEST_F(RegistryCompanions, StopDeletingAtTheFirstRefusal)
{
    make(L"Tree\\A");
    HKEY reading = nullptr;
    ASSERT_EQ(RegOpenKeyExW(key, L"Tree", 0, KEY_SET_VALUE, &reading), 0);
    EXPECT_EQ(RegDeleteTreeW(reading, nullptr), 5);
    EXPECT_TRUE(exists(key, L"Tree\\A"));
    RegCloseKey(reading);
}

// ---- A key's own value ---------------------------------------------------------------------------------------------

TEST_F(RegistryCompanions, SetAKeysOwnValue)
{
    EXPECT_EQ(RegSetValueW(key, nullptr, REG_SZ, L"first", 1), 0);
    EXPECT_EQ(get(nullptr, RRF_RT_ANY), (Answer{0, REG_SZ, bytesOf(L"first\0"s)}));
    EXPECT_EQ(RegSetValueW(key, L"", REG_SZ, L"second", 0), 0);
    EXPECT_EQ(get(L"", RRF_RT_ANY), (Answer{0, REG_SZ, bytesOf(L"second\0"s)}));
    EXPECT_EQ(RegSetValueW(key, L"New\\Below", REG_SZ, L"third", 0), 0);
    EXPECT_TRUE(exists(key, L"New\\Below"));
    EXPECT_EQ(RegSetValueW(key, nullptr, REG_DWORD, L"x", 0), 87);
    EXPECT_EQ(RegSetValueW(key, nullptr, REG_SZ, nullptr, 0), 87);
    EXPECT_EQ(get(nullptr, RRF_RT_ANY).data, bytesOf(L"second\0"s));
}

TEST(RegistryCompanionsWithoutService, AnswerOne)
{
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, nullptr, L"x", RRF_RT_ANY, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, L"Below", L"x", RRF_RT_ANY, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, L"Tree"), 1);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, nullptr), 1);
    EXPECT_EQ(RegSetValueW(HKEY_CURRENT_USER, nullptr, REG_SZ, L"x", 0), 1);
}

} // namespace
