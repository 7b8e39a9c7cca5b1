#include "reg_text.h"

#include "kest/registry.h"
#include "unicode.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using namespace kest::host;
using namespace std::string_literals;

using Bytes = std::vector<unsigned char>;

Bytes bytesOf(const std::wstring& text)
{
    const auto* const data = reinterpret_cast<const unsigned char*>(text.data());
    return {data, data + text.size() * sizeof(wchar_t)};
}

const std::string head = "Windows Registry Editor Version 5.00\r\n";

// A whole file as its keys and values, one a line.
std::string described(const std::vector<RegTextKey>& keys)
{
    std::string text;
    for (const RegTextKey& key : keys)
    {
        text += std::to_string(key.line) + (key.removed ? " -" : " ") + toUtf8(key.path) + "\n";
        for (const RegTextValue& value : key.values)
        {
            text += "  " + toUtf8(value.name) + (value.removed ? " removed" : " " + std::to_string(value.type)) + " " +
                    std::to_string(value.data.size()) + "\n";
        }
    }
    return text;
}

// The data of the only value of a file's only key.
RegTextValue only(const std::string& line)
{
    const std::vector<RegTextKey> keys = readRegText(head + "[HKEY_CURRENT_USER]\r\n" + line);
    EXPECT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys.at(0).values.size(), 1U);
    return keys.at(0).values.at(0);
}

TEST(RegText, HasKeysValuesDeletionsAndComments)
{
    const std::string file = head + "\r\n"
                                    "; a comment\r\n"
                                    "[HKEY_CURRENT_USER\\Software\\A]\r\n"
                                    "@=\"default\"\r\n"
                                    "\"text\"=\"x\" ; behind it\r\n"
                                    "\t\"number\" = dword:2A\r\n"
                                    "\"gone\"=-\r\n"
                                    "\r\n"
                                    "[-HKEY_CURRENT_USER\\Software\\B]\r\n"
                                    "[HKEY_CURRENT_USER\\a]b] ; closed\n"
                                    "[HKEY_CURRENT_USER\\[c]\n"
                                    "[HKEY_CURRENT_USER\\d]";
    EXPECT_EQ(described(readRegText(file)), "4 HKEY_CURRENT_USER\\Software\\A\n"
                                            "   1 32\n"
                                            "  text 1 8\n"
                                            "  number 4 4\n"
                                            "  gone removed 0\n"
                                            "10 -HKEY_CURRENT_USER\\Software\\B\n"
                                            "11 HKEY_CURRENT_USER\\a]b\n"
                                            "12 HKEY_CURRENT_USER\\[c\n"
                                            "13 HKEY_CURRENT_USER\\d\n");
    EXPECT_TRUE(readRegText(head).empty());
}

TEST(RegText, HasDataOfEveryType)
{
    struct Row
    {
        std::string line;
        std::uint32_t type;
        Bytes data;
    };
    const Row rows[] = {
        {"@=\"\"", REG_SZ, bytesOf(L"\0"s)},
        {R"(@="C:\\a \"b\" \\")", REG_SZ, bytesOf(L"C:\\a \"b\" \\\0"s)},
        {"@=\"two\r\nlines\"", REG_SZ, bytesOf(L"two\r\nlines\0"s)},
        {"@=\"\xC3\xA9\xF0\x9F\x98\x80\"", REG_SZ, bytesOf(L"\u00E9\U0001F600\0"s)},
        {"@=dword:0", REG_DWORD, {0, 0, 0, 0}},
        {"@=dword:89abCDEF", REG_DWORD, {0xEF, 0xCD, 0xAB, 0x89}},
        {"@=hex:", REG_BINARY, {}},
        {"@=hex:1,0f,FF", REG_BINARY, {1, 15, 255}},
        {"@=hex:01,\\\r\n  02,\\ \n\t03 ; three", REG_BINARY, {1, 2, 3}},
        {"@=hex:\\\n  01", REG_BINARY, {1}},
        {"@=hex(0):ff", REG_NONE, {255}},
        {"@=hex(4):01,02", REG_DWORD, {1, 2}},
        {"@=hex(B):01,00,00,00,00,00,00,80", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 128}},
        {"@=hex(ffffffff):01", 0xFFFFFFFF, {1}},
        {"@=hex(1):61,00", REG_SZ, bytesOf(L"a")},
        {"@=hex(2):3d,d8,00,de,00,00", REG_EXPAND_SZ, bytesOf(L"\U0001F600\0"s)},
        {"@=hex(6):", REG_LINK, {}},
        {"@=hex(7):61,00,00,00,e9,00,00,00,00,00", REG_MULTI_SZ, bytesOf(L"a\0\u00E9\0\0"s)},
        {"@=hex(8):61,00", REG_RESOURCE_LIST, {0x61, 0}},
    };
    for (const Row& row : rows)
    {
        const RegTextValue value = only(row.line);
        EXPECT_EQ(value.type, row.type) << row.line;
        EXPECT_EQ(value.data, row.data) << row.line;
    }
}

