#include "kest/kernel/environment.h"
#include "support/second_name.h"

#include <cstdio>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace
{

// A terminal on standard input hands out single characters, unechoed, while this lives. Anything else is left alone.
class SingleCharacterMode
{
public:
    SingleCharacterMode() : isTerminal_(tcgetattr(STDIN_FILENO, &saved_) == 0)
    {
        if (isTerminal_)
        {
            termios single = saved_;
            single.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
            tcsetattr(STDIN_FILENO, TCSANOW, &single);
        }
    }
    ~SingleCharacterMode()
    {
        if (isTerminal_)
        {
            tcsetattr(STDIN_FILENO, TCSANOW, &saved_);
        }
    }
    SingleCharacterMode(const SingleCharacterMode&) = delete;
    SingleCharacterMode& operator=(const SingleCharacterMode&) = delete;

private:
    termios saved_;
    bool isTerminal_;
};

// Reading standard input does not wait while this lives.
class NonBlockingInput
{
public:
    NonBlockingInput() : saved_(fcntl(STDIN_FILENO, F_GETFL))
    {
        if (saved_ != -1)
        {
            fcntl(STDIN_FILENO, F_SETFL, saved_ | O_NONBLOCK);
        }
    }
    ~NonBlockingInput()
    {
        if (saved_ != -1)
        {
            fcntl(STDIN_FILENO, F_SETFL, saved_);
        }
    }
    NonBlockingInput(const NonBlockingInput&) = delete;
    NonBlockingInput& operator=(const NonBlockingInput&) = delete;

private:
    int saved_;
};

// A character that waits on standard input, or EOF. That none waited must not look like an error of the stream to
// the program's own reading.
int waitingCharacter()
{
    const SingleCharacterMode singleCharacters;
    const NonBlockingInput nonBlocking;
    const bool hadNoError = std::ferror(stdin) == 0 && std::feof(stdin) == 0;
    const int character = std::getchar();
    if (character == EOF && hadNoError)
    {
        std::clearerr(stdin);
    }
    return character;
}

} // namespace

int kbhit()
{
    const int character = waitingCharacter();
    if (character == EOF)
    {
        return 0;
    }
    std::ungetc(character, stdin);
    return 1;
}

KEST_SECOND_NAME(int plainKbhit(), "_Z5kbhitv", "kbhit");
