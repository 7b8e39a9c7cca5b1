#include "harness/in_child.h"
#include "harness/scoped_variable.h"
#include "kest/host/registry_service.h"
#include "kest/registry.h"
#include "tool_runner.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::Outcome;
using kest::test::quoted;
using namespace std::string_literals;

const std::string head = "Windows Registry Editor Version 5.00\r\n";

// The program on a registry of the test's own.
class KestReg : public testing::Test
{
protected:
    Outcome run(std::initializer_list<std::string> arguments, const std::string& input = "/dev/null") const
    {
        return kest::test::runTool(scratch_, KEST_REG, kest::test::words(arguments), input);
    }

    // Runs what must succeed without a word on standard error; returns its output.
    std::string done(std::initializer_list<std::string> arguments) const
    {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << *arguments.begin();
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }

    void expectRefused(std::initializer_list<std::string> arguments, const std::string& message, int status = 1) const
    {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.err,
                  "kest-reg: " + message + "\n" + (status == 2 ? "kest-reg /? shows how it is used\n" : ""));
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.status, status);
    }

    kest::test::ScratchFolder scratch_;
    std::string registry_ = (scratch_.path() / "registry.db").string();
    kest::test::ScopedVariable variable_{"KEST_REGISTRY", registry_.c_str()};
};

std::string utf16(const std::u16string& text)
{
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text)
    {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

TEST_F(KestReg, AddsAndShowsValuesOfAllTypes)
{
    const std::string key = "HKCU\\Software\\Größe";
    done({"add", key, "/v", "text", "/d", "some words"});
    done({"ADD", key, "/ve", "/D", "default"});
    done({"add", key, "/v", "expand", "/t", "reg_expand_sz", "/d", "%HOME%"});
    done({"add", key, "/v", "list", "/t", "REG_MULTI_SZ", "/d", "one\\0two"});
    done({"add", key, "/v", "commas", "/t", "REG_MULTI_SZ", "/d", "a\\0b,c", "/s", ","});
    done({"add", key, "/v", "number", "/t", "REG_DWORD", "/d", "42"});
    done({"add", key, "/v", "hex", "/t", "REG_DWORD", "/d", "0xFFFFFFFF"});
    done({"add", key, "/v", "big", "/t", "REG_DWORD_BIG_ENDIAN", "/d", "0x0102"});
    done({"add", key, "/v", "long", "/t", "REG_QWORD", "/d", "18446744073709551615"});
    done({"add", key, "/v", "bytes", "/t", "REG_BINARY", "/d", "00ffA1"});
    done({"add", key, "/v", "none", "/t", "REG_NONE"});
    done({"add", key, "/v", "strange", "/t", "12345", "/d", "01"});
    done({"add", key, "/v", "empty", "/t", "REG_DWORD"});
    done({"add", key + "\\below"});
    EXPECT_EQ(done({"query", "hkey_current_user\\SOFTWARE\\gRÖßE\\"}), "HKEY_CURRENT_USER\\Software\\Größe\n"
                                                                       "    text    REG_SZ    some words\n"
                                                                       "    (Default)    REG_SZ    default\n"
                                                                       "    expand    REG_EXPAND_SZ    %HOME%\n"
                                                                       "    list    REG_MULTI_SZ    one\\0two\n"
                                                                       "    commas    REG_MULTI_SZ    a\\0b\\0c\n"
                                                                       "    number    REG_DWORD    0x2a\n"
                                                                       "    hex    REG_DWORD    0xffffffff\n"
                                                                       "    big    REG_DWORD_BIG_ENDIAN    0x102\n"
                                                                       "    long    REG_QWORD    0xffffffffffffffff\n"
                                                                       "    bytes    REG_BINARY    00FFA1\n"
                                                                       "    none    REG_NONE    \n"
                                                                       "    strange    12345    01\n"
                                                                       "    empty    REG_DWORD    0x0\n"
                                                                       "\n"
                                                                       "HKEY_CURRENT_USER\\Software\\Größe\\below\n");
    EXPECT_EQ(done({"query", key, "/v", "NUMBER"}), "HKEY_CURRENT_USER\\Software\\Größe\n"
                                                    "    number    REG_DWORD    0x2a\n\n");
    EXPECT_EQ(done({"query", key, "/ve"}), "HKEY_CURRENT_USER\\Software\\Größe\n"
                                           "    (Default)    REG_SZ    default\n\n");
}

// What one sees, the other has written.
TEST_F(KestReg, SharesTheRegistryWithApplications)
{
    kest::host::RegistryService service(registry_);
    HKEY* key = nullptr;
    ASSERT_EQ(service.RegCreateKeyW(HKEY_CLASSES_ROOT, L".txt", &key), 0);
    ASSERT_EQ(service.RegSetValueExW(*key, L"", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"a"), 8), 0);
    EXPECT_EQ(done({"query", "HKLM\\Software\\Classes\\.txt"}),
              "HKEY_LOCAL_MACHINE\\Software\\Classes\\.txt\n    (Default)    REG_SZ    a\n\n");
    done({"add", "HKCR\\.txt", "/ve", "/d", "bc", "/f"});
    wchar_t text[4] = {};
    DWORD bytes = sizeof text;
    EXPECT_EQ(service.RegQueryValueExW(*key, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &bytes), 0);
    EXPECT_STREQ(text, L"bc");
    EXPECT_EQ(bytes, 12U);
}

