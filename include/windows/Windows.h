/* Kest Platform Base, porting kit: the other spelling of <windows.h>. */
#include "windows.h"
