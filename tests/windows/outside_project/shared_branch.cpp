#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <regex>
#include <string>
#include <thread>
#include <windows.h>

const char* sharedBranch();

const char* sharedBranch()
{
#if defined(_WIN32) && defined(_WIN64)
    return "Windows";
#else
    return "Linux";
#endif
}
