// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/search_path.h"

#include <vector>

using namespace kest::test;

static_assert(hasSignature<bool(CStdStr<wchar_t>&), getCurProcessFilePath>);
static_assert(hasSignature<bool(CStdStr<wchar_t>&), getCurProcessDirPath>);
static_assert(hasSignature<bool(std::vector<CStdStr<wchar_t>>&), getEnvPATH>);
static_assert(hasSignature<bool(const wchar_t*, const wchar_t*), findFile>);
static_assert(
    hasSignature<DWORD(const wchar_t*, const wchar_t*, const wchar_t*, DWORD, wchar_t*, wchar_t**), SearchPathW>);
