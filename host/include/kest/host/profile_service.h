/*
 * Kest reference host: profile (INI) files with Windows's rules.
 *
 * Reading: sections and keys are compared without case, the first of several counts; lines that begin with ";" are
 * comments; a value loses the blanks around it and one pair of quotes. A missing section or key, or a missing file,
 * reads as the default. A null key lists the section's keys, a null section the file's sections, each name followed
 * by a terminator and the list by another.
 *
 * Writing: a null value deletes the key, a null key the section; everything else in the file, comments and lines
 * without meaning included, stays byte for byte. UTF-8 and UTF-16LE files (the latter with a byte-order mark) keep
 * their encoding, new files are UTF-8 with CR LF line ends. A file is replaced whole: whoever reads it, or comes
 * after a crash, finds the old or the new one. Writers of one folder wait for each other, across processes.
 *
 * File names: backslashes separate as slashes do, and components are found without case if there is no exact match.
 * A bare name stands in kest/ below $XDG_CONFIG_HOME or ~/.config, as on Windows it stands in the system's folder.
 *
 * A failing write answers 0, leaves the file as it was and Windows's code for the reason in errno, which is the
 * last-error value. What is no regular file reads as a missing one and is not written; what cannot be opened, for want
 * of descriptors say, reads so as well. Without memory a read answers an empty text or list, or its default number,
 * with ERROR_NOT_ENOUGH_MEMORY (8) there.
 */
#ifndef KEST_HOST_PROFILE_SERVICE_H
#define KEST_HOST_PROFILE_SERVICE_H

#include "kest/platform_services.h"

namespace kest
{
namespace host
{

class KEST_API ProfileService : public IProfileService
{
public:
    DWORD GetPrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName, const wchar_t* lpDefault,
                                   wchar_t* lpReturnedString, DWORD nSize, const wchar_t* lpFileName) override;
    DWORD GetPrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpDefault,
                                   char* lpReturnedString, DWORD nSize, const char* lpFileName) override;
    /** Decimal, or with 0x, 0o or 0b in front in that base; a value that is no number reads as 0. */
    UINT GetPrivateProfileIntW(const wchar_t* lpAppName, const wchar_t* lpKeyName, INT nDefault,
                               const wchar_t* lpFileName) override;
    UINT GetPrivateProfileIntA(const char* lpAppName, const char* lpKeyName, INT nDefault,
                               const char* lpFileName) override;
    DWORD GetPrivateProfileSectionW(const wchar_t* lpAppName, wchar_t* lpReturnedString, DWORD nSize,
                                    const wchar_t* lpFileName) override;
    BOOL WritePrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName, const wchar_t* lpString,
                                    const wchar_t* lpFileName) override;
    BOOL WritePrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpString,
                                    const char* lpFileName) override;
};

} // namespace host
} // namespace kest

#endif
