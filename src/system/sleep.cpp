#include "kest/kernel/synchronisation.h"

#include <unistd.h>

void Sleep(DWORD ms)
{
    usleep(ms * 1000U);
}
