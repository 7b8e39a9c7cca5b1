// The fixed results of the system: threads, languages, certificates, the process, files.
#include "kest/crt.h"
#include "kest/kernel.h"
#include "kest/kernel32_user32.h"
#include "services/fixed_results.h"

#include <cstdint>

namespace kest::test
{

std::vector<FixedResultTopic> systemTopics()
{
    return {
        {"Threads",
         {
             answersNothing("InitializeCriticalSection", InitializeCriticalSection),
             answersNothing("DeleteCriticalSection", DeleteCriticalSection),
             answersNothing("EnterCriticalSection", EnterCriticalSection),
             answersNothing("LeaveCriticalSection", LeaveCriticalSection),
             answers("CreateSemaphoreW", CreateSemaphoreW, nullptr),
             answers("CreateEventW", CreateEventW, nullptr),
             answers("CreateThread", CreateThread, nullptr),
             answers("SetEvent", SetEvent, 0),
             answers("ReleaseSemaphore", ReleaseSemaphore, 0),
             answers("WaitForSingleObject", WaitForSingleObject, 0),
             answers("WaitForMultipleObjects", WaitForMultipleObjects, 0),
             answers("SetThreadPriority", SetThreadPriority, 0),
             answers("ResumeThread", ResumeThread, 0),
             answers("FindCloseChangeNotification", FindCloseChangeNotification, 0),
             answers("FindNextChangeNotification", FindNextChangeNotification, 0),
         }},
        {"LanguagesAndCodePages",
         {
             answers("GetSystemDefaultLCID", GetSystemDefaultLCID, 0x804),
             answers("GetACP", GetACP, 0x3A8),
             answers("GetUserDefaultLCID", GetUserDefaultLCID, 0),
             answers("GetThreadLocale", GetThreadLocale, 0),
             answers("SetThreadLocale", SetThreadLocale, 0),
             answers("GetUserDefaultLocaleName", GetUserDefaultLocaleName, 0),
             answers("LCIDToLocaleName", LCIDToLocaleName, 0),
             answers("GetLocaleInfoW", GetLocaleInfoW, 0),
             answers("GetTimeFormatW", GetTimeFormatW, 0),
             answers("GetDateFormatW", GetDateFormatW, 0),
             answers("LCMapStringW", LCMapStringW, 0),
             answers("IsDBCSLeadByte", IsDBCSLeadByte, 0),
             answers("isleadbyte", isleadbyte, 0),
             answers("_ismbblead", _ismbblead, 0),
             answers("_ismbbtrail", _ismbbtrail, 0),
         }},
        {"VersionsAndSound",
         {
             answers("GetVersion", GetVersion, 0),
             answers("GetVersionExW", GetVersionExW, 0),
             answers("Beep", Beep, 0),
         }},
        {"Certificates",
         {
             answers("WinVerifyTrust", WinVerifyTrust, 0),
             answers("CryptQueryObject", CryptQueryObject, 0),
             answers("CertGetNameStringW", CertGetNameStringW, 0),
             answers("CertFreeCertificateContext", CertFreeCertificateContext, 0),
             answers("CryptMsgClose", CryptMsgClose, 0),
             answers("CertCloseStore", CertCloseStore, 0),
             answers("CertFindCertificateInStore", CertFindCertificateInStore, nullptr),
         }},
        {"Com",
         {
             answers("CoCreateGuid", CoCreateGuid, 0),
             answers("StringFromCLSID", StringFromCLSID, 0),
             answersNothing("CoTaskMemFree", CoTaskMemFree),
         }},
        {"TheProcess",
         {
             answers("GetProcessHeap", GetProcessHeap, nullptr),
             answers("DisableThreadLibraryCalls", DisableThreadLibraryCalls, 0),
             answers("IsBadReadPtr", IsBadReadPtr, 0),
             answers("GetCurrentProcessId", GetCurrentProcessId, 0),
             answers("ProcessIdToSessionId", ProcessIdToSessionId, 0),
             answers("IsWow64Process", IsWow64Process, 1),
             answersNothing("ExitProcess", ExitProcess),
             answersNothing("GetSystemInfo", GetSystemInfo),
             answersNothing("RaiseException", RaiseException),
             answersNothing("OutputDebugStringW", OutputDebugStringW),
             answersNothing("DebugBreak", DebugBreak),
         }},
        {"Files",
         {
             answers("CreateFileMappingW", CreateFileMappingW, nullptr),
             answers("MapViewOfFile", MapViewOfFile, nullptr),
             answers("UnmapViewOfFile", UnmapViewOfFile, 0),
             answers("GetFileInformationByHandleEx", GetFileInformationByHandleEx, 0),
             answers("GetPrivateProfileSectionNamesW", GetPrivateProfileSectionNamesW, 0),
             answers("_setmode", _setmode, 0),
         }},
        {"Times",
         {
             answers("CompareFileTime", CompareFileTime, 1),
             answers("SystemTimeToTzSpecificLocalTime", SystemTimeToTzSpecificLocalTime, 0),
         }},
        {"Memory",
         {
             answers("HeapReAlloc", HeapReAlloc, nullptr),
             answers("LocalFree", LocalFree, nullptr),
         }},
        {"KestKernel32",
         {
             answers("KestKernel32::FindCloseChangeNotification", KestKernel32::FindCloseChangeNotification, 0),
             answers("KestKernel32::FindNextChangeNotification", KestKernel32::FindNextChangeNotification, 0),
             answers("KestKernel32::WaitForSingleObject", KestKernel32::WaitForSingleObject, 0),
             answers("KestKernel32::FindFirstChangeNotificationW", KestKernel32::FindFirstChangeNotificationW,
                     reinterpret_cast<HANDLE>(UINTPTR_MAX)),
         }},
    };
}

} // namespace kest::test
