/*
 * Kest Platform Base, porting kit: numbers of fixed width, numbers as wide as a pointer, and conversions between them.
 */
#ifndef KEST_WINDOWS_BASETSD_H
#define KEST_WINDOWS_BASETSD_H

#include "kest/base_types.h"

typedef signed char* PINT8;
typedef short INT16;
typedef INT16* PINT16;
typedef int INT32;
typedef INT32* PINT32;
typedef long long INT64;
typedef INT64* PINT64;
typedef unsigned char UINT8;
typedef UINT8* PUINT8;
typedef unsigned short UINT16;
typedef UINT16* PUINT16;
typedef unsigned int UINT32;
typedef UINT32* PUINT32;
typedef unsigned long long UINT64;
typedef UINT64* PUINT64;
typedef int LONG32;
typedef LONG32* PLONG32;
typedef unsigned int ULONG32;
typedef ULONG32* PULONG32;
typedef unsigned int DWORD32;
typedef DWORD32* PDWORD32;
typedef long long LONG64;
typedef LONG64* PLONG64;
typedef unsigned long long ULONG64;
typedef ULONG64* PULONG64;
typedef DWORD64* PDWORD64;
typedef INT_PTR* PINT_PTR;
typedef LONG_PTR* PLONG_PTR;
typedef UINT_PTR* PUINT_PTR;
typedef ULONG_PTR* PULONG_PTR;
typedef DWORD_PTR* PDWORD_PTR;
typedef LONG_PTR SSIZE_T;
typedef SSIZE_T* PSSIZE_T;
typedef SIZE_T* PSIZE_T;
typedef int HALF_PTR;
typedef unsigned int UHALF_PTR;

#define HandleToULong(handle) ((ULONG)(ULONG_PTR)(handle))
#define HandleToLong(handle) ((LONG)(LONG_PTR)(handle))
#define ULongToHandle(value) ((HANDLE)(ULONG_PTR)(value))
#define LongToHandle(value) ((HANDLE)(LONG_PTR)(value))
#define PtrToUlong(pointer) ((ULONG)(ULONG_PTR)(pointer))
#define PtrToLong(pointer) ((LONG)(LONG_PTR)(pointer))
#define PtrToUint(pointer) ((UINT)(UINT_PTR)(pointer))
#define PtrToInt(pointer) ((INT)(INT_PTR)(pointer))
#define IntToPtr(value) ((void*)(INT_PTR)(int)(value))
#define UIntToPtr(value) ((void*)(UINT_PTR)(unsigned int)(value))
#define LongToPtr(value) ((void*)(LONG_PTR)(LONG)(value))
#define ULongToPtr(value) ((void*)(ULONG_PTR)(ULONG)(value))

#endif
