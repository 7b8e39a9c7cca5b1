// Has no DllMain, though a module it is linked against has one.
#include <windows.h>

extern "C" __declspec(dllimport) int Answer();

extern "C" __declspec(dllexport) int AnswerOfTools()
{
    return Answer();
}
