#include "kest/user_interface/strings.h"

wchar_t* CharNextW(const wchar_t* lpsz)
{
    return const_cast<wchar_t*>(lpsz) + 1;
}
