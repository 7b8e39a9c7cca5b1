#include "kest/crt/file_wrappers.h"
#include "kest/kernel/files.h"

BOOL GetFileInformationByHandleEx(HANDLE, FILE_INFO_BY_HANDLE_CLASS, void*, DWORD)
{
    return 0;
}

HANDLE CreateFileMappingW(HANDLE, SECURITY_ATTRIBUTES*, DWORD, DWORD, DWORD, const wchar_t*)
{
    return nullptr;
}

void* MapViewOfFile(HANDLE, DWORD, DWORD, DWORD, SIZE_T)
{
    return nullptr;
}

BOOL UnmapViewOfFile(const void*)
{
    return 0;
}

int _setmode(int, int)
{
    return 0;
}
