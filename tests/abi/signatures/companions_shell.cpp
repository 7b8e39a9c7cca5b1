// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/shell.h"

using namespace kest::test;

static_assert(hasSignature<HRESULT(REFGUID, DWORD, HANDLE, PWSTR*), SHGetKnownFolderPath>);
static_assert(hasSignature<LPWSTR*(LPCWSTR, int*), CommandLineToArgvW>);
static_assert(hasSignature<BOOL(PWSTR, PCWSTR), StrTrimW>);
