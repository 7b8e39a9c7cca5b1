#include "tools/tool_runner.h"
#include "tools/windows_image.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::Outcome;
using kest::test::quoted;
using kest::test::runTool;
using kest::test::WindowsImage;
using kest::test::words;

const std::string programs = KEST_TOOLS_PROGRAMS;

std::string audited(const std::string& name)
{
    return " " + quoted(programs + name);
}

class AuditTool : public testing::Test
{
protected:
    Outcome audit(const std::string& arguments) const { return runTool(scratch_, KEST_AUDIT, arguments); }

    // A 64-bit Windows program in the scratch folder.
    void image(const std::string& name, const std::vector<kest::test::ModuleImports>& imports,
               const std::vector<kest::test::ModuleImports>& delayed = {}) const
    {
        scratch_.write(name, WindowsImage(WindowsImage::Width::bits64, imports, delayed).bytes());
    }

    const kest::test::ScratchFolder& scratch() const { return scratch_; }

private:
    kest::test::ScratchFolder scratch_;
};

// The report without its totals.
std::string details(const std::string& report)
{
    const std::size_t begin = report.find("\n\n");
    return begin == std::string::npos ? "" : report.substr(begin + 2);
}

TEST_F(AuditTool, TellsForEachUndefinedSymbolHowItIsAnswered)
{
    const Outcome outcome = audit(audited("audited.o") + audited("own.o"));
    EXPECT_EQ(
        outcome.out,
        "7 functions needed by 2 files\n"
        "    not provided      2\n"
        "    ends the process  1\n"
        "    fixed result      1\n"
        "    forwarded         1\n"
        "    local             2\n"
        "    companion         0\n"
        "    C library         0\n"
        "    compiler          0\n"
        "\n"
        "not provided:\n"
        "    CreateFileA                         audited.o  CreateFileW is provided\n"
        "    CopyRect(tagRECT*, tagRECT const*)  audited.o  CopyRect is provided with C linkage or other argument "
        "types\n"
        "\n"
        "ends the process:\n"
        "    _mbsrev  audited.o\n"
        "\n"
        "fixed result:\n"
        "    GetACP  audited.o  always 936\n"
        "\n"
        "forwarded:\n"
        "    RegCloseKey  audited.o  IRegistryService::RegCloseKey, 1 without hub or service\n"
        "\n"
        "local:\n"
        "    GetTickCount         audited.o\n"
        "    setPlatformServices  audited.o\n"
        "\n"
        "service operations that the host supplies:\n"
        "    IRegistryService::RegCloseKey  position 6  for RegCloseKey\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 6);
}

TEST_F(AuditTool, CountsWhatNoGivenFileDefinesAsNotProvided)
{
    const Outcome alone = audit(audited("libaudited.so"));
    EXPECT_NE(alone.out.find("\n    ownFunction\n"), std::string::npos) << alone.out;
    const std::string expected = details(alone.out).erase(details(alone.out).find("    ownFunction\n"), 16);
    EXPECT_EQ(details(audit("--with" + audited("own.o") + audited("libaudited.so")).out), expected);
    EXPECT_EQ(details(audit("--with" + audited("libown.so") + audited("libaudited.so")).out), expected);
}

TEST_F(AuditTool, LeavesOutWhatTheLinkerItselfDefines)
{
    scratch().write("places.c",
                    "extern char _GLOBAL_OFFSET_TABLE_[], __dso_handle[], _end[], __start_own[], missing[];\n"
                    "char* const places[] = {_GLOBAL_OFFSET_TABLE_, __dso_handle, _end, __start_own, missing};\n");
    ASSERT_EQ(std::system("cc -c places.c"), 0);
    EXPECT_EQ(details(audit("places.o").out), "not provided:\n    missing\n");
}

TEST_F(AuditTool, ReadsTheMembersOfArchives)
{
    ASSERT_EQ(std::system(("ar rc both.a" + audited("audited.o") + audited("own.o")).c_str()), 0);
    const Outcome outcome = audit("both.a");
    EXPECT_EQ(outcome.out.substr(0, outcome.out.find('\n')), "7 functions needed by 1 file");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(AuditTool, ReadsWhatWindowsProgramsImport)
{
    image("program.exe",
          {{"KERNEL32.dll", {"GetACP", "CreateFileW", "CreateToolhelp32Snapshot"}},
           {"OLEAUT32.dll", {"#8", "#999"}},
           {"api-ms-win-crt-stdio-l1-1-0.dll", {"fopen", "_wfopen", "__acrt_iob_func", "??3@YAXPEAX@Z", "_read"}},
           {"WS2_32.dll", {"#19"}}},
          {{"ADVAPI32.dll", {"RegCloseKey"}}});
    const Outcome outcome = audit("program.exe");
    EXPECT_EQ(details(outcome.out), R"(not provided:
    #999                      oleaut32.dll
    CreateToolhelp32Snapshot  kernel32.dll
    VariantInit               oleaut32.dll
    _read                     api-ms-win-crt-stdio-l1-1-0.dll  the C library has read
    send                      ws2_32.dll

fixed result:
    GetACP  kernel32.dll  always 936

forwarded:
    RegCloseKey  advapi32.dll  IRegistryService::RegCloseKey, 1 without hub or service

local:
    CreateFileW  kernel32.dll
    _wfopen      api-ms-win-crt-stdio-l1-1-0.dll

C library:
    void __cdecl operator delete(void *)  api-ms-win-crt-stdio-l1-1-0.dll
    fopen                                 api-ms-win-crt-stdio-l1-1-0.dll

compiler:
    __acrt_iob_func  api-ms-win-crt-stdio-l1-1-0.dll

service operations that the host supplies:
    IRegistryService::RegCloseKey  position 6  for RegCloseKey
)");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 6);
}

TEST_F(AuditTool, ReadsWhatProgramsFor32BitsImport)
{
    const kest::test::ModuleImports imports = {"USER32.dll", {"MessageBoxW", "#12"}};
    scratch().write("program.exe", WindowsImage(WindowsImage::Width::bits32, {imports}, {imports}).bytes());
    EXPECT_EQ(details(audit("program.exe").out), "not provided:\n"
                                                 "    #12  user32.dll\n"
                                                 "\n"
                                                 "forwarded:\n"
                                                 "    MessageBoxW  user32.dll  IDialogService::MessageBoxW, 0 without "
                                                 "hub or service\n"
                                                 "\n"
                                                 "service operations that the host supplies:\n"
                                                 "    IDialogService::MessageBoxW  position 1  for MessageBoxW\n");
}

TEST_F(AuditTool, LeavesOutWhatGivenModulesSupply)
{
    image("program.exe", {{"Tools.DLL", {"StartTools", "GetACP"}}, {"KERNEL32.dll", {"MulDiv"}}});
    image("tools.dll", {{"KERNEL32.dll", {"Sleep"}}});
    EXPECT_EQ(details(audit("program.exe tools.dll").out), "local:\n"
                                                           "    MulDiv  kernel32.dll  program.exe\n"
                                                           "    Sleep   kernel32.dll  tools.dll\n");
}

TEST_F(AuditTool, ReadsDecoratedNamesOfWindowsObjectFiles)
{
    const std::string expected = "not provided:\n"
                                 "    int __cdecl decorated(int)\n"
                                 "    fast\n"
                                 "\n"
                                 "fixed result:\n"
                                 "    GetACP     always 936\n"
                                 "    LocalFree  always null\n"
                                 "\n"
                                 "local:\n"
                                 "    MulDiv\n"
                                 "    _wtoi\n";
    EXPECT_EQ(details(audit(audited("windows_i686.obj")).out), expected);
    EXPECT_EQ(details(audit(audited("windows_x86_64.obj")).out), expected);
}

TEST_F(AuditTool, ExitsWithTheWorstAnswer)
{
    const struct
    {
        std::string function;
        int status;
    } rows[] = {
        {"MulDiv", 0}, {"RegCloseKey", 3}, {"GetACP", 4}, {"_mbsrev", 5}, {"CreateToolhelp32Snapshot", 6},
    };
    std::vector<std::string> functions;
    for (const auto& row : rows)
    {
        functions.push_back(row.function);
        image("program.exe", {{"KERNEL32.dll", functions}});
        EXPECT_EQ(audit("program.exe").status, row.status) << row.function;
    }
    scratch().write("data", "no program");
    EXPECT_EQ(audit("program.exe data").status, 1);
    image("program.exe", {});
    EXPECT_EQ(audit("program.exe").status, 0);
}

TEST_F(AuditTool, ReportsAsJson)
{
    image("program.exe",
          {{"KERNEL32.dll", {"GetACP", "Fremd\xC3\xA4\xFF", "CreateFileA"}}, {"ADVAPI32.dll", {"RegCloseKey"}}});
    const std::string odd = "da\x01\"ta";
    scratch().write(odd, "");
    const Outcome outcome = audit("--json program.exe " + quoted(odd));
    EXPECT_EQ(outcome.out, R"({
  "files": [
    {
      "path": "program.exe",
      "format": "Windows program",
      "problems": []
    },
    {
      "path": "da\u0001\"ta",
      "format": "",
      "problems": [
        "da\u0001\"ta: empty"
      ]
    }
  ],
  "totals": {
    "not provided": 2,
    "ends the process": 0,
    "fixed result": 1,
    "forwarded": 1,
    "local": 0,
    "companion": 0,
    "C library": 0,
    "compiler": 0
  },
  "functions": [
    {
      "name": "CreateFileA",
      "symbol": "CreateFileA",
      "answer": "not provided",
      "hint": "CreateFileW is provided",
      "modules": [
        "kernel32.dll"
      ],
      "neededBy": [
        "program.exe"
      ]
    },
    {
      "name": "Fremdä�",
      "symbol": "Fremdä�",
      "answer": "not provided",
      "modules": [
        "kernel32.dll"
      ],
      "neededBy": [
        "program.exe"
      ]
    },
    {
      "name": "GetACP",
      "symbol": "GetACP",
      "answer": "fixed result",
      "library": "libKestPlatformBase.so",
      "header": "kernel/locale.h",
      "kind": "fixed result",
      "result": "936",
      "modules": [
        "kernel32.dll"
      ],
      "neededBy": [
        "program.exe"
      ]
    },
    {
      "name": "RegCloseKey",
      "symbol": "RegCloseKey",
      "answer": "forwarded",
      "library": "libKestPlatformBase.so",
      "header": "registry.h",
      "kind": "checked forward",
      "operations": [
        {
          "operation": "IRegistryService::RegCloseKey",
          "position": 6,
          "withoutService": "1"
        }
      ],
      "modules": [
        "advapi32.dll"
      ],
      "neededBy": [
        "program.exe"
      ]
    }
  ],
  "operations": [
    {
      "service": "IRegistryService",
      "operation": "RegCloseKey",
      "position": 6,
      "neededFor": [
        "RegCloseKey"
      ]
    }
  ],
  "missingLibraries": []
}
)");
    EXPECT_EQ(outcome.err, "kest-audit: " + odd + ": empty\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(AuditTool, NamesLibrariesThatItDoesNotFind)
{
    ASSERT_EQ(std::system(("cc -shared -nostdlib -o libgone.so" + audited("own.o") + " && cc -shared -o user.so" +
                           audited("audited.o") + " ./libgone.so && rm libgone.so")
                              .c_str()),
              0);
    const Outcome outcome = audit("user.so");
    EXPECT_EQ(outcome.err, "kest-audit: user.so: ./libgone.so, which it is linked with, is not found; what that "
                           "defines counts as not provided\n");
    EXPECT_EQ(outcome.status, 6);
}

TEST_F(AuditTool, KeepsControlCharactersFromTheTerminal)
{
    image("program.exe", {{"KERNEL32\x1B[2J.dll", {"Na\x1B]0;me"}}});
    EXPECT_EQ(details(audit("program.exe").out), "not provided:\n    Na?]0;me  kernel32?[2j.dll\n");
}

TEST_F(AuditTool, RefusesWrongCommandLines)
{
    const std::string usage = "usage: kest-audit [--json] [--with FILE ...] FILE ...\n";
    const struct
    {
        std::string arguments;
        std::string message;
    } rows[] = {
        {"", "kest-audit: no file is given\n"},
        {"--json", "kest-audit: no file is given\n"},
        {"--xml file", "kest-audit: --xml is no option\n"},
        {"-x file", "kest-audit: -x is no option\n"},
        {"file --with", "kest-audit: --with needs an argument\n"},
    };
    for (const auto& row : rows)
    {
        const Outcome outcome = audit(row.arguments);
        EXPECT_EQ(outcome.err, row.message + usage) << row.arguments;
        EXPECT_EQ(outcome.out, "") << row.arguments;
        EXPECT_EQ(outcome.status, 2) << row.arguments;
    }
}

TEST_F(AuditTool, ExplainsItself)
{
    const Outcome outcome = audit("--help");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out.substr(0, 17), "usage: kest-audit");
    EXPECT_EQ(audit("--version").out, "kest-audit 1.0.0\n");
}

} // namespace
