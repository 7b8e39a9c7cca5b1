#include <cstdio>

const char* sharedBranch();

int main()
{
#ifdef _WIN32
    const char* const own = "Windows";
#else
    const char* const own = "Linux";
#endif
#if defined(UNICODE) && defined(_UNICODE)
    const char* const text = "wide";
#else
    const char* const text = "narrow";
#endif
    std::printf("%s, shared %s, %s\n", own, sharedBranch(), text);
}
