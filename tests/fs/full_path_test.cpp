#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/kernel/directories.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::sentinel;
using namespace std::string_literals;

// Both widths answer alike; each test below runs for both.
struct WideForm
{
    using Char = wchar_t;
    static DWORD call(const wchar_t* name, DWORD size, wchar_t* buffer, wchar_t** filePart)
    {
        return GetFullPathNameW(name, size, buffer, filePart);
    }
};

struct NarrowForm
{
    using Char = char;
    static DWORD call(const char* name, DWORD size, char* buffer, char** filePart)
    {
        return GetFullPathNameA(name, size, buffer, filePart);
    }
};

template <class Form>
std::basic_string<typename Form::Char> text(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

// What a call did: its result, the buffer whole, and where the file part was found.
template <class Form>
struct FullPath
{
    using Char = typename Form::Char;
    using String = std::basic_string<Char>;

    // The buffer has `size` characters as far as the function knows, and sentinels behind.
    explicit FullPath(const String& name, DWORD size = 1000) : buffer(size + 16, sentinel<Char>)
    {
        result = Form::call(name.c_str(), size, buffer.data(), &filePart);
    }
    explicit FullPath(const std::string& name, DWORD size = 1000) requires(!std::is_same_v<Char, char>)
        : FullPath(text<Form>(name), size)
    {
    }

    String path() const { return buffer.substr(0, buffer.find(Char())); }
    String untouched() const { return String(buffer.size(), sentinel<Char>); }

    // Exactly `written` stands in the buffer.
    void expectExactly(const String& written) const
    {
        EXPECT_EQ(result, written.size());
        EXPECT_EQ(path(), written);
        EXPECT_EQ(buffer, written + Char() + String(buffer.size() - written.size() - 1, sentinel<Char>));
    }

    void expectRefused() const
    {
        EXPECT_EQ(result, 0U);
        EXPECT_EQ(buffer, untouched());
        EXPECT_EQ(filePart, nullptr);
    }

    String buffer;
    DWORD result = 0;
    Char* filePart = nullptr;
};

template <class Form>
class FullPaths : public testing::Test
{
protected:
    // The absolute path of a name in the scratch folder.
    std::basic_string<typename Form::Char> inFolder(const std::string& name) const
    {
        return text<Form>((folder_.path() / name).string());
    }

    const ScratchFolder folder_;
};

using Forms = testing::Types<WideForm, NarrowForm>;
TYPED_TEST_SUITE(FullPaths, Forms);

TYPED_TEST(FullPaths, OfFilesAreAbsolute)
{
    using Path = FullPath<TypeParam>;
    this->folder_.write("name.txt", "");
    this->folder_.write("d/other", "");
    for (const std::string name : {"name.txt", "./name.txt", "d/../name.txt", "d//other"})
    {
        const Path path(name);
        const std::string resolved = name == "d//other" ? "d/other" : "name.txt";
        path.expectExactly(this->inFolder(resolved));
        EXPECT_EQ(path.filePart, path.buffer.data() + path.result - (resolved == "d/other" ? 5 : 8)) << name;
    }
    const Path absolute(this->inFolder("name.txt"));
    absolute.expectExactly(this->inFolder("name.txt"));
}

TYPED_TEST(FullPaths, OfDirectoriesHaveNoFilePart)
{
    using Path = FullPath<TypeParam>;
    fs::create_directory("directory");
    const Path path("directory");
    path.expectExactly(this->inFolder("directory"));
    EXPECT_EQ(path.filePart, nullptr);
    const Path here(".");
    here.expectExactly(text<TypeParam>(this->folder_.path().string()));
    EXPECT_EQ(here.filePart, nullptr);
    Path(text<TypeParam>("/")).expectExactly(text<TypeParam>("/"));
    // A name that stays because it is longer than its result is a directory through its link.
    ASSERT_EQ(symlink("/", "link"), 0);
    const Path link("link");
    EXPECT_EQ(link.path(), text<TypeParam>("link"));
    EXPECT_EQ(link.filePart, nullptr);
}

TYPED_TEST(FullPaths, OfFilesToComeAreAbsolute)
{
    using Path = FullPath<TypeParam>;
    fs::create_directory("directory");
    const Path path("directory/new.txt");
    path.expectExactly(this->inFolder("directory/new.txt"));
    EXPECT_EQ(path.filePart, path.buffer.data() + path.result - 7);
    // The file part has no extension, or nothing else.
    const Path plain("directory/plain");
    EXPECT_EQ(plain.filePart, plain.buffer.data() + plain.result - 5);
    const Path hidden("directory/.new");
    EXPECT_EQ(hidden.filePart, hidden.buffer.data() + hidden.result - 4);
}

TYPED_TEST(FullPaths, NeedNoFilePart)
{
    using Char = typename TypeParam::Char;
    const std::basic_string<Char> expected = this->inFolder("new");
    std::vector<Char> buffer(1000, sentinel<Char>);
    EXPECT_EQ(TypeParam::call(text<TypeParam>("new").c_str(), 1000, buffer.data(), nullptr), expected.size());
    EXPECT_EQ(std::basic_string<Char>(buffer.data()), expected);
}

TYPED_TEST(FullPaths, RefuseNoName)
{
    using Char = typename TypeParam::Char;
    FullPath<TypeParam>(text<TypeParam>("")).expectRefused();
    Char buffer[4] = {sentinel<Char>};
    EXPECT_EQ(TypeParam::call(nullptr, 4, buffer, nullptr), 0U);
    EXPECT_EQ(buffer[0], sentinel<Char>);
}

// Never a character beyond the size, whatever it is.
TYPED_TEST(FullPaths, KeepToTheBuffersSize)
{
    using Path = FullPath<TypeParam>;
    const std::basic_string<typename TypeParam::Char> name = text<TypeParam>("new");
    const std::basic_string<typename TypeParam::Char> whole = this->inFolder("new");
    for (DWORD size = 0; size <= whole.size() + 2; ++size)
    {
        SCOPED_TRACE(size);
        const Path path(name, size);
        if (size <= name.size())
        {
            path.expectRefused();
        }
        else
        {
            // What does not fit gives way to the name.
            const auto& expected = size <= whole.size() ? name : whole;
            EXPECT_EQ(path.result, expected.size());
            EXPECT_EQ(path.path(), expected);
            EXPECT_EQ(path.buffer.substr(size), path.untouched().substr(size));
        }
    }
}

TYPED_TEST(FullPaths, OfWhatCannotBeResolvedAreTheNames)
{
    using Path = FullPath<TypeParam>;
    this->folder_.write("file", "");
    ASSERT_EQ(symlink("loop", "loop"), 0);
    const Path below("file/x");
    EXPECT_EQ(below.path(), text<TypeParam>("file/x"));
    EXPECT_EQ(below.result, 6U);
    EXPECT_EQ(below.filePart, below.buffer.data() + 5);
    const Path loop("loop");
    EXPECT_EQ(loop.path(), text<TypeParam>("loop"));
    EXPECT_EQ(loop.filePart, loop.buffer.data());
    const std::string longName(300, 'n');
    EXPECT_EQ(Path(longName).path(), text<TypeParam>(longName));
}

TYPED_TEST(FullPaths, OfNamesThatEndInASlashHaveTheirBeginningForAFilePart)
{
    using Path = FullPath<TypeParam>;
    this->folder_.write("file", "");
    const Path path("file/");
    EXPECT_EQ(path.path(), text<TypeParam>("file/"));
    EXPECT_EQ(path.filePart, path.buffer.data());
}

TYPED_TEST(FullPaths, MayBeWrittenOverTheName)
{
    using Char = typename TypeParam::Char;
    for (const std::string name : {"new", "loop"})
    {
        std::basic_string<Char> buffer(1000, sentinel<Char>);
        const std::basic_string<Char> start = text<TypeParam>(name);
        buffer.replace(0, start.size() + 1, start + Char());
        if (name == "loop")
        {
            ASSERT_EQ(symlink("loop", "loop"), 0);
        }
        const std::basic_string<Char> expected = name == "loop" ? start : this->inFolder(name);
        EXPECT_EQ(TypeParam::call(buffer.c_str(), 1000, buffer.data(), nullptr), expected.size());
        EXPECT_EQ(std::basic_string<Char>(buffer.c_str()), expected);
    }
}

template <class Form>
void expectLinksResolved()
{
    const ScratchFolder folder;
    folder.write("directory/file", "");
    ASSERT_EQ(symlink("directory", "link"), 0);
    const FullPath<Form> path("link/file");
    path.expectExactly(text<Form>((folder.path() / "directory/file").string()));
}

template <class Form>
void expectLongNamesKept()
{
    const FullPath<Form> path("/tmp/../usr");
    EXPECT_EQ(path.path(), text<Form>("/tmp/../usr"));
    EXPECT_EQ(path.result, 11U);
    const FullPath<Form> root("/..");
    EXPECT_EQ(root.path(), text<Form>("/.."));
}

template <class Form>
void expectStopAtMissingDirectory()
{
    const ScratchFolder folder;
    FullPath<Form>("missing/x").expectExactly(text<Form>((folder.path() / "missing").string()));
    // What is left is shorter than the name.
    const std::string longName = "missing/" + std::string(200, 'n');
    EXPECT_EQ(FullPath<Form>(longName).path(), text<Form>(longName));
}

template <class Form>
void expectFirstPlace()
{
    const ScratchFolder folder;
    folder.write("part/other/part", "");
    const FullPath<Form> path("part/other/part");
    path.expectExactly(text<Form>((folder.path() / "part/other/part").string()));
    EXPECT_EQ(path.filePart, path.buffer.data() + folder.path().string().size() + 1);
}

template <class Form>
void expectSmallBuffersRefused()
{
    FullPath<Form>(text<Form>("name"), 4).expectRefused();
    FullPath<Form>(text<Form>("name"), 1).expectRefused();
    FullPath<Form>(text<Form>("name"), 0).expectRefused();
}

TEST(GetFullPathNameW, ResolvesSymbolicLinks)
{
    expectLinksResolved<WideForm>();
}

TEST(GetFullPathNameA, ResolvesSymbolicLinks)
{
    expectLinksResolved<NarrowForm>();
}

TEST(GetFullPathNameW, KeepsNamesLongerThanTheirResult)
{
    expectLongNamesKept<WideForm>();
}

TEST(GetFullPathNameA, KeepsNamesLongerThanTheirResult)
{
    expectLongNamesKept<NarrowForm>();
}

TEST(GetFullPathNameW, StopsAtAMissingDirectory)
{
    expectStopAtMissingDirectory<WideForm>();
}

TEST(GetFullPathNameA, StopsAtAMissingDirectory)
{
    expectStopAtMissingDirectory<NarrowForm>();
}

TEST(GetFullPathNameW, FindsTheFirstPlaceOfTheFilePart)
{
    expectFirstPlace<WideForm>();
}

TEST(GetFullPathNameA, FindsTheFirstPlaceOfTheFilePart)
{
    expectFirstPlace<NarrowForm>();
}

TEST(GetFullPathNameW, RefusesSmallBuffers)
{
    expectSmallBuffersRefused<WideForm>();
}

TEST(GetFullPathNameA, RefusesSmallBuffers)
{
    expectSmallBuffersRefused<NarrowForm>();
}

TEST(NarrowFullPaths, OfNamesAreFilledUpWithZeros)
{
    const FullPath<NarrowForm> path("/tmp/../usr"s, 32);
    EXPECT_EQ(path.buffer, "/tmp/../usr" + std::string(32 - 11, '\0') + std::string(16, sentinel<char>));
}

TEST(NarrowFullPaths, TakeNamesOfEveryLength)
{
    const std::string name(10000, 'n');
    const FullPath<NarrowForm> path(name, 10001);
    EXPECT_EQ(path.result, 10000U);
    EXPECT_EQ(path.path(), name);
    EXPECT_EQ(path.filePart, path.buffer.data());
}

TEST(WideFullPaths, OfNamesLeaveTheRestOfTheBuffer)
{
    FullPath<WideForm>(L"/tmp/../usr"s, 32).expectExactly(L"/tmp/../usr");
}

TEST(WideFullPaths, AreConverted)
{
    const ScopedLocale locale("C.UTF-8");
    const ScratchFolder folder;
    folder.write("\xC3\xA4/\xE4\xB8\x96.\xF0\x9F\x98\x80", "");
    const FullPath<WideForm> path(L"\u00e4/\u4e16.\U0001F600"s);
    path.expectExactly(folder.path().wstring() + L"/\u00e4/\u4e16.\U0001F600");
    EXPECT_EQ(path.filePart, path.buffer.data() + path.result - 3);
}

TEST(WideFullPaths, NeedRoomForTheBytesOfTheName)
{
    const ScopedLocale locale("C.UTF-8");
    // Two characters, five bytes.
    FullPath<WideForm>(L"\u00e4\u4e16"s, 5).expectRefused();
    EXPECT_EQ(FullPath<WideForm>(L"\u00e4\u4e16"s, 6).result, 2U);
}

TEST(WideFullPaths, OfNamesThatCannotBeEncodedAreRefused)
{
    const ScopedLocale locale("C");
    FullPath<WideForm>(L"ab\u00e4"s).expectRefused();
}

TEST(WideFullPaths, ThatCannotBeWidenedGiveWayToTheName)
{
    const ScopedLocale locale("C.UTF-8");
    const ScratchFolder folder;
    // Not UTF-8.
    folder.write("\xE4\xF6/file", "");
    ASSERT_EQ(symlink("\xE4\xF6", "link"), 0);
    const FullPath<WideForm> path(L"link/file"s);
    EXPECT_EQ(path.result, 9U);
    EXPECT_EQ(path.path(), L"link/file");
    EXPECT_EQ(path.filePart, path.buffer.data() + 5);
}

TEST(WideFullPaths, OfLongNamesAreCut)
{
    const std::wstring name(5000, L'n');
    const FullPath<WideForm> path(name, 6000);
    path.expectExactly(std::wstring(4095, L'n'));
}

TEST(WideFullPaths, HaveAFilePartWithinTheSplittersLimits)
{
    const ScratchFolder folder;
    folder.write("file", "");
    // Nothing is left of a component of more than 255 characters but a shorter extension.
    const FullPath<WideForm> noExtension(L"file/" + std::wstring(300, L'n'));
    EXPECT_EQ(noExtension.filePart, noExtension.buffer.data());
    const FullPath<WideForm> extension(L"file/" + std::wstring(300, L'n') + L".txt");
    EXPECT_EQ(extension.filePart, extension.buffer.data() + 305);
}

} // namespace
