// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/memory.h"

using namespace kest::test;

static_assert(hasSignature<HGLOBAL(UINT, SIZE_T), GlobalAlloc>);
static_assert(hasSignature<HGLOBAL(HGLOBAL), GlobalFree>);
static_assert(hasSignature<SIZE_T(HGLOBAL), GlobalSize>);
static_assert(hasSignature<void*(HGLOBAL), GlobalLock>);
static_assert(hasSignature<BOOL(HGLOBAL), GlobalUnlock>);
static_assert(hasSignature<HGLOBAL(HGLOBAL, SIZE_T, UINT), GlobalReAlloc>);
static_assert(hasSignature<HLOCAL(HLOCAL), LocalFree>);
static_assert(hasSignature<HANDLE(), GetProcessHeap>);
static_assert(hasSignature<void*(HANDLE, DWORD, SIZE_T), HeapAlloc>);
static_assert(hasSignature<BOOL(HANDLE, DWORD, void*), HeapFree>);
static_assert(hasSignature<void*(HANDLE, DWORD, void*, SIZE_T), HeapReAlloc>);
static_assert(hasSignature<BOOL(const void*, UINT_PTR), IsBadReadPtr>);
