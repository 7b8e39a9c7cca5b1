// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/input_method.h"

using namespace kest::test;

static_assert(hasSignature<HIMC(HWND), ImmGetContext>);
static_assert(hasSignature<HIMC(HWND, HIMC), ImmAssociateContext>);
static_assert(hasSignature<BOOL(HWND, HIMC), ImmReleaseContext>);
static_assert(hasSignature<BOOL(HIMC, COMPOSITIONFORM*), ImmSetCompositionWindow>);
static_assert(hasSignature<BOOL(HIMC, CANDIDATEFORM*), ImmSetCandidateWindow>);
static_assert(hasSignature<LONG(HIMC, DWORD, void*, DWORD), ImmGetCompositionStringW>);