TEST_F(KestReg, ShowsWhatIsBelowAndFindsText)
{
    done({"add", "HKU\\a", "/v", "Needle", "/d", "x"});
    done({"add", "HKU\\a\\needle\\c", "/v", "y", "/d", "a needle"});
    done({"add", "HKU\\a\\needle\\c", "/v", "n", "/t", "REG_DWORD", "/d", "7"});
    done({"add", "HKU\\b", "/v", "z", "/d", "needle"});
    EXPECT_EQ(done({"query", "HKU", "/s"}), "HKEY_USERS\n\n"
                                            "HKEY_USERS\\a\n    Needle    REG_SZ    x\n\n"
                                            "HKEY_USERS\\a\\needle\n\n"
                                            "HKEY_USERS\\a\\needle\\c\n    y    REG_SZ    a needle\n"
                                            "    n    REG_DWORD    0x7\n\n"
                                            "HKEY_USERS\\b\n    z    REG_SZ    needle\n\n");
    EXPECT_EQ(done({"query", "HKU", "/s", "/f", "NEEDLE"}), "HKEY_USERS\\a\n    Needle    REG_SZ    x\n\n"
                                                            "HKEY_USERS\\a\\needle\n"
                                                            "HKEY_USERS\\a\\needle\\c\n    y    REG_SZ    a needle\n\n"
                                                            "HKEY_USERS\\b\n    z    REG_SZ    needle\n\n"
                                                            "4 matches\n");
    EXPECT_EQ(done({"query", "HKU", "/s", "/f", "needle", "/k"}), "HKEY_USERS\\a\\needle\n1 match\n");
    EXPECT_EQ(done({"query", "HKU", "/s", "/f", "needle", "/d", "/e"}),
              "HKEY_USERS\\b\n    z    REG_SZ    needle\n\n1 match\n");
    EXPECT_EQ(done({"query", "HKU\\a", "/f", "Needle", "/c"}), "HKEY_USERS\\a\n    Needle    REG_SZ    x\n\n1 match\n");
    EXPECT_EQ(done({"query", "HKU", "/s", "/t", "REG_DWORD"}),
              "HKEY_USERS\\a\\needle\\c\n    n    REG_DWORD    0x7\n\n");
    EXPECT_EQ(done({"query", "HKU", "/s", "/v", "z"}), "HKEY_USERS\\b\n    z    REG_SZ    needle\n\n");
    const Outcome nothing = run({"query", "HKU", "/s", "/f", "haystack"});
    EXPECT_EQ(nothing.out, "0 matches\n");
    EXPECT_EQ(nothing.status, 1);
}

