#include "kest/user_interface/resources.h"

BOOL DestroyIcon(HICON hIcon)
{
    return hIcon == nullptr ? 0 : DeleteObject(hIcon);
}
