// The known folders of the file system service.
#include "folders.h"
#include "kest/host/file_system_service.h"
#include "kest/shell_paths.h"
#include "out_of_memory.h"
#include "unicode.h"

#include <cwchar>
#include <fstream>
#include <new>
#include <optional>
#include <string>
#include <unistd.h>
#include <winerror.h>

namespace kest::host
{

namespace
{

constexpr int folderMask = 0xFF;

// A line of user-dirs.dirs: XDG_MUSIC_DIR="$HOME/Music".
std::optional<std::string> userFolderOf(const std::string& line, const std::string& name)
{
    const std::string start = name + "=\"";
    if (!line.starts_with(start) || !line.ends_with('"') || line.size() <= start.size())
    {
        return std::nullopt;
    }
    const std::string value = line.substr(start.size(), line.size() - start.size() - 1);
    return value.starts_with("$HOME") ? homeFolder() + value.substr(5) : value;
}

std::string userFolder(const std::string& name, const char* belowHome)
{
    std::ifstream file(baseFolder("XDG_CONFIG_HOME", ".config") + "/user-dirs.dirs");
    for (std::string line; std::getline(file, line);)
    {
        if (const std::optional<std::string> folder = userFolderOf(line, name))
        {
            return *folder;
        }
    }
    return homeFolder() + '/' + belowHome;
}

// Empty for a folder that has no counterpart here.
std::string knownFolder(int folder)
{
    switch (folder)
    {
    case CSIDL_DESKTOP:
    case CSIDL_DESKTOPDIRECTORY:
        return userFolder("XDG_DESKTOP_DIR", "Desktop");
    case CSIDL_PERSONAL:
        return userFolder("XDG_DOCUMENTS_DIR", "Documents");
    case CSIDL_MYMUSIC:
        return userFolder("XDG_MUSIC_DIR", "Music");
    case CSIDL_MYPICTURES:
        return userFolder("XDG_PICTURES_DIR", "Pictures");
    case CSIDL_MYVIDEO:
        return userFolder("XDG_VIDEOS_DIR", "Videos");
    case CSIDL_TEMPLATES:
        return userFolder("XDG_TEMPLATES_DIR", "Templates");
    case CSIDL_PROFILE:
        return homeFolder();
    case CSIDL_APPDATA:
        return baseFolder("XDG_CONFIG_HOME", ".config");
    case CSIDL_LOCAL_APPDATA:
        return baseFolder("XDG_DATA_HOME", ".local/share");
    case CSIDL_INTERNET_CACHE:
        return baseFolder("XDG_CACHE_HOME", ".cache");
    case CSIDL_PROGRAMS:
    case CSIDL_STARTMENU:
        return baseFolder("XDG_DATA_HOME", ".local/share") + "/applications";
    case CSIDL_STARTUP:
        return baseFolder("XDG_CONFIG_HOME", ".config") + "/autostart";
    case CSIDL_FONTS:
        return "/usr/share/fonts";
    case CSIDL_COMMON_APPDATA:
        return "/usr/local/share";
    case CSIDL_COMMON_PROGRAMS:
    case CSIDL_COMMON_STARTMENU:
        return "/usr/share/applications";
    case CSIDL_PROGRAM_FILES:
    case CSIDL_PROGRAM_FILESX86:
        return "/opt";
    default:
        return {};
    }
}

} // namespace

HRESULT FileSystemService::SHGetFolderPathW(HWND, int nFolder, HANDLE, DWORD, wchar_t* pszPath)
try
{
    if (pszPath == nullptr)
    {
        return HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER);
    }
    *pszPath = L'\0';
    const std::string folder = knownFolder(nFolder & folderMask);
    if (folder.empty())
    {
        return HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER);
    }
    const bool present =
        access(folder.c_str(), F_OK) == 0 || ((nFolder & CSIDL_FLAG_CREATE) != 0 && makeFolders(folder));
    if (!present)
    {
        return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    }
    const std::wstring path = fromUtf8(folder);
    if (path.size() >= MAX_PATH)
    {
        return HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);
    }
    std::wmemcpy(pszPath, path.c_str(), path.size() + 1);
    return 0;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(E_OUTOFMEMORY);
}

} // namespace kest::host