TEST_F(KestReg, DeletesValuesAndKeys)
{
    for (const char* const name : {"one", "two", "three"})
    {
        done({"add", "HKCU\\a\\b", "/v", name});
    }
    done({"add", "HKCU\\a\\b", "/ve"});
    done({"add", "HKCU\\a-c\\b"});
    done({"delete", "HKCU\\A\\B", "/v", "ONE", "/f"});
    done({"delete", "HKCU\\A\\B", "/ve", "/f"});
    EXPECT_EQ(done({"query", "HKCU", "/s"}),
              "HKEY_CURRENT_USER\n\nHKEY_CURRENT_USER\\a\n\n"
              "HKEY_CURRENT_USER\\a\\b\n    two    REG_SZ    \n    three    REG_SZ    \n\n"
              "HKEY_CURRENT_USER\\a-c\n\nHKEY_CURRENT_USER\\a-c\\b\n\n");
    done({"delete", "HKCU\\a\\b", "/va", "/f"});
    EXPECT_EQ(done({"query", "HKCU\\a\\b"}), "HKEY_CURRENT_USER\\a\\b\n\n");
    done({"delete", "HKCU\\a", "/f"});
    EXPECT_EQ(done({"query", "HKCU", "/s"}),
              "HKEY_CURRENT_USER\n\nHKEY_CURRENT_USER\\a-c\n\nHKEY_CURRENT_USER\\a-c\\b\n\n");
    expectRefused({"delete", "HKCU\\a", "/f"}, "key \"HKCU\\a\" is not there");
    expectRefused({"delete", "HKCU\\a-c", "/v", "x", "/f"}, "key \"HKEY_CURRENT_USER\\a-c\" has no value \"x\"");
    expectRefused({"delete", "HKCU\\a-c", "/ve", "/f"}, "key \"HKEY_CURRENT_USER\\a-c\" has no default value");
    for (const char* const key : {"HKEY_LOCAL_MACHINE", "HKEY_LOCAL_MACHINE\\Software", "HKEY_CURRENT_USER"})
    {
        expectRefused({"delete", key, "/f"}, "key \""s + key + "\" is a part of every registry and cannot be deleted");
    }
    EXPECT_EQ(done({"query", "HKCU\\a-c"}), "HKEY_CURRENT_USER\\a-c\n\nHKEY_CURRENT_USER\\a-c\\b\n");
}

TEST_F(KestReg, AsksBeforeItOverwritesAndDeletes)
{
    done({"add", "HKCU\\a", "/v", "x", "/d", "old"});
    scratch_.write("yes", "yes\n");
    scratch_.write("no", "No\n");
    scratch_.write("a.reg", "old");
    struct Row
    {
        std::initializer_list<std::string> arguments;
        const char* question;
        const char* option;
    };
    const Row rows[] = {
        {{"add", "HKCU\\a", "/v", "x", "/d", "new"}, "value \"x\" is there: overwrite it?", "/f"},
        {{"export", "HKCU\\a", "a.reg"}, "file \"a.reg\" is there: overwrite it?", "/y"},
        {{"delete", "HKCU\\a", "/v", "x"}, "delete value \"x\" of key \"HKEY_CURRENT_USER\\a\"?", "/f"},
        {{"delete", "HKCU\\a", "/va"}, "delete all values of key \"HKEY_CURRENT_USER\\a\"?", "/f"},
        {{"delete", "HKCU\\a"}, "delete key \"HKEY_CURRENT_USER\\a\" with all below it?", "/f"},
    };
    const std::string before = done({"query", "HKCU", "/s"});
    for (const Row& row : rows)
    {
        for (const char* const input : {"no", "/dev/null"})
        {
            const Outcome outcome = run(row.arguments, input);
            EXPECT_EQ(outcome.err, "kest-reg: "s + row.question + " (yes or no) kest-reg: nothing is changed; " +
                                       row.option + " answers yes\n");
            EXPECT_EQ(outcome.status, 1);
        }
    }
    EXPECT_EQ(done({"query", "HKCU", "/s"}), before);
    EXPECT_EQ(scratch_.read("a.reg"), "old");
    for (const Row& row : rows)
    {
        const Outcome outcome = run(row.arguments, "yes");
        EXPECT_EQ(outcome.err, "kest-reg: "s + row.question + " (yes or no) ");
        EXPECT_EQ(outcome.status, 0);
    }
    EXPECT_EQ(done({"query", "HKCU", "/s"}), "HKEY_CURRENT_USER\n\n");
    EXPECT_NE(scratch_.read("a.reg"), "old");
}

