#include "harness/child_program.h"
#include "harness/hand_laid_host.h"
#include "harness/scratch_folder.h"
#include "harness/stub_services.h"
#include "kest/user_interface/dialogs.h"
#include "kest/user_interface/resources.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;

// ---- Without owner ---------------------------------------------------------------------------------------------------

TEST(MessageBoxes, WithoutOwnerAreShownByTheDialogService)
{
    const HandLaidHost host;
    const auto text = distinctValue<const wchar_t*>(0);
    const auto caption = distinctValue<const wchar_t*>(1);
    const auto type = distinctValue<UINT>(2);
    EXPECT_EQ(MessageBoxW(text, caption, type), fromWord<int>(HandLaidHost::answer));
    EXPECT_EQ(host.calls(),
              (std::vector<ServiceCall>{{Service::dialog, 1, {0, toWord(text), toWord(caption), toWord(type)}}}));
    EXPECT_EQ(host.getterCalls(Service::dialog), 2);
    EXPECT_EQ(host.getterCalls(), 2);
}

TEST(MessageBoxes, AnswerZeroWithoutHubOrService)
{
    const auto everyAnswerIsZero = []
    {
        EXPECT_EQ(MessageBoxW(nullptr, L"text", L"caption", MB_YESNO), 0);
        EXPECT_EQ(MessageBoxW(L"text", L"caption", MB_YESNO), 0);
        EXPECT_EQ(AfxMessageBox(L"text", MB_YESNO, 3), 0);
        EXPECT_EQ(AfxMessageBox(4u, MB_YESNO, 3), 0);
    };
    {
        const InstalledHub none(nullptr);
        everyAnswerIsZero();
    }
    HandLaidHost host;
    host.withhold(Service::dialog);
    host.withhold(Service::graphics);
    everyAnswerIsZero();
    EXPECT_TRUE(host.calls().empty());
}

// ---- AfxMessageBox -----------------------------------------------------------------------------------------------------

// A host that keeps what it is asked to show.
class BoxHost : public StubHub, private StubDialogService, private StubGraphicsService
{
public:
    struct Box
    {
        HWND owner;
        std::wstring text;
        std::wstring caption;
        UINT type;
    };

    BoxHost()
    {
        dialog = this;
        graphics = this;
    }

    std::vector<Box> boxes;
    int answer = IDYES;

    // What LoadStringW writes, without terminator of its own, and was asked.
    std::wstring string;
    HINSTANCE askedModule = nullptr;
    UINT askedNumber = 0;
    int askedSize = 0;

private:
    int MessageBoxW(HWND owner, const wchar_t* text, const wchar_t* caption, UINT type) override
    {
        boxes.push_back({owner, text, caption, type});
        return answer;
    }

    int LoadStringW(HINSTANCE module, UINT number, wchar_t* buffer, int size) override
    {
        askedModule = module;
        askedNumber = number;
        askedSize = size;
        const std::size_t length = string.copy(buffer, static_cast<std::size_t>(size));
        return static_cast<int>(length);
    }
};

class AfxMessageBoxes : public testing::Test
{
protected:
    ~AfxMessageBoxes() override { AfxSetResourceHandle(nullptr); }

    // The one box shown.
    BoxHost::Box box() const { return host.boxes.size() == 1 ? host.boxes.front() : BoxHost::Box(); }

    static std::wstring ownName() { return fs::read_symlink("/proc/self/exe").stem().wstring(); }

    BoxHost host;

private:
    InstalledHub installed_{&host};
};

TEST_F(AfxMessageBoxes, ShowTheTextWithoutOwner)
{
    host.answer = -5;
    EXPECT_EQ(AfxMessageBox(L"Keep the changes?", MB_YESNOCANCEL | MB_ICONQUESTION, 9), -5);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(box().owner, nullptr);
    EXPECT_EQ(box().text, L"Keep the changes?");
    EXPECT_EQ(box().caption, ownName());
    EXPECT_EQ(box().type, UINT(MB_YESNOCANCEL | MB_ICONQUESTION));
    EXPECT_EQ(host.askedSize, 0);
}

TEST_F(AfxMessageBoxes, ShowAnOkButtonUnlessToldOtherwise)
{
    EXPECT_EQ(AfxMessageBox(L"Done."), IDYES);
    EXPECT_EQ(box().type, UINT(MB_OK));
    host.boxes.clear();
    EXPECT_EQ(AfxMessageBox(102u), IDYES);
    EXPECT_EQ(box().type, UINT(MB_OK));
}

TEST_F(AfxMessageBoxes, ShowAStringOfTheResourceHandle)
{
    const auto module = fromWord<HINSTANCE>(0x1111222233334444);
    AfxSetResourceHandle(module);
    host.answer = -5;
    host.string = L"The disk is full.";
    EXPECT_EQ(AfxMessageBox(0xFEDCBA98, MB_ICONERROR, 9), -5);
    EXPECT_EQ(host.askedModule, module);
    EXPECT_EQ(host.askedNumber, 0xFEDCBA98);
    EXPECT_EQ(host.askedSize, 1024);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(box().owner, nullptr);
    EXPECT_EQ(box().text, L"The disk is full.");
    EXPECT_EQ(box().caption, ownName());
    EXPECT_EQ(box().type, UINT(MB_ICONERROR));
}

