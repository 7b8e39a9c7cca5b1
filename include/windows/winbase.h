/*
 * Kest Platform Base, porting kit: the kernel functions and their generic names.
 */
#ifndef KEST_WINDOWS_WINBASE_H
#define KEST_WINDOWS_WINBASE_H

#include "windef.h"

#include "kest/kernel.h"

#ifdef UNICODE
#define CreateFile CreateFileW
#define FindFirstFile FindFirstFileW
#define FindNextFile FindNextFileW
#define GetFileAttributes GetFileAttributesW
#define GetModuleFileName GetModuleFileNameW
#define GetModuleHandle GetModuleHandleW
#define GetPrivateProfileString GetPrivateProfileStringW
#define LoadLibrary LoadLibraryW
#define LoadLibraryEx LoadLibraryExW
#define SetDllDirectory SetDllDirectoryW
#define WIN32_FIND_DATA WIN32_FIND_DATAW
#else
#define GetFileAttributes GetFileAttributesA
#define GetPrivateProfileString GetPrivateProfileStringA
#define LoadLibrary LoadLibraryA
#endif

#endif