TEST(RegText, IsReadInUtf16AndUtf8)
{
    const std::wstring text =
        L"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Größe 😀]\r\n\"é\"=\"ж\"\r\n";
    const std::string expected = "3 HKEY_CURRENT_USER\\Größe 😀\n  é 1 8\n";
    EXPECT_EQ(described(readRegText("\xFF\xFE" + toUtf16Le(text))), expected);
    EXPECT_EQ(described(readRegText("\xEF\xBB\xBF" + toUtf8(text))), expected);
    EXPECT_EQ(described(readRegText(toUtf8(text))), expected);
}

TEST(RegText, IsRefusedWithItsLineWhenMalformed)
{
    struct Row
    {
        std::string content; // behind the first line and a key's line, unless it begins with '!'
        std::size_t line;
        const char* message;
    };
    const std::string longName(256, 'n');
    const Row rows[] = {
        {"!", 1, "the file must begin with \"Windows Registry Editor Version 5.00\""},
        {"!REGEDIT4\r\n", 1, "the file must begin with \"Windows Registry Editor Version 5.00\""},
        {"!\xFE\xFF\0W"s, 1, "UTF-16 with the high byte first is not read"},
        {"!\xFF\xFEW\0\n\0i"s, 2, "the file ends within a character"},
        {"!W\0i\0"s, 1, "a null character; UTF-16 text must begin with a byte-order mark"},
        {"!"s + head + "@=\"x\"\n", 2, "a value stands before the first key"},
        {"\n\n; \xFF\n", 5, "this is no UTF-8 text"},
        {"; \xC0\xAF\n", 3, "this is no UTF-8 text"},
        {"; \xED\xA0\x80\n", 3, "this is no UTF-8 text"},
        {"nonsense\n", 3, "a key in brackets, a value or a comment is expected"},
        {"[HKEY_USERS\n", 3, "the bracket behind the key is missing"},
        {"[HKEY_USERS] x\n", 3, "the bracket behind the key is missing"},
        {"[]\n", 3, "the key has no name"},
        {"[-]\n", 3, "the key has no name"},
        {"[HKEY_USERS\\" + longName + "]\n", 3,
         "a key's name has more than 255 characters or one that cannot be printed"},
        {"[HKEY_USERS\\a\tb]\n", 3, "a key's name has more than 255 characters or one that cannot be printed"},
        {"[-HKEY_USERS\\a]\n\"x\"=\"y\"\n", 4, "a value stands below a key that is deleted"},
        {"\"" + std::string(16'384, 'n') + "\"=-\n", 3, "a value's name has more than 16383 characters"},
        {"\"x\"\n", 3, "\"=\" is expected behind the value's name"},
        {"\"x\n\n", 3, "the closing quote is missing"},
        {"\n\"x\"=\"y\n\n[k]\n", 4, "the closing quote is missing"},
        {"@=\"C:\\x\"\n", 3, "a backslash between quotes must stand before another or before a quote"},
        {"@=\"\\", 3, "a backslash between quotes must stand before another or before a quote"},
        {"@=\n", 3, "the value's data must be text between quotes, dword:, hex:, hex(N): or -"},
        {"@=word:1\n", 3, "the value's data must be text between quotes, dword:, hex:, hex(N): or -"},
        {"@=hex(\n", 3, "the value's data must be text between quotes, dword:, hex:, hex(N): or -"},
        {"@=dword\n", 3, "\":\" is expected behind the value's type"},
        {"@=dword:\n", 3, "dword: needs one to eight hexadecimal digits"},
        {"@=dword:123456789\n", 3, "dword: needs one to eight hexadecimal digits"},
        {"@=dword:1x\n", 3, "unexpected text behind the value"},
        {"@=- x\n", 3, "unexpected text behind the value"},
        {"@=\"x\"y\n", 3, "unexpected text behind the value"},
        {"@=hex():01\n", 3, "the type in hex(N): needs one to eight hexadecimal digits"},
        {"@=hex(g):01\n", 3, "the type in hex(N): needs one to eight hexadecimal digits"},
        {"@=hex(123456789):01\n", 3, "the type in hex(N): needs one to eight hexadecimal digits"},
        {"@=hex:001\n", 3, "a byte has more than two hexadecimal digits"},
        {"@=hex:01,\\\r\n\r\n  02\n", 4, "a byte is expected behind the comma"},
        {"@=hex:01,\n", 3, "a byte is expected behind the comma"},
        {"@=hex:01,\\\n", 4, "a byte is expected behind the comma"},
        {"@=hex:01,\\ x\n", 3, "a backslash between bytes must end its line, and another line must follow"},
        {"@=hex:01,\\", 3, "a backslash between bytes must end its line, and another line must follow"},
        {"@=hex:01 02\n", 3, "unexpected text behind the value"},
        {"@=hex(1):61,\\\n 00,62\n", 3, "text in UTF-16 needs an even number of bytes"},
    };
    for (const Row& row : rows)
    {
        const std::string file =
            row.content.starts_with('!') ? row.content.substr(1) : head + "[HKEY_CURRENT_USER\\k]\n" + row.content;
        try
        {
            readRegText(file);
            ADD_FAILURE() << row.content;
        }
        catch (const RegTextError& error)
        {
            EXPECT_STREQ(error.what(), row.message) << row.content;
            EXPECT_EQ(error.line(), row.line) << row.content;
        }
    }
}

TEST(RegText, IsWrittenAsWindowsWritesIt)
{
    RegTextWriter writer;
    writer.beginKey(L"HKEY_CURRENT_USER\\Software");
    writer.addValue(L"", REG_SZ, bytesOf(L"default\0"s));
    writer.addValue(L"a \"quoted\" \\ name", REG_SZ, bytesOf(L"C:\\x \"y\"\0"s));
    writer.addValue(L"number", REG_DWORD, Bytes{0x2A, 0, 0, 0});
    writer.addValue(L"expand", REG_EXPAND_SZ, bytesOf(L"%A\0"s));
    writer.addValue(L"bytes", REG_BINARY, Bytes(30, 0xAB));
    writer.beginKey(L"HKEY_CURRENT_USER\\Software\\é");
    EXPECT_EQ(writer.utf8(), "Windows Registry Editor Version 5.00\r\n"
                             "\r\n"
                             "[HKEY_CURRENT_USER\\Software]\r\n"
                             "@=\"default\"\r\n"
                             "\"a \\\"quoted\\\" \\\\ name\"=\"C:\\\\x \\\"y\\\"\"\r\n"
                             "\"number\"=dword:0000002a\r\n"
                             "\"expand\"=hex(2):25,00,41,00,00,00\r\n"
                             "\"bytes\"=hex:ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,\\\r\n"
                             "  ab,ab,ab,ab,ab,ab,ab,ab,ab\r\n"
                             "\r\n"
                             "[HKEY_CURRENT_USER\\Software\\é]\r\n");
    EXPECT_EQ(writer.utf16(), "\xFF\xFE" + toUtf16Le(fromUtf8(writer.utf8())));
}

TEST(RegText, KeepsEverythingOnTheWayOutAndIn)
{
    const std::vector<std::wstring> names = {L"", L"plain", L"a=b", L"\"", L"\\", L"two\r\nlines", L"Größe 😀", L"; no"};
    const std::vector<std::pair<std::uint32_t, Bytes>> contents = {
        {REG_NONE, {}},
        {REG_NONE, {1, 2, 3}},
        {REG_SZ, bytesOf(L"text\0"s)},
        {REG_SZ, bytesOf(L"not terminated")},
        {REG_SZ, bytesOf(L"twice\0\0"s)},
        {REG_SZ, bytesOf(L"line\nline\0"s)},
        {REG_SZ, bytesOf(L"\xD83D alone\0"s)},
        {REG_SZ, bytesOf(L"\U0010FFFF\uFFFE\0"s)},
        {REG_SZ, {}},
        {REG_EXPAND_SZ, bytesOf(L"%PATH%\0"s)},
        {REG_BINARY, Bytes(1000, 7)},
        {REG_DWORD, {1, 2, 3, 4}},
        {REG_DWORD, {1, 2, 3}},
        {REG_DWORD_BIG_ENDIAN, {1, 2, 3, 4}},
        {REG_LINK, bytesOf(L"target")},
        {REG_MULTI_SZ, bytesOf(L"one\0two\0\0"s)},
        {REG_RESOURCE_LIST, {0, 255}},
        {REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8}},
        {12345, {9}},
        {0xFFFFFFFF, {}},
    };
    RegTextWriter writer;
    for (std::size_t index = 0; index < contents.size(); ++index)
    {
        writer.beginKey(L"HKEY_USERS\\key " + std::to_wstring(index) + L" ]");
        for (const std::wstring& name : names)
        {
            EXPECT_TRUE(writer.addValue(name, contents[index].first, contents[index].second));
        }
    }
    for (const std::string& file : {writer.utf16(), writer.utf8()})
    {
        const std::vector<RegTextKey> keys = readRegText(file);
        ASSERT_EQ(keys.size(), contents.size());
        for (std::size_t index = 0; index < contents.size(); ++index)
        {
            EXPECT_EQ(keys[index].path, L"HKEY_USERS\\key " + std::to_wstring(index) + L" ]");
            ASSERT_EQ(keys[index].values.size(), names.size());
            for (std::size_t number = 0; number < names.size(); ++number)
            {
                const RegTextValue& value = keys[index].values[number];
                EXPECT_EQ(value.name, names[number]);
                EXPECT_EQ(value.type, contents[index].first);
                EXPECT_EQ(value.data, contents[index].second) << index;
            }
        }
    }
}

TEST(RegText, LeavesOutTextsThatAreNone)
{
    RegTextWriter writer;
    writer.beginKey(L"HKEY_USERS");
    EXPECT_FALSE(writer.addValue(L"odd\n\"x\"=-", REG_SZ, Bytes{1, 2, 3}));
    EXPECT_FALSE(writer.addValue(L"beyond", REG_SZ, Bytes{0, 0, 0x11, 0}));
    EXPECT_FALSE(writer.addValue(L"pair", REG_MULTI_SZ, bytesOf({wchar_t(0xD83D), wchar_t(0xDE00)})));
    EXPECT_EQ(writer.utf8(), "Windows Registry Editor Version 5.00\r\n"
                             "\r\n"
                             "[HKEY_USERS]\r\n"
                             "; left out, as its data is no text: \"odd \"x\"=-\"\r\n"
                             "; left out, as its data is no text: \"beyond\"\r\n"
                             "; left out, as its data is no text: \"pair\"\r\n");
}

} // namespace
