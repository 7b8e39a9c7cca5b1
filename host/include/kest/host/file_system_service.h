/*
 * Kest reference host: finding files, attributes, known folders and paths.
 *
 * Paths are given as Windows code spells them: backslashes separate as slashes do, and a component without an exact
 * match on disk is found without case. Results use "/".
 *
 * Attributes are Windows's flags: FILE_ATTRIBUTE_READONLY for files that nobody may write, _HIDDEN for names with a
 * leading dot, _DIRECTORY, _REPARSE_POINT for symbolic links, _ARCHIVE for other files, _DEVICE for what is neither.
 * Times count whole seconds since 1970, as all file times of the library do. Failures leave Windows's code in errno,
 * which is the last-error value.
 */
#ifndef KEST_HOST_FILE_SYSTEM_SERVICE_H
#define KEST_HOST_FILE_SYSTEM_SERVICE_H

#include "kest/platform_services.h"

namespace kest
{
namespace host
{

class KEST_API FileSystemService : public IFileSystemService
{
public:
    /**
     * Finds the entries of a folder that match a pattern in the last component: "*" for any text, "?" for one
     * character or, before a dot and at the end, none, "*.*" for everything; without case. Names come in order,
     * "." and ".." among them.
     */
    HANDLE FindFirstFileW(const wchar_t* lpFileName, WIN32_FIND_DATAW* lpFindFileData) override;
    /** 0 with ERROR_NO_MORE_FILES (18) after the last entry, with ERROR_INVALID_HANDLE (6) for a foreign handle. */
    BOOL FindNextFileW(HANDLE hFindFile, WIN32_FIND_DATAW* lpFindFileData) override;
    BOOL FindClose(HANDLE hFindFile) override;
    BOOL PathFileExistsW(const wchar_t* path, std::wstring& actualPath) override;
    /** 1 for text that begins with a scheme of two characters or more and a colon. */
    BOOL PathIsURLW(const wchar_t* pszPath) override;
    /** Adds "/" unless the path is empty or ends in a separator; returns the address of the terminator. */
    wchar_t* PathAddBackslashW(wchar_t* pszPath) override;
    /**
     * Known folders, from the XDG user directories and base directories. 0 with the path stored; 0x80070002 when
     * the folder does not exist and CSIDL_FLAG_CREATE is not given; 0x80070057 for a folder unknown here; in both
     * cases an empty path is stored. Paths of more than 259 characters answer 0x8007007A.
     */
    HRESULT SHGetFolderPathW(HWND hwnd, int nFolder, HANDLE hToken, DWORD dwFlags, wchar_t* pszPath) override;
    /** Both paths must be absolute or both relative; the result begins with "./" or "../" and must fit MAX_PATH. */
    BOOL PathRelativePathToW(wchar_t* pszPath, const wchar_t* pszFrom, DWORD dwAttrFrom, const wchar_t* pszTo,
                             DWORD dwAttrTo) override;
    /** $TMPDIR, $TMP, $TEMP or /tmp, with "/" behind it: its length, or the size that the buffer must have. */
    DWORD GetTempPathW(DWORD nBufferLength, wchar_t* lpBuffer) override;
    DWORD GetFileAttributesW(const wchar_t* lpFileName) override;
    /** FILE_ATTRIBUTE_READONLY takes and gives back write permission; what has no meaning on disk is ignored. */
    BOOL SetFileAttributesW(const wchar_t* lpFileName, DWORD dwFileAttributes) override;
    /** 0 for paths that begin with a separator or a drive letter. */
    BOOL PathIsRelativeW(const wchar_t* pszPath) override;
    /** The address of the last component's last dot, unless a space follows it; else of the terminator. */
    wchar_t* PathFindExtensionW(const wchar_t* pszPath) override;
};

} // namespace host
} // namespace kest

#endif
