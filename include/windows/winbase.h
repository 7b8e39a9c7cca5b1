/*
 * Kest Platform Base, porting kit: the kernel functions and their generic names.
 */
#ifndef KEST_WINDOWS_WINBASE_H
#define KEST_WINDOWS_WINBASE_H

#include "windef.h"

#include "kest/kernel.h"

KEST_C_BEGIN

/* The entries of window programs, which the program defines: declared here so that they bear their plain names. */
int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand);
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int showCommand);

KEST_C_END

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