TEST_F(KestReg, ImportsAFileAsWindowsWritesIt)
{
    done({"add", "HKCU\\Software\\Old\\Deeper"});
    done({"add", "HKCU\\Software\\App", "/v", "gone"});
    scratch_.write("settings.reg",
                   utf16(u"Windows Registry Editor Version 5.00\r\n\r\n"
                         u"[HKEY_CURRENT_USER\\Software\\App\\Größe 😀]\r\n"
                         u"@=\"default\"\r\n\"path\"=\"C:\\\\Programme\\\\\\\"x\\\"\"\r\n\"count\"=dword:0000002a\r\n"
                         u"\"expand\"=hex(2):25,00,41,00,3d,d8,00,de,00,00\r\n"
                         u"\"list\"=hex(7):61,00,00,00,\\\r\n  62,00,00,00,00,00\r\n"
                         u"\"binary\"=hex:de,ad\r\n\"long\"=hex(b):01,00,00,00,00,00,00,00\r\n\r\n"
                         u"[HKEY_CURRENT_USER\\Software\\App]\r\n\"gone\"=-\r\n\"never was\"=-\r\n\r\n"
                         u"[-HKEY_CURRENT_USER\\Software\\Old]\r\n[-HKEY_CURRENT_USER\\Software\\Never]\r\n"));
    done({"import", "settings.reg"});
    const std::string expected = "HKEY_CURRENT_USER\\Software\n\n"
                                 "HKEY_CURRENT_USER\\Software\\App\n\n"
                                 "HKEY_CURRENT_USER\\Software\\App\\Größe 😀\n"
                                 "    (Default)    REG_SZ    default\n"
                                 "    path    REG_SZ    C:\\Programme\\\"x\"\n"
                                 "    count    REG_DWORD    0x2a\n"
                                 "    expand    REG_EXPAND_SZ    %A😀\n"
                                 "    list    REG_MULTI_SZ    a\\0b\n"
                                 "    binary    REG_BINARY    DEAD\n"
                                 "    long    REG_QWORD    0x1\n\n";
    EXPECT_EQ(done({"query", "HKCU\\Software", "/s"}), expected);

    // Out and in again, in both encodings.
    done({"export", "HKCU\\software", "out.reg"});
    done({"export", "HKCU\\software", "out8.reg", "/utf8"});
    EXPECT_EQ(scratch_.read("out.reg").substr(0, 6), "\xFF\xFEW\0i\0"s);
    EXPECT_EQ(scratch_.read("out8.reg").substr(0, head.size()), head);
    for (const char* const file : {"out.reg", "out8.reg"})
    {
        done({"delete", "HKCU\\Software", "/f"});
        done({"import", file});
        EXPECT_EQ(done({"query", "HKCU\\Software", "/s"}), expected) << file;
        done({"export", "HKCU\\Software", "again.reg", "/y"});
        EXPECT_EQ(scratch_.read("again.reg"), scratch_.read("out.reg")) << file;
    }
}

TEST_F(KestReg, RefusesAMalformedFileWhole)
{
    done({"add", "HKCU\\a", "/v", "x", "/d", "kept"});
    const std::string before = done({"query", "HKCU", "/s"});
    const std::string change = head + "[-HKEY_CURRENT_USER\\a]\r\n[HKEY_CURRENT_USER\\b]\r\n@=\"new\"\r\n";
    struct Row
    {
        std::string content;
        const char* message;
    };
    const Row rows[] = {
        {"", "line 1: the file must begin with \"Windows Registry Editor Version 5.00\""},
        {change + "@=\"open\r\n", "line 5: the closing quote is missing"},
        {change + "[HKEY_NOBODY\\c]\r\n", "line 5: the key does not begin with a predefined key"},
        {change + "[-HKEY_LOCAL_MACHINE]\r\n", "line 5: the key is a part of every registry and cannot be deleted"},
        {change + "; \xFF\r\n", "line 5: this is no UTF-8 text"},
    };
    for (const Row& row : rows)
    {
        scratch_.write("bad file.reg", row.content);
        expectRefused({"import", "bad file.reg"}, "file \"bad file.reg\", "s + row.message + "; nothing is imported");
        EXPECT_EQ(done({"query", "HKCU", "/s"}), before);
    }
    expectRefused({"import", "none.reg"}, "file \"none.reg\": No such file or directory");
    expectRefused({"import", "."}, "file \".\": Is a directory");
}

