// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/dialogs.h"

using namespace kest::test;

static_assert(hasSignature<int(HWND, const wchar_t*, const wchar_t*, UINT), MessageBoxW>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*, UINT), MessageBoxW>);
static_assert(hasSignature<HRESULT(const TASKDIALOGCONFIG*, int*, int*, BOOL*), TaskDialogIndirect>);
static_assert(hasSignature<int(const wchar_t*, UINT, UINT), AfxMessageBox>);
static_assert(hasSignature<int(UINT, UINT, UINT), AfxMessageBox>);
