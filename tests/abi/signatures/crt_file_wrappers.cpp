// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/crt/file_wrappers.h"

#include <cstdio>
#include <sys/stat.h>

using namespace kest::test;

static_assert(hasSignature<FILE*(const wchar_t*, const wchar_t*), _wfopen>);
static_assert(hasSignature<FILE*(wchar_t*, const wchar_t*), _wfopen>);
static_assert(hasSignature<int(FILE**, const wchar_t*, const wchar_t*), _wfopen_s>);
static_assert(hasSignature<int(FILE**, const char*, const char*), fopen_s>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*), _wrename>);
static_assert(hasSignature<int(const wchar_t*), _wremove>);
static_assert(hasSignature<int(const wchar_t*), _wputenv>);
static_assert(hasSignature<int(const wchar_t*, int), _waccess>);
static_assert(hasSignature<int(const wchar_t*, struct stat*), _wstat>);
static_assert(hasSignature<char*(int, const wchar_t*), _wsetlocale>);
static_assert(hasSignature<wchar_t*(const wchar_t*), _wgetenv>);
static_assert(hasSignature<wchar_t*(wchar_t*, int), _wgetcwd>);
static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*, unsigned long), _wfullpath>);
static_assert(hasSignature<long(int), _filelength>);
static_assert(hasSignature<long(const wchar_t*, struct _wfinddata_t*), _wfindfirst>);
static_assert(hasSignature<int(int, int), _setmode>);