TEST_F(AfxMessageBoxes, CutTheStringAtItsFirstTerminator)
{
    host.string = std::wstring(L"shown\0hidden", 12);
    EXPECT_EQ(AfxMessageBox(5u), IDYES);
    EXPECT_EQ(box().text, L"shown");
}

TEST_F(AfxMessageBoxes, ShowNoStringWithoutGraphicsService)
{
    host.graphics = nullptr;
    EXPECT_EQ(AfxMessageBox(5u), IDYES);
    EXPECT_EQ(box().text, L"");
    EXPECT_EQ(box().caption, ownName());
}

TEST(AfxMessageBoxCalls, AskForEachServiceAsItsForwardDoes)
{
    {
        HandLaidHost host;
        host.answerWith(0);
        EXPECT_EQ(AfxMessageBox(L"text"), 0);
        ASSERT_EQ(host.calls().size(), 1u);
        EXPECT_EQ(host.getterCalls(Service::dialog), 2);
        EXPECT_EQ(host.getterCalls(), 2);
    }
    HandLaidHost host;
    host.answerWith(0);
    EXPECT_EQ(AfxMessageBox(5u), 0);
    ASSERT_EQ(host.calls().size(), 2u);
    EXPECT_EQ(host.calls().front().service, Service::graphics);
    EXPECT_EQ(host.calls().front().position, 3);
    EXPECT_EQ(host.getterCalls(Service::graphics), 1);
    EXPECT_EQ(host.getterCalls(Service::dialog), 2);
    EXPECT_EQ(host.getterCalls(), 3);
}

TEST(AfxMessageBox, OffersNoHelp)
{
    BoxHost host;
    const InstalledHub installed(&host);
    AfxMessageBox(L"text", MB_OK, 0);
    AfxMessageBox(L"text", MB_OK, 0x20001);
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[0].type, host.boxes[1].type);
    EXPECT_EQ(host.boxes[0].text, host.boxes[1].text);
}

TEST(AfxMessageBox, ShowsUnknownStringsAsEmpty)
{
    BoxHost host;
    const InstalledHub installed(&host);
    EXPECT_EQ(AfxMessageBox(5u), IDYES);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, L"");
}

TEST(AfxMessageBox, LoadsStringsOf1024Characters)
{
    BoxHost host;
    const InstalledHub installed(&host);
    host.string = std::wstring(2000, L'x');
    AfxMessageBox(5u);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, std::wstring(1024, L'x'));
}

// ---- The caption -------------------------------------------------------------------------------------------------------

// What a program prints.
std::string outputOf(const std::string& command)
{
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe)
    {
        throw std::runtime_error("cannot run " + command);
    }
    std::string output;
    std::array<char, 512> part;
    for (std::size_t size; (size = std::fread(part.data(), 1, part.size(), pipe.get())) > 0;)
    {
        output.append(part.data(), size);
    }
    return output;
}

// The caption that the program show_box gives its box when it runs under another path.
std::string captionUnder(const fs::path& path, const std::string& arguments = "")
{
    fs::create_directories(path.parent_path());
    fs::copy_file(KEST_SHOW_BOX_PROGRAM, path);
    return outputOf(emulatorPrefix().append("'").append(path.string()).append("'").append(arguments));
}

TEST(MessageBoxCaption, IsTheProgramsNameWithoutFolderAndExtension)
{
    const ScratchFolder folder;
    EXPECT_EQ(captionUnder(folder.path() / "bin" / "editor.bin"), "editor");
    EXPECT_EQ(captionUnder(folder.path() / "editor"), "editor");
    EXPECT_EQ(captionUnder(folder.path() / "two.dots.bin"), "two.dots");
    EXPECT_EQ(captionUnder(folder.path() / "with.dot" / "plain"), "plain");
    EXPECT_EQ(captionUnder(folder.path() / "back\\slash.bin"), "back\\slash");
    EXPECT_EQ(captionUnder(folder.path() / "größe €.bin"), "größe €");
    EXPECT_EQ(captionUnder(folder.path() / ".bin"), "");
    EXPECT_EQ(captionUnder(folder.path() / std::string(255, 'x')), std::string(255, 'x'));
}

TEST(MessageBoxCaption, IsTakenFromTheFirst1024CharactersOfThePath)
{
    const ScratchFolder folder;
    fs::path path = folder.path();
    while (path.string().size() < 1000)
    {
        path /= std::string(std::min<std::size_t>(200, 1000 - path.string().size()), 'd');
    }
    path /= std::string(100, 'x');
    const std::string cut = path.string().substr(0, 1024);
    EXPECT_EQ(captionUnder(path), cut.substr(cut.rfind('/') + 1));
}

TEST(MessageBoxCaption, IsMorvaWhenTheProgramsPathCannotBeFound)
{
    const ScratchFolder folder;
    EXPECT_EQ(captionUnder(folder.path() / "editor.bin", " nameless"), "MORVA");
}

TEST(AfxMessageBox, CaptionIsTheProgramsFileName)
{
    const ScratchFolder folder;
    EXPECT_EQ(captionUnder(folder.path() / "editor.bin"), "editor");
}

} // namespace
