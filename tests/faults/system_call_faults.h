// System calls that fail or do a part of their work where the real thing cannot be brought about. The program's own
// functions stand in front of the C library's; the shared libraries in the process call them too.
#pragma once

namespace kest::test
{

enum class SystemCall
{
    read,
    write,
    copyFileRange,
    sendFile,
    rename,
    moveWithoutReplacing,
    makeDirectory,
    create,
    sync
};

// While this lives, a system call fails: every time, or from the given time on, counted from 1.
class FailingCall
{
public:
    FailingCall(SystemCall call, int error, long from = 1);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;

    // Whether it has failed.
    bool reached() const;

private:
    SystemCall call_;
};

// While this lives, every other reading and writing is interrupted by a signal, and those between handle three bytes
// at most. The kernel's own ways of copying are not there.
class ReluctantCalls
{
public:
    ReluctantCalls();
    ~ReluctantCalls();
    ReluctantCalls(const ReluctantCalls&) = delete;
    ReluctantCalls& operator=(const ReluctantCalls&) = delete;

private:
    FailingCall copyFileRange_;
    FailingCall sendFile_;
};

} // namespace kest::test
