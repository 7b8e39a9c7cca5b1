// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/encodings.h"

using namespace kest::test;

static_assert(hasSignature<int(UINT, DWORD, const char*, int, wchar_t*, int), MultiByteToWideChar>);
static_assert(hasSignature<int(UINT, DWORD, const wchar_t*, int, char*, int, const char*, BOOL*), WideCharToMultiByte>);
