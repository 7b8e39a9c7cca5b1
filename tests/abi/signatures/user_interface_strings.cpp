// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/strings.h"

using namespace kest::test;

static_assert(hasSignature<int(wchar_t*, const wchar_t*, ...), wsprintfW>);
static_assert(hasSignature<wchar_t*(wchar_t*), CharUpperW>);
static_assert(hasSignature<wchar_t*(wchar_t*), CharLowerW>);
static_assert(hasSignature<wchar_t*(const wchar_t*), CharNextW>);