TEST_F(KestReg, NamesWhatItCannotExport)
{
    kest::host::RegistryService service(registry_);
    HKEY* key = nullptr;
    ASSERT_EQ(service.RegCreateKeyW(HKEY_CURRENT_USER, L"a", &key), 0);
    ASSERT_EQ(service.RegSetValueExW(*key, L"odd", 0, REG_SZ, reinterpret_cast<const BYTE*>("abc"), 3), 0);
    ASSERT_EQ(service.RegSetValueExW(*key, L"x", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"y"), 8), 0);
    EXPECT_EQ(done({"query", "HKCU\\a", "/v", "odd"}), "HKEY_CURRENT_USER\\a\n    odd    REG_SZ    616263\n\n");
    expectRefused({"export", "HKCU\\a", "a.reg", "/utf8"},
                  "value \"odd\" of key \"HKEY_CURRENT_USER\\a\" is left out: its data is no text");
    EXPECT_EQ(scratch_.read("a.reg"),
              head + "\r\n[HKEY_CURRENT_USER\\a]\r\n; left out, as its data is no text: \"odd\"\r\n\"x\"=\"y\"\r\n");
    expectRefused({"export", "HKLM", "none/a.reg"}, "file \"none/a.reg\": No such file or directory");
    expectRefused({"export", "HKCU\\b", "b.reg"}, "key \"HKCU\\b\" is not there");
    EXPECT_FALSE(std::filesystem::exists("b.reg"));
    // Pipes and devices are written to, not replaced.
    const Outcome piped = run({"export", "HKCU\\a", "/dev/full"});
    EXPECT_EQ(piped.status, 1);
    EXPECT_NE(piped.err.find("file \"/dev/full\": No space left on device\n"), std::string::npos) << piped.err;
}

