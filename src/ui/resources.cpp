#include "kest/user_interface/resources.h"
#include "support/second_name.h"

#include <cstring>

constinit HINSTANCE m_hCurrentResourceHandle = nullptr;

HBITMAP LoadBitmapW(HINSTANCE hInstance, const wchar_t* lpBitmapName)
{
    return static_cast<HBITMAP>(LoadImageW(hInstance, lpBitmapName, IMAGE_BITMAP, 0, 0, 0));
}

BOOL DestroyIcon(HICON hIcon)
{
    return hIcon == nullptr ? 0 : DeleteObject(hIcon);
}

DWORD SizeofResource(HMODULE, HRSRC hResInfo)
{
    DWORD record[2] = {};
    if (hResInfo != nullptr)
    {
        std::memcpy(record, hResInfo, sizeof(record));
    }
    return record[1];
}

HINSTANCE AfxGetResourceHandle()
{
    return m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    m_hCurrentResourceHandle = hInstResource;
}

KEST_SECOND_NAME(HINSTANCE plainAfxGetResourceHandle(), "_Z20AfxGetResourceHandlev", "AfxGetResourceHandle");
KEST_SECOND_NAME(void plainAfxSetResourceHandle(HINSTANCE), "_Z20AfxSetResourceHandleP11HINSTANCE__",
                 "AfxSetResourceHandle");
