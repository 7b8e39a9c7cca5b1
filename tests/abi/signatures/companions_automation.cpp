// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/automation.h"

using namespace kest::test;

static_assert(hasSignature<BSTR(const OLECHAR*), SysAllocString>);
static_assert(hasSignature<BSTR(const OLECHAR*, UINT), SysAllocStringLen>);
static_assert(hasSignature<BSTR(const char*, UINT), SysAllocStringByteLen>);
static_assert(hasSignature<INT(BSTR*, const OLECHAR*), SysReAllocString>);
static_assert(hasSignature<INT(BSTR*, const OLECHAR*, UINT), SysReAllocStringLen>);
static_assert(hasSignature<void(BSTR), SysFreeString>);
static_assert(hasSignature<UINT(BSTR), SysStringLen>);
static_assert(hasSignature<UINT(BSTR), SysStringByteLen>);
