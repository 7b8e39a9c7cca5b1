#include "harness/child_program.h"
#include "harness/scratch_folder.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <initializer_list>
#include <regex>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

struct Outcome
{
    int status;
    std::string out;
    std::string err;
};

std::string quoted(const std::string& word)
{
    std::string result = "'";
    for (const char character : word)
    {
        result += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return result + "'";
}

// Tests stand in a scratch folder with the folder to analyse, "files", beside what the tests put there.
class FolderAnalyser : public testing::Test
{
protected:
    FolderAnalyser()
    {
        fs::create_directory("files");
        fs::create_directory("state");
        fs::permissions("state", fs::perms::all);
    }

    // Runs the program; `prefix` stands before it on the shell's command line.
    Outcome run(std::initializer_list<std::string> arguments, const std::string& prefix = "",
                const fs::path& program = FOLDER_ANALYSER) const
    {
        std::string command = prefix + " env LC_ALL=C TZ=UTC KEST_REGISTRY=" + quoted(registry_) + " " +
                              kest::test::emulatorPrefix() + quoted(program);
        for (const std::string& argument : arguments)
        {
            command += " " + quoted(argument);
        }
        const int status = std::system((command + " >out.txt 2>err.txt </dev/null").c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, stable(scratch_.read("out.txt")),
                scratch_.read("err.txt")};
    }

    // A file in the folder to analyse, written at a given second of 2026-01-01.
    void file(const std::string& name, std::string_view content, int second = 0) const
    {
        const fs::path path = scratch_.write("files/" + name, content);
        const timespec time = {1767225600 + second, 0};
        const timespec times[] = {time, time};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    // A folder "plugins" with the program's own plug-ins.
    void preparePlugins() const
    {
        fs::create_directory("plugins");
        for (const auto& entry : fs::directory_iterator(fs::path(FOLDER_ANALYSER).parent_path()))
        {
            fs::create_symlink(entry.path(), "plugins" / entry.path().filename());
        }
    }

    const kest::test::ScratchFolder& scratch() const { return scratch_; }

    // A report without what differs from run to run: the scratch folder's name and the time.
    std::string stable(std::string text) const
    {
        const std::string folder = scratch_.path().string() + "/";
        for (std::size_t place = text.find(folder); place != std::string::npos; place = text.find(folder))
        {
            text.replace(place, folder.size(), "/scratch/");
        }
        static const std::regex time("\nWritten   \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d, after [0-9,]+ ms\n");
        static const std::regex lastTime("\nLast run  \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d, ");
        return std::regex_replace(std::regex_replace(text, time, "\nWritten   DATE, after N ms\n"), lastTime,
                                  "\nLast run  DATE, ");
    }

    void keepStateIn(const std::string& file) { registry_ = file; }

private:
    kest::test::ScratchFolder scratch_;
    std::string registry_ = (scratch_.path() / "state" / "registry.db").string();
};

// Every kind of file that the plug-ins tell apart.
constexpr char report[] = R"(Folder analysis
===============
Analysed  /scratch/files
Contents  11 files in 4 folders, 2,446 bytes
Left out  1 link, 1 device
Written   DATE, after N ms
Plug-ins  FileTypes.dll, WordCount.dll, LineEndings.qlx, TextEncoding.dll, LongLines.dll, LargestFiles.dll, NewestFiles.dll, Duplicates.dll

File types (FileTypes.dll)
--------------------------
Type    Files  Share  Bytes  Share
.bin        1   9.1%  2,048  83.7%  #################
.txt        6  54.5%    324  13.2%  ###
.cpp        2  18.2%     66   2.7%  #
.h          1   9.1%      8   0.3%
(none)      1   9.1%      0   0.0%
------  -----  -----  -----  -----  -----------------
Total      11         2,446

Lines and words of text files (WordCount.dll)
---------------------------------------------
Type    Files  Lines  Words  Characters  Lines per file
.txt        6      9     13         302               2
.cpp        2      8     12          66               4
.h          1      4      4           8               4
(none)      1      0      0           0               0
------  -----  -----  -----  ----------  --------------
Total      10     21     29         376               2

Line ends of text files (LineEndings.qlx)
-----------------------------------------
Line end  Files  Lines
LF            5      8
CR LF         3      9
mixed         1      4
none          1      0

1 file leaves its last line without an end.

LF  CR LF  CR  Mixed in
 1      1   1  src/Mixed.H

Encodings (TextEncoding.dll)
----------------------------
Encoding                    Files  Share  Bytes
empty                           1   9.1%      0
ASCII                           5  45.5%    348
UTF-8                           1   9.1%     15
UTF-8 with byte order mark      1   9.1%      8
UTF-16, low byte first          1   9.1%     22
8-bit text                      1   9.1%      5
binary                          1   9.1%  2,048

Long lines (LongLines.dll)
--------------------------
2 lines in 1 file are longer than 120 characters.

Longest  At line  Long lines  File
    130        1           2  text/long.txt

Largest files (LargestFiles.dll)
--------------------------------
Bytes  Share  File
2,048  83.7%  data/image.bin
  255  10.4%  text/long.txt
   33   1.3%  src/copy of main.cpp
   33   1.3%  src/main.cpp
   22   0.9%  text/utf16.txt
   19   0.8%  readme.txt
   15   0.6%  text/über 漢字.txt
    8   0.3%  src/Mixed.H
    8   0.3%  text/mark.txt
    5   0.2%  text/latin.txt

Files written last (NewestFiles.dll)
------------------------------------
Written              File
2026-01-01 00:00:11  data/empty
2026-01-01 00:00:10  data/image.bin
2026-01-01 00:00:09  text/latin.txt
2026-01-01 00:00:08  text/utf16.txt
2026-01-01 00:00:07  text/mark.txt
2026-01-01 00:00:06  text/long.txt
2026-01-01 00:00:05  text/über 漢字.txt
2026-01-01 00:00:04  src/Mixed.H
2026-01-01 00:00:03  src/copy of main.cpp
2026-01-01 00:00:02  src/main.cpp

Files with the same content (Duplicates.dll)
--------------------------------------------
1 content stands in more than one file; the copies take 33 bytes.

Wasted  Copies  Files
    33       2  src/copy of main.cpp
                src/main.cpp
)";

TEST_F(FolderAnalyser, ReportsOnEveryKindOfFile)
{
    file("readme.txt", "one two three\nfour\n", 1);
    file("src/main.cpp", "int main()\r\n{\r\n    return 0;\r\n}\r\n", 2);
    file("src/copy of main.cpp", "int main()\r\n{\r\n    return 0;\r\n}\r\n", 3);
    file("src/Mixed.H", "a\nb\r\nc\rd", 4);
    file("text/über 漢字.txt", "grüße 漢字\n", 5);
    file("text/long.txt", std::string(130, 'x') + '\n' + std::string(121, 'y') + "\nz\n", 6);
    file("text/mark.txt", "\xEF\xBB\xBFmark\n", 7);
    file("text/utf16.txt", std::string_view("\xFF\xFEh\0e\0l\0l\0o\0 \0\x3D\xD8\x00\xDE\r\0\n\0", 22), 8);
    file("text/latin.txt", "caf\xE9\n", 9);
    file("data/image.bin", std::string(2048, '\0'), 10);
    file("data/empty", "", 11);
    file(".git/config", "in a folder that the settings skip", 12);
    fs::create_symlink("readme.txt", "files/link.txt");
    ASSERT_EQ(mkfifo("files/pipe", 0600), 0);

    const Outcome outcome = run({"files"});
    EXPECT_EQ(outcome.out, report);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

constexpr char emptyReport[] = R"(Folder analysis
===============
Analysed  /scratch/files
Contents  0 files in 1 folder, 0 bytes
Written   DATE, after N ms
Plug-ins  FileTypes.dll, LineEndings.qlx, LongLines.dll, Duplicates.dll

File types (FileTypes.dll)
--------------------------
Type   Files  Share  Bytes  Share
-----  -----  -----  -----  -----
Total      0             0

Line ends of text files (LineEndings.qlx)
-----------------------------------------
Line end  Files  Lines

Long lines (LongLines.dll)
--------------------------
No line is longer than 120 characters.

Files with the same content (Duplicates.dll)
--------------------------------------------
No two files have the same content.
)";

TEST_F(FolderAnalyser, ReportsOnAnEmptyFolder)
{
    const Outcome outcome = run({"--plugin", "FileTypes.dll", "--plugin", "LineEndings.qlx", "--plugin",
                                 "LongLines.dll", "--plugin", "Duplicates.dll", "files"});
    EXPECT_EQ(outcome.out, emptyReport);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(FolderAnalyser, TakesFilesPatternsAndSeveralFolders)
{
    file("a b.txt", "1");
    file("c[1].txt", "22");
    file("d.cpp", "333");
    scratch().write("more/e.txt", "4444");
    const Outcome outcome =
        run({"--plugin", "LargestFiles.dll", "more", "files/*.none", "files/*.T?t", "--", "more/e.txt"});
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/more, files/*.none, files/*.T?t, /scratch/more/e.txt
Contents  4 files in 1 folder, 11 bytes
Written   DATE, after N ms
Plug-ins  LargestFiles.dll

Largest files (LargestFiles.dll)
--------------------------------
Bytes  Share  File
    4  36.4%  more/e.txt
    4  36.4%  more/e.txt
    2  18.2%  files/c[1].txt
    1   9.1%  files/a b.txt

Problems
--------
"files/*.none" is not there
)");
    EXPECT_EQ(outcome.err, "FolderAnalyser: \"files/*.none\" is not there\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(FolderAnalyser, CutsItsListsWhereToldTo)
{
    for (const char* const name : {"a.a", "b.b", "c.c", "d.d"})
    {
        file(name, std::string(name) + "\n\r\n");
        file(std::string("copy/") + name, std::string(name) + "\n\r\n");
    }
    file("e.e", "12345678");
    file("f.e", "12345678");
    file("g.e", "12345678");
    const Outcome outcome = run({"--top", "2", "--plugin", "FileTypes.dll", "--plugin", "WordCount.dll", "--plugin",
                                 "LineEndings.qlx", "--plugin", "Duplicates.dll", "files"});
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/files
Contents  11 files in 2 folders, 72 bytes
Written   DATE, after N ms
Plug-ins  FileTypes.dll, WordCount.dll, LineEndings.qlx, Duplicates.dll

File types (FileTypes.dll)
--------------------------
Type        Files  Share  Bytes  Share
.e              3  27.3%     24  33.3%  #######
.a              2  18.2%     12  16.7%  ###
(3 others)      6  54.5%     36  50.0%  ##########
----------  -----  -----  -----  -----  ----------
Total          11            72

Lines and words of text files (WordCount.dll)
---------------------------------------------
Type        Files  Lines  Words  Characters  Lines per file
.a              2      4      2          12               2
.b              2      4      2          12               2
(3 others)      7     11      7          48               2
----------  -----  -----  -----  ----------  --------------
Total          11     19     11          72               2

Line ends of text files (LineEndings.qlx)
-----------------------------------------
Line end  Files  Lines
mixed         8     16
none          3      3

3 files leave their last line without an end.

LF  CR LF  CR  Mixed in
 1      1   0  a.a
 1      1   0  b.b
               (6 others)

Files with the same content (Duplicates.dll)
--------------------------------------------
5 contents stand in more than one file; the copies take 40 bytes.

Wasted  Copies  Files
    16       3  e.e
                f.e
                (1 other)
     6       2  a.a
                copy/a.a
                (3 others)
)");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(FolderAnalyser, FollowsItsSettings)
{
    file("a.txt", "123456\n");
    file("Build1/b.txt", "skipped, as the case of letters does not matter");
    file("build/c.txt", "123456789\n");
    scratch().write("my settings.ini", "[Report]\r\nTopEntries = 1\r\n"
                                       "[Plugins]\r\nLoad = ;LongLines.dll ; LargestFiles.dll;\r\n"
                                       "[Folders]\r\nSkip = build?;nothing\r\n"
                                       "[LongLines]\r\nLineLimit = 5\r\n");
    const Outcome outcome = run({"--settings", scratch().path() / "my settings.ini", "files"});
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/files
Contents  2 files in 2 folders, 17 bytes
Written   DATE, after N ms
Plug-ins  LongLines.dll, LargestFiles.dll

Long lines (LongLines.dll)
--------------------------
2 lines in 2 files are longer than 5 characters.

Longest  At line  Long lines  File
      9        1           1  build/c.txt

Largest files (LargestFiles.dll)
--------------------------------
Bytes  Share  File
   10  58.8%  build/c.txt
)");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(FolderAnalyser, NamesPlugInsThatCannotBeUsedAndRunsTheOthers)
{
    file("a.txt", "1");
    preparePlugins();
    scratch().write("plugins/libBroken.so", "this is no shared object\n");
    fs::copy_file(LACKING_PLUGIN, "plugins/libLacking.qlx");
    const Outcome outcome =
        run({"--plugin-folder", "plugins", "--plugin", "Missing.dll", "--plugin", "Broken.dll", "--plugin",
             "LargestFiles.dll", "--plugin", "Lacking.qlx", "--plugin", "LargestFiles", "files"});
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/files
Contents  1 file in 1 folder, 1 byte
Written   DATE, after N ms
Plug-ins  LargestFiles.dll

Largest files (LargestFiles.dll)
--------------------------------
Bytes   Share  File
    1  100.0%  a.txt

Problems
--------
plug-in "Missing.dll" cannot be loaded: there is no such module in "plugins", or it is none
plug-in "Broken.dll" cannot be loaded: there is no such module in "plugins", or it is none
plug-in "Lacking.qlx" has no function "AnalyserStart"
plug-in "LargestFiles" is named twice
)");
    EXPECT_EQ(
        outcome.err,
        R"(FolderAnalyser: plug-in "Missing.dll" cannot be loaded: there is no such module in "plugins", or it is none
FolderAnalyser: plug-in "Broken.dll" cannot be loaded: there is no such module in "plugins", or it is none
FolderAnalyser: plug-in "Lacking.qlx" has no function "AnalyserStart"
FolderAnalyser: plug-in "LargestFiles" is named twice
)");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(FolderAnalyser, SaysSoWhenNoPlugInIsLeft)
{
    const Outcome outcome = run({"--plugin-folder", "nowhere", "--plugin", "Missing.dll", "files"});
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/files
Contents  0 files in 1 folder, 0 bytes
Written   DATE, after N ms
Plug-ins  none

Problems
--------
plug-in "Missing.dll" cannot be loaded: there is no such module in "nowhere", or it is none
)");
    EXPECT_EQ(outcome.err, "FolderAnalyser: plug-in \"Missing.dll\" cannot be loaded: there is no such module in "
                           "\"nowhere\", or it is none\n");
    EXPECT_EQ(outcome.status, 1);
}

// What one run leaves in the registry, the next compares with.
TEST_F(FolderAnalyser, TellsWhatHasChangedSinceTheLastRun)
{
    const auto lines = [this](std::initializer_list<std::string> paths)
    {
        const Outcome outcome = run(paths);
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.status, 0);
        const std::size_t begin = outcome.out.find("Contents");
        return outcome.out.substr(begin, outcome.out.find("Plug-ins") - begin);
    };
    file("a.txt", "1");
    file("sub/b.txt", "22");
    EXPECT_EQ(lines({"files"}), "Contents  2 files in 2 folders, 3 bytes\nWritten   DATE, after N ms\n");
    EXPECT_EQ(lines({"files"}), "Contents  2 files in 2 folders, 3 bytes\nWritten   DATE, after N ms\n"
                                "Last run  DATE, run 1; since then no change in number and size\n");
    file("c.txt", "4444");
    fs::remove_all("files/sub");
    EXPECT_EQ(lines({"./files/"}), "Contents  2 files in 1 folder, 5 bytes\nWritten   DATE, after N ms\n"
                                   "Last run  DATE, run 2; since then 1 folder fewer, 2 bytes more\n");
    file("d.txt", "4444");
    file("a.txt", "");
    EXPECT_EQ(lines({"files"}), "Contents  3 files in 1 folder, 8 bytes\nWritten   DATE, after N ms\n"
                                "Last run  DATE, run 3; since then 1 file more, 3 bytes more\n");
    EXPECT_EQ(lines({"files/a.txt"}), "Contents  1 file in 0 folders, 0 bytes\nWritten   DATE, after N ms\n");
}

TEST_F(FolderAnalyser, SaysSoWhenItsTotalsCannotBeKept)
{
    keepStateIn("/dev/null/registry.db");
    const Outcome outcome = run({"--plugin", "TextEncoding.dll", "files"});
    EXPECT_NE(outcome.out, "");
    EXPECT_EQ(outcome.err, "FolderAnalyser: the totals cannot be kept for the next run\n");
    EXPECT_EQ(outcome.status, 1);
}

// A file that another process has locked cannot be opened, whoever asks.
TEST_F(FolderAnalyser, NamesFilesThatAreLockedAndGoesOn)
{
    file("a.txt", "1");
    file("locked file.txt", "22");
    const int descriptor = open("files/locked file.txt", O_RDONLY);
    ASSERT_NE(descriptor, -1);
    ASSERT_EQ(flock(descriptor, LOCK_EX), 0);
    const Outcome outcome = run({"--plugin", "LargestFiles.dll", "files"});
    close(descriptor);
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/files
Contents  2 files in 1 folder, 1 byte
Written   DATE, after N ms
Plug-ins  LargestFiles.dll

Largest files (LargestFiles.dll)
--------------------------------
Bytes   Share  File
    1  100.0%  a.txt

Problems
--------
file "locked file.txt" cannot be read
)");
    EXPECT_EQ(outcome.err, "FolderAnalyser: file \"locked file.txt\" cannot be read\n");
    EXPECT_EQ(outcome.status, 1);
}

// Copied to another place with its plug-ins, and run by a user who may not read everything.
TEST_F(FolderAnalyser, NamesFilesAndFoldersThatMayNotBeRead)
{
    file("a.txt", "1");
    file("secret.txt", "22");
    file("secrets/b.txt", "333");
    fs::copy(fs::path(FOLDER_ANALYSER).parent_path(), "program");
    fs::copy_file(PLATFORM_BASE, "program/libKestPlatformBase.so");
    fs::copy_file(REFERENCE_HOST, "program/libKestReferenceHost.so");
    fs::permissions("files/secret.txt", fs::perms::none);
    fs::permissions("files/secrets", fs::perms::none);
    std::string prefix = "LD_LIBRARY_PATH=program";
    if (geteuid() == 0)
    {
        fs::permissions(".", fs::perms::others_read | fs::perms::others_exec, fs::perm_options::add);
        prefix += " setpriv --reuid 65534 --regid 65534 --clear-groups";
    }
    const Outcome outcome = run({"--plugin", "LargestFiles.dll", "files"}, prefix, "program/FolderAnalyser");
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  /scratch/files
Contents  2 files in 1 folder, 1 byte
Written   DATE, after N ms
Plug-ins  LargestFiles.dll

Largest files (LargestFiles.dll)
--------------------------------
Bytes   Share  File
    1  100.0%  a.txt

Problems
--------
folder "secrets" cannot be read
file "secret.txt" cannot be read
)");
    EXPECT_EQ(outcome.err, "FolderAnalyser: folder \"secrets\" cannot be read\n"
                           "FolderAnalyser: file \"secret.txt\" cannot be read\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(FolderAnalyser, NamesPathsThatAreNotThere)
{
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    const Outcome outcome = run({"--plugin", "TextEncoding.dll", "--settings", "no.ini", "nowhere", "pipe"});
    EXPECT_EQ(outcome.out, R"(Folder analysis
===============
Analysed  nowhere, /scratch/pipe
Contents  0 files in 0 folders, 0 bytes
Written   DATE, after N ms
Plug-ins  TextEncoding.dll

Encodings (TextEncoding.dll)
----------------------------
Encoding  Files  Share  Bytes

Problems
--------
settings file "no.ini" is not there
"nowhere" is not there
"pipe" is no file
)");
    EXPECT_EQ(outcome.err, "FolderAnalyser: settings file \"no.ini\" is not there\n"
                           "FolderAnalyser: \"nowhere\" is not there\n"
                           "FolderAnalyser: \"pipe\" is no file\n");
    EXPECT_EQ(outcome.status, 1);
}

// A name that is no text cannot be spelled in wide characters, so the file cannot be opened by it.
TEST_F(FolderAnalyser, NamesFilesWhoseNamesAreNoText)
{
    file("a\xFFz", "1");
    const Outcome outcome = run({"--plugin", "TextEncoding.dll", "files"});
    EXPECT_EQ(outcome.err, "FolderAnalyser: file \"a\xEF\xBF\xBDz\" cannot be read\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(FolderAnalyser, WritesItsReportToAFile)
{
    file("über.txt", "1");
    scratch().write("a report.txt", std::string(10000, 'x'));
    const Outcome outcome = run({"--plugin", "LargestFiles.dll", "--report", "a report.txt", "files"});
    EXPECT_EQ(stable(scratch().read("a report.txt")), R"(Folder analysis
===============
Analysed  /scratch/files
Contents  1 file in 1 folder, 1 byte
Written   DATE, after N ms
Plug-ins  LargestFiles.dll

Largest files (LargestFiles.dll)
--------------------------------
Bytes   Share  File
    1  100.0%  über.txt
)");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(FolderAnalyser, SaysSoWhenItsReportCannotBeWritten)
{
    const Outcome missing = run({"--report", "nowhere/report.txt", "files"});
    EXPECT_EQ(missing.out, "");
    EXPECT_EQ(missing.err, "FolderAnalyser: the report cannot be written to \"nowhere/report.txt\"\n");
    EXPECT_EQ(missing.status, 1);

    const Outcome full = run({"--report", "/dev/full", "files"});
    EXPECT_EQ(full.err, "FolderAnalyser: the report cannot be written to \"/dev/full\"\n");
    EXPECT_EQ(full.status, 1);

    EXPECT_EQ(std::system(("env KEST_REGISTRY=state/registry.db " + kest::test::emulatorPrefix() +
                           quoted(FOLDER_ANALYSER) + " files >/dev/full 2>err.txt")
                              .c_str()),
              1 << 8);
    EXPECT_EQ(scratch().read("err.txt"), "FolderAnalyser: the report cannot be written\n");
}

constexpr char usage[] = R"(usage: FolderAnalyser [option]... path...
Reports on the files in the folders and on the files given.

  --plugin NAME           use this plug-in (may be repeated; else those of the settings)
  --plugin-folder FOLDER  look for plug-ins here (else beside the program)
  --settings FILE         read these settings (else FolderAnalyser.ini beside the program)
  --report FILE           write the report to a file (else to standard output)
  --top NUMBER            show so many entries of each list, 1 to 9999
  --help                  show this help

Exit status: 0 all done, 1 something could not be done, 2 bad command line.
)";

TEST_F(FolderAnalyser, AnswersBadCommandLinesWithItsUsage)
{
    const struct
    {
        std::initializer_list<std::string> arguments;
        const char* problem;
    } rows[] = {
        {{}, "no folder or file given"},
        {{"--"}, "no folder or file given"},
        {{"--top", "5"}, "no folder or file given"},
        {{""}, "a path is empty"},
        {{"--unknown", "files"}, "unknown option \"--unknown\""},
        {{"-ü", "files"}, "unknown option \"-ü\""},
        {{"files", "--top"}, "option \"--top\" needs a value"},
        {{"files", "--plugin"}, "option \"--plugin\" needs a value"},
        {{"files", "--plugin-folder"}, "option \"--plugin-folder\" needs a value"},
        {{"files", "--settings"}, "option \"--settings\" needs a value"},
        {{"files", "--report", ""}, "option \"--report\" needs a value"},
        {{"--top", "0", "files"}, "\"0\" is no number from 1 to 9999"},
        {{"--top", "-1", "files"}, "\"-1\" is no number from 1 to 9999"},
        {{"--top", "12345", "files"}, "\"12345\" is no number from 1 to 9999"},
        {{"--top", "1x", "files"}, "\"1x\" is no number from 1 to 9999"},
    };
    for (const auto& row : rows)
    {
        const Outcome outcome = run(row.arguments);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, std::string("FolderAnalyser: ") + row.problem + "\n" + usage);
        EXPECT_EQ(outcome.status, 2);
    }
}

TEST_F(FolderAnalyser, ShowsItsUsageWhenAsked)
{
    const Outcome outcome = run({"--help"});
    EXPECT_EQ(outcome.out, usage);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

} // namespace
