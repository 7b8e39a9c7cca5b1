// kbhit on real terminals, pipes and files, each as the standard input of a child.
#include "harness/in_child.h"
#include "kest/kernel/environment.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <pty.h>
#include <string_view>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <vector>

using kest::test::statusInChild;

namespace
{

// What the library asked of the terminal; the terminal gets it all the same.
struct AttributeChange
{
    int action;
    termios attributes;
};
std::vector<AttributeChange> attributeChanges;

} // namespace

extern "C" KEST_API int tcsetattr(int descriptor, int action, const termios* attributes) noexcept
{
    static const auto real = reinterpret_cast<int (*)(int, int, const termios*)>(dlsym(RTLD_NEXT, "tcsetattr"));
    attributeChanges.push_back({action, *attributes});
    return real(descriptor, action, attributes);
}

namespace
{

// Two connected descriptors: what is written into the one can be read from the other.
class Channel
{
public:
    Channel(int writeEnd, int readEnd) : writeEnd_(writeEnd), readEnd_(readEnd) {}
    ~Channel()
    {
        hangUp();
        close(readEnd_);
    }
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    void type(std::string_view text) const
    {
        EXPECT_EQ(write(writeEnd_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void hangUp()
    {
        if (writeEnd_ != -1)
        {
            close(writeEnd_);
            writeEnd_ = -1;
        }
    }
    int readEnd() const { return readEnd_; }

private:
    int writeEnd_;
    int readEnd_;
};

Channel newTerminal()
{
    int master = -1;
    int slave = -1;
    EXPECT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    return {master, slave};
}

Channel newPipe()
{
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe(ends), 0);
    return {ends[1], ends[0]};
}

// Runs a part of a test in a child with `input` as standard input.
int statusWithInput(int input, const std::function<void()>& body)
{
    return statusInChild(
        [&]
        {
            ASSERT_EQ(dup2(input, STDIN_FILENO), STDIN_FILENO);
            std::clearerr(stdin);
            attributeChanges.clear();
            body();
        });
}

// What was typed takes a moment to arrive.
bool keyArrives()
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (std::chrono::steady_clock::now() < deadline)
    {
        if (kbhit() == 1)
        {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

termios inputAttributes()
{
    termios attributes;
    std::memset(&attributes, 0, sizeof attributes);
    EXPECT_EQ(tcgetattr(STDIN_FILENO, &attributes), 0);
    return attributes;
}

int inputFlags()
{
    return fcntl(STDIN_FILENO, F_GETFL);
}

bool sameAttributes(const termios& left, const termios& right)
{
    return left.c_iflag == right.c_iflag && left.c_oflag == right.c_oflag && left.c_cflag == right.c_cflag &&
           left.c_lflag == right.c_lflag && std::memcmp(left.c_cc, right.c_cc, sizeof left.c_cc) == 0;
}

TEST(Keyboard, HasNoKeyUntilOneIsPressed)
{
    const Channel terminal = newTerminal();
    const int status = statusWithInput(terminal.readEnd(),
                                       [&]
                                       {
                                           const termios before = inputAttributes();
                                           const int flags = inputFlags();
                                           EXPECT_EQ(kbhit(), 0);
                                           EXPECT_EQ(kbhit(), 0);
                                           EXPECT_TRUE(sameAttributes(inputAttributes(), before));
                                           EXPECT_EQ(inputFlags(), flags);
                                           EXPECT_FALSE(std::ferror(stdin));
                                           EXPECT_FALSE(std::feof(stdin));
                                           terminal.type("k");
                                           EXPECT_TRUE(keyArrives());
                                           EXPECT_EQ(std::getchar(), 'k');
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, SeesAKeyBeforeItsLineIsFinished)
{
    const Channel terminal = newTerminal();
    terminal.type("xy");
    const int status = statusWithInput(terminal.readEnd(),
                                       []
                                       {
                                           const termios before = inputAttributes();
                                           const int flags = inputFlags();
                                           EXPECT_TRUE(keyArrives());
                                           EXPECT_TRUE(sameAttributes(inputAttributes(), before));
                                           EXPECT_EQ(inputFlags(), flags);
                                           EXPECT_EQ(kbhit(), 1);
                                           EXPECT_EQ(std::getchar(), 'x');
                                           EXPECT_TRUE(keyArrives());
                                           EXPECT_EQ(std::getchar(), 'y');
                                           EXPECT_EQ(kbhit(), 0);
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, SwitchesTheTerminalAtOnceAndBack)
{
    const Channel terminal = newTerminal();
    const int status = statusWithInput(terminal.readEnd(),
                                       []
                                       {
                                           const termios before = inputAttributes();
                                           ASSERT_NE(before.c_lflag & ICANON, 0U);
                                           ASSERT_NE(before.c_lflag & ECHO, 0U);
                                           EXPECT_EQ(kbhit(), 0);
                                           termios during = before;
                                           during.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
                                           ASSERT_EQ(attributeChanges.size(), 2U);
                                           EXPECT_EQ(attributeChanges[0].action, TCSANOW);
                                           EXPECT_TRUE(sameAttributes(attributeChanges[0].attributes, during));
                                           EXPECT_EQ(attributeChanges[1].action, TCSANOW);
                                           EXPECT_TRUE(sameAttributes(attributeChanges[1].attributes, before));
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, KeepsAttributesThatTheProgramChose)
{
    const Channel terminal = newTerminal();
    const int status = statusWithInput(terminal.readEnd(),
                                       []
                                       {
                                           termios chosen = inputAttributes();
                                           chosen.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
                                           chosen.c_cc[VMIN] = 3;
                                           ASSERT_EQ(tcsetattr(STDIN_FILENO, TCSANOW, &chosen), 0);
                                           EXPECT_EQ(kbhit(), 0);
                                           EXPECT_TRUE(sameAttributes(inputAttributes(), chosen));
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, TellsAByteOf255FromTheEndOfInput)
{
    const Channel terminal = newTerminal();
    const Channel pipe = newPipe();
    for (const Channel* channel : {&terminal, &pipe})
    {
        channel->type("\xFF");
        const int status = statusWithInput(channel->readEnd(),
                                           []
                                           {
                                               EXPECT_TRUE(keyArrives());
                                               EXPECT_EQ(std::getchar(), 0xFF);
                                           });
        EXPECT_EQ(status, 0);
    }
}

TEST(Keyboard, ReadsPipesAsWell)
{
    Channel pipe = newPipe();
    pipe.type("ab");
    const int status = statusWithInput(pipe.readEnd(),
                                       [&]
                                       {
                                           const int flags = inputFlags();
                                           EXPECT_EQ(kbhit(), 1);
                                           EXPECT_EQ(kbhit(), 1);
                                           EXPECT_EQ(inputFlags(), flags);
                                           EXPECT_EQ(std::getchar(), 'a');
                                           EXPECT_EQ(kbhit(), 1);
                                           EXPECT_EQ(std::getchar(), 'b');
                                           EXPECT_EQ(kbhit(), 0);
                                           pipe.type("c");
                                           EXPECT_EQ(kbhit(), 1);
                                           EXPECT_EQ(std::getchar(), 'c');
                                           EXPECT_TRUE(attributeChanges.empty());
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, HasNoKeyAtTheEndOfAPipe)
{
    Channel pipe = newPipe();
    pipe.hangUp();
    const int status = statusWithInput(pipe.readEnd(),
                                       []
                                       {
                                           const int flags = inputFlags();
                                           EXPECT_EQ(kbhit(), 0);
                                           EXPECT_EQ(inputFlags(), flags);
                                           EXPECT_FALSE(std::feof(stdin));
                                           EXPECT_EQ(std::getchar(), EOF);
                                           EXPECT_TRUE(std::feof(stdin));
                                           EXPECT_EQ(kbhit(), 0);
                                           EXPECT_TRUE(std::feof(stdin));
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, LeavesInputNonBlockingThatWasSo)
{
    const Channel pipe = newPipe();
    ASSERT_EQ(fcntl(pipe.readEnd(), F_SETFL, O_NONBLOCK), 0);
    const int status = statusWithInput(pipe.readEnd(),
                                       []
                                       {
                                           EXPECT_EQ(kbhit(), 0);
                                           EXPECT_NE(inputFlags() & O_NONBLOCK, 0);
                                       });
    EXPECT_EQ(status, 0);
}

TEST(Keyboard, HasNoKeyWithoutInput)
{
    const int nothing = open("/dev/null", O_RDONLY);
    EXPECT_EQ(statusWithInput(nothing, [] { EXPECT_EQ(kbhit(), 0); }), 0);
    const int status = statusWithInput(nothing,
                                       []
                                       {
                                           close(STDIN_FILENO);
                                           EXPECT_EQ(kbhit(), 0);
                                       });
    EXPECT_EQ(status, 0);
    close(nothing);
}

} // namespace
