// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/resources.h"

#include <type_traits>

using namespace kest::test;

static_assert(hasSignature<int(HINSTANCE, UINT, wchar_t*, int), LoadStringW>);
static_assert(hasSignature<HANDLE(HINSTANCE, const wchar_t*, UINT, int, int, UINT), LoadImageW>);
static_assert(hasSignature<HBITMAP(HINSTANCE, const wchar_t*), LoadBitmapW>);
static_assert(hasSignature<HICON(HINSTANCE, const wchar_t*), LoadIconW>);
static_assert(hasSignature<BOOL(void*), DeleteObject>);
static_assert(hasSignature<BOOL(HICON), DestroyIcon>);
static_assert(hasSignature<HRSRC(HMODULE, const wchar_t*, const wchar_t*), FindResourceW>);
static_assert(hasSignature<void*(HGLOBAL), LockResource>);
static_assert(hasSignature<DWORD(HMODULE, HRSRC), SizeofResource>);
static_assert(hasSignature<HINSTANCE(), AfxGetResourceHandle>);
static_assert(hasSignature<void(HINSTANCE), AfxSetResourceHandle>);

static_assert(std::is_same_v<decltype(m_hCurrentResourceHandle), HINSTANCE>);
