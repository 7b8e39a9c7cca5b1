// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/com.h"

using namespace kest::test;

static_assert(hasSignature<HRESULT(GUID*), CoCreateGuid>);
static_assert(hasSignature<HRESULT(const GUID&, wchar_t**), StringFromCLSID>);
static_assert(hasSignature<void(void*), CoTaskMemFree>);
