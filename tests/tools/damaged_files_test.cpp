#include "tools/tool_runner.h"
#include "tools/windows_image.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>

namespace
{

using kest::test::Outcome;
using kest::test::quoted;
using kest::test::runTool;
using kest::test::WindowsImage;

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// One file in each format, small.
struct Sample
{
    const char* name;
    std::string content;
};

class DamagedFiles : public testing::Test
{
protected:
    DamagedFiles()
    {
        const std::string programs = KEST_TOOLS_PROGRAMS;
        const std::string object = contentOf(programs + "audited.o");
        const kest::test::ModuleImports imports = {"KERNEL32.dll", {"GetACP", "#12", "CreateFileW"}};
        const int archived = std::system(
            ("ar rc both.a " + quoted(programs + "audited.o") + " " + quoted(programs + "windows_x86_64.obj")).c_str());
        EXPECT_EQ(archived, 0);
        samples_ = {{"image64", WindowsImage(WindowsImage::Width::bits64, {imports}, {imports}).bytes()},
                    {"image32", WindowsImage(WindowsImage::Width::bits32, {imports}, {imports}).bytes()},
                    {"object", object},
                    {"shared", contentOf(programs + "libaudited.so")},
                    {"windows_object", contentOf(programs + "windows_i686.obj")},
                    {"archive", scratch_.read("both.a")}};
    }

    Outcome audit(const std::string& arguments) const { return runTool(scratch_, KEST_AUDIT, arguments); }

    // Audits many files in one process: it must end by itself, with every file looked at.
    void expectSurvived(std::size_t count) const
    {
        const Outcome outcome = audit("part*");
        EXPECT_TRUE(outcome.status >= 0 && outcome.status <= 6 && outcome.status != 2) << outcome.status;
        EXPECT_NE(outcome.out.find(" needed by " + std::to_string(count) + " files\n"), std::string::npos)
            << outcome.out.substr(0, 60);
    }

    void clear() const
    {
        for (const auto& entry : std::filesystem::directory_iterator(scratch_.path()))
        {
            std::filesystem::remove(entry.path());
        }
    }