TEST_F(KestReg, AnswersBadCommandLines)
{
    struct Row
    {
        std::initializer_list<std::string> arguments;
        const char* message;
    };
    const std::string longName(16'384, 'n');
    const Row rows[] = {
        {{}, "a verb is missing"},
        {{"show"}, "unknown verb \"show\""},
        {{"query"}, "KEY is missing"},
        {{"export", "HKCU"}, "FILE is missing"},
        {{"import", ""}, "FILE is missing"},
        {{"query", "HKCU", "/x"}, "unknown option \"/x\""},
        {{"query", "HKCU", "x"}, "unknown option \"x\""},
        {{"query", "HKCU", "/v"}, "option /v needs a value"},
        {{"query", "HKCU", "/s", "/S"}, "option /S is given twice"},
        {{"query", "HKCU", "/v", "a", "/ve"}, "options /v and /ve exclude each other"},
        {{"query", "HKCU", "/k"}, "option /k needs /f"},
        {{"query", "HKCU", "/t", "REG_WORD"}, "\"REG_WORD\" is no type of value"},
        {{"add", "HKCU\\a", "/d", "x"}, "option /d needs /v or /ve"},
        {{"add", "HKCU\\a", "/ve", "/s", ","}, "option /s needs the type REG_MULTI_SZ"},
        {{"add", "HKCU\\a", "/ve", "/t", "REG_DWORD", "/d", "4294967296"},
         "\"4294967296\" is no number from 0 to 4294967295"},
        {{"add", "HKCU\\a", "/ve", "/t", "REG_DWORD", "/d", "-1"}, "\"-1\" is no number from 0 to 4294967295"},
        {{"add", "HKCU\\a", "/ve", "/t", "REG_QWORD", "/d", "18446744073709551616"},
         "\"18446744073709551616\" is no number from 0 to 18446744073709551615"},
        {{"add", "HKCU\\a", "/ve", "/t", "REG_BINARY", "/d", "123"},
         "\"123\" is no row of bytes with two hexadecimal digits each"},
        {{"add", "HKCU\\a", "/ve", "/t", "REG_MULTI_SZ", "/d", "a\\0\\0b"}, "a list cannot hold an empty text"},
        {{"delete", "HKCU\\a", "/va", "/ve"}, "options /ve and /va exclude each other"},
        {{"query", "\xFF"}, "argument 2 is no UTF-8 text"},
    };
    for (const Row& row : rows)
    {
        expectRefused(row.arguments, row.message, 2);
    }
    expectRefused({"query", "\\\\server\\HKLM"},
                  "key \"\\\\server\\HKLM\": the registry of another computer cannot be reached");
    expectRefused({"query", "HKXX\\a"}, "key \"HKXX\\a\" does not begin with HKLM, HKCU, HKCR, HKU, HKCC or one of "
                                        "their full names");
    expectRefused({"add", "HKCU\\a\tb"},
                  "key \"HKCU\\a\tb\": a name has more than 255 characters or one that cannot be printed");
    expectRefused({"query", "HKCU", "/v", "x"}, "key \"HKCU\" has no such value");
    expectRefused({"add", "HKCU\\a", "/v", longName}, "the value's name has more than 16383 characters");
}

TEST_F(KestReg, ShowsHowItIsUsed)
{
    for (const char* const argument : {"/?", "--help", "help"})
    {
        const std::string text = done({argument});
        EXPECT_EQ(text.substr(0, text.find('\n')),
                  "usage: kest-reg query KEY [/v NAME | /ve] [/t TYPE] [/s] [/f TEXT [/k] [/d] [/c] [/e]]");
        EXPECT_EQ(done({"add", "/?"}), text);
    }
    EXPECT_FALSE(std::filesystem::exists(registry_));
}

TEST_F(KestReg, NamesADamagedRegistryAndLeavesItAlone)
{
    scratch_.write("registry.db", std::string(5000, 'x'));
    expectRefused({"query", "HKCU"}, "registry \"" + registry_ + "\": file is not a database");
    EXPECT_EQ(scratch_.read("registry.db"), std::string(5000, 'x'));
}

TEST_F(KestReg, SaysWhyTheRegistryCannotBeOpened)
{
    std::filesystem::create_directory("registry.db");
    expectRefused({"query", "HKCU"}, "registry \"" + registry_ + "\": Is a directory");
}

TEST_F(KestReg, SaysSoWhenItsOutputCannotBeWritten)
{
    EXPECT_EQ(
        std::system((kest::test::emulatorPrefix() + quoted(KEST_REG) + " query HKLM >/dev/full 2>err.txt").c_str()),
        1 << 8);
    EXPECT_EQ(scratch_.read("err.txt"), "kest-reg: standard output cannot be written to\n");
}

TEST_F(KestReg, LosesNoWriteOfEightOfItsProcesses)
{
    EXPECT_EQ(
        kest::test::failuresInChildren(
            8,
            [](int process)
            {
                for (int number = 0; number < 3; ++number)
                {
                    const std::string key = "HKCU\\" + std::to_string(process) + std::to_string(number);
                    ASSERT_EQ(
                        std::system((kest::test::emulatorPrefix() + quoted(KEST_REG) + " add " + quoted(key)).c_str()),
                        0);
                }
            }),
        0);
    std::string expected = "HKEY_CURRENT_USER\n\n";
    for (int process = 0; process < 8; ++process)
    {
        for (int number = 0; number < 3; ++number)
        {
            expected += "HKEY_CURRENT_USER\\" + std::to_string(process) + std::to_string(number) + "\n";
        }
    }
    EXPECT_EQ(done({"query", "HKCU"}), expected);
}

} // namespace
