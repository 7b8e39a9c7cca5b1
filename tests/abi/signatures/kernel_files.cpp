// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/files.h"

using namespace kest::test;

static_assert(hasSignature<HANDLE(const wchar_t*, WIN32_FIND_DATAW*), FindFirstFileW>);
static_assert(hasSignature<BOOL(HANDLE, WIN32_FIND_DATAW*), FindNextFileW>);
static_assert(hasSignature<BOOL(HANDLE), FindClose>);
static_assert(
    hasSignature<HANDLE(const wchar_t*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE), CreateFileW>);
static_assert(hasSignature<BOOL(HANDLE, void*, DWORD, DWORD*, OVERLAPPED*), ReadFile>);
static_assert(hasSignature<BOOL(HANDLE, const void*, DWORD, DWORD*, OVERLAPPED*), WriteFile>);
static_assert(hasSignature<DWORD(HANDLE, LONG, LONG*, DWORD), SetFilePointer>);
static_assert(hasSignature<DWORD(HANDLE, DWORD*), GetFileSize>);
static_assert(hasSignature<BOOL(HANDLE), CloseHandle>);
static_assert(hasSignature<BOOL(HANDLE, FILETIME*, FILETIME*, FILETIME*), GetFileTime>);
static_assert(hasSignature<BOOL(HANDLE, BY_HANDLE_FILE_INFORMATION*), GetFileInformationByHandle>);
static_assert(hasSignature<BOOL(HANDLE, FILE_INFO_BY_HANDLE_CLASS, void*, DWORD), GetFileInformationByHandleEx>);
static_assert(hasSignature<DWORD(const wchar_t*), GetFileAttributesW>);
static_assert(hasSignature<DWORD(const char*), GetFileAttributesA>);
static_assert(hasSignature<BOOL(const wchar_t*, DWORD), SetFileAttributesW>);
static_assert(hasSignature<BOOL(const char*, DWORD), SetFileAttributesA>);
static_assert(hasSignature<DWORD(const wchar_t*, wchar_t*, DWORD), GetShortPathNameW>);
static_assert(hasSignature<BOOL(const wchar_t*, wchar_t*, DWORD, DWORD*, DWORD*, DWORD*, wchar_t*, DWORD),
                           GetVolumeInformationW>);
static_assert(
    hasSignature<HANDLE(HANDLE, SECURITY_ATTRIBUTES*, DWORD, DWORD, DWORD, const wchar_t*), CreateFileMappingW>);
static_assert(hasSignature<void*(HANDLE, DWORD, DWORD, DWORD, SIZE_T), MapViewOfFile>);
static_assert(hasSignature<BOOL(const void*), UnmapViewOfFile>);
