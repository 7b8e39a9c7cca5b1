// Forwards to the profile service, in the order of its operations. The wide string read, which has a reader of its own
// behind it, stands with the profile files.
#include "kest/kernel/profiles.h"
#include "support/forwarding.h"

using kest::forward;
using kest::forwardChecked;

namespace
{
constexpr auto service = &IPlatformServices::profileService;
}

DWORD GetPrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpDefault,
                               char* lpReturnedString, DWORD nSize, const char* lpFileName)
{
    return forwardChecked(0, service, &IProfileService::GetPrivateProfileStringA, lpAppName, lpKeyName, lpDefault,
                          lpReturnedString, nSize, lpFileName);
}

UINT GetPrivateProfileIntW(const wchar_t* lpAppName, const wchar_t* lpKeyName, INT nDefault, const wchar_t* lpFileName)
{
    return forward(service, &IProfileService::GetPrivateProfileIntW, lpAppName, lpKeyName, nDefault, lpFileName);
}

UINT GetPrivateProfileIntA(const char* lpAppName, const char* lpKeyName, INT nDefault, const char* lpFileName)
{
    return forward(service, &IProfileService::GetPrivateProfileIntA, lpAppName, lpKeyName, nDefault, lpFileName);
}

DWORD GetPrivateProfileSectionW(const wchar_t* lpAppName, wchar_t* lpReturnedString, DWORD nSize,
                                const wchar_t* lpFileName)
{
    return forwardChecked(nSize - 2, service, &IProfileService::GetPrivateProfileSectionW, lpAppName, lpReturnedString,
                          nSize, lpFileName);
}

BOOL WritePrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName, const wchar_t* lpString,
                                const wchar_t* lpFileName)
{
    return forward(service, &IProfileService::WritePrivateProfileStringW, lpAppName, lpKeyName, lpString, lpFileName);
}

BOOL WritePrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpString,
                                const char* lpFileName)
{
    return forward(service, &IProfileService::WritePrivateProfileStringA, lpAppName, lpKeyName, lpString, lpFileName);
}