    const std::vector<Sample>& samples() const { return samples_; }
    const kest::test::ScratchFolder& scratch() const { return scratch_; }

private:
    kest::test::ScratchFolder scratch_;
    std::vector<Sample> samples_;
};

TEST_F(DamagedFiles, AreSurvivedWhenCutOffAnywhere)
{
    constexpr std::size_t most = 600;
    for (const Sample& sample : samples())
    {
        SCOPED_TRACE(sample.name);
        clear();
        const std::size_t step = 1 + sample.content.size() / most;
        std::size_t count = 0;
        for (std::size_t length = 0; length < sample.content.size(); length += step, ++count)
        {
            scratch().write("part" + std::to_string(length), sample.content.substr(0, length));
        }
        expectSurvived(count);
    }
}

TEST_F(DamagedFiles, AreSurvivedWhenBytesAreChanged)
{
    constexpr std::size_t variants = 200;
    std::mt19937 random(20240229);
    for (const Sample& sample : samples())
    {
        SCOPED_TRACE(sample.name);
        clear();
        for (std::size_t variant = 0; variant < variants; ++variant)
        {
            std::string content = sample.content;
            for (std::size_t change = 0; change <= variant % 4; ++change)
            {
                // Headers are where it matters most.
                const std::size_t range = change % 2 == 0 ? std::min<std::size_t>(content.size(), 512) : content.size();
                content[random() % range] = static_cast<char>(random() % 2 == 0 ? 0xFF : random() & 0xFF);
            }
            scratch().write("part" + std::to_string(variant), content);
        }
        expectSurvived(variants);
    }
}

TEST_F(DamagedFiles, AreNamedWithWhatIsWrong)
{
    clear();
    const WindowsImage image(WindowsImage::Width::bits64, {{"KERNEL32.dll", {"GetACP"}}});
    // The end of the section is the directory of delayed imports, empty; before it, that of the imports, ended by an
    // empty entry.
    std::string astray = image.bytes();
    astray[astray.size() - 32 - 20 - 20 + 12 + 2] = 0x7F; // in the module's name's address
    std::string cut = image.bytes().substr(0, WindowsImage::section_offset + 8);
    const struct
    {
        const char* name;
        std::string content;
        const char* message;
    } rows[] = {
        {"empty", "", "empty"},
        {"text", "no program at all",
         "not an object file, an archive, a shared object, an executable for Linux or a "
         "Windows program"},
        {"script", "#!/bin/sh\n",
         "not an object file, an archive, a shared object, an executable for Linux or a "
         "Windows program"},
        {"macho",
         std::string("\xCF\xFA\xED\xFE\x07\x00\x00\x01\x03\x00\x00\x00\x01\x00\x00\x00", 16) + std::string(32, '\0'),
         "a Mach-O file; files for Linux and Windows are read"},
        {"wasm", std::string("\0asm\1\0\0\0", 8), "a WebAssembly file; files for Linux and Windows are read"},
        {"bitcode", "BC\xC0\xDE" + std::string(16, '\0'),
         "intermediate code of a compiler (compile without link-time optimisation); files for Linux and Windows are "
         "read"},
        {"thin", "!<thin>\n", "a thin archive; give its members"},
        {"astray", astray, "damaged: its import tables lead to address 0x7f1019, where it has nothing"},
        {"cut", cut, "damaged: The end of the file was unexpectedly encountered"},
        {"object", samples()[2].content.substr(0, 100), "damaged: section header table goes past the end of the file"},
    };
    for (const auto& row : rows)
    {
        scratch().write(row.name, row.content);
        const Outcome outcome = audit(row.name);
        EXPECT_EQ(outcome.err.substr(0, std::strlen(row.name) + std::strlen(row.message) + 14),
                  "kest-audit: " + std::string(row.name) + ": " + row.message)
            << outcome.err;
        EXPECT_EQ(outcome.status, 1) << row.name;
    }
}

TEST_F(DamagedFiles, ThatAreMissingOrFoldersAreNamed)
{
    std::filesystem::create_directory("folder");
    EXPECT_EQ(audit("missing").err, "kest-audit: missing: No such file or directory\n");
    EXPECT_EQ(audit("folder").err, "kest-audit: folder: Is a directory\n");
    EXPECT_EQ(audit("--with missing both.a").err, "kest-audit: missing: No such file or directory\n");
    EXPECT_EQ(audit("missing").status, 1);
    std::filesystem::remove("folder");
}

TEST_F(DamagedFiles, LeaveTheOtherFilesAudited)
{
    scratch().write("bad.exe", "MZ");
    scratch().write("good.exe", samples()[0].content);
    const Outcome outcome = audit("bad.exe good.exe");
    EXPECT_NE(outcome.out.find("    GetACP  kernel32.dll  good.exe  always 936\n"), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(DamagedFiles, WithTablesThatOverlapAreRefused)
{
    // A directory of 20000 entries whose addresses all lead to its own beginning: 100000 imports each.
    constexpr std::size_t entry_size = 20;
    std::string directory;
    for (std::size_t word = 0; word < 20000 * entry_size / 4; ++word)
    {
        directory += std::string("\0\x10\0\0", 4); // the section's address
    }
    directory.append(entry_size, '\0');
    std::string content = samples()[1].content;
    content.resize(WindowsImage::section_offset);
    const auto put = [&content](std::size_t offset, std::uint32_t value)
    {
        for (std::size_t byte = 0; byte < 4; ++byte)
        {
            content[offset + byte] = static_cast<char>(value >> (8 * byte) & 0xFF);
        }
    };
    constexpr std::size_t data_directories = 64 + 24 + 96;
    constexpr std::size_t section_header = data_directories + 16 * 8;
    put(data_directories + 8, WindowsImage::section_address);
    put(section_header + 8, static_cast<std::uint32_t>(directory.size()));
    put(section_header + 16, static_cast<std::uint32_t>(directory.size()));
    scratch().write("overlapping.exe", content + directory);
    const Outcome outcome = audit("overlapping.exe");
    EXPECT_EQ(outcome.err, "kest-audit: overlapping.exe: damaged: its import tables overlap\n");
}

} // namespace
