// The host: what the library asks of the application's Linux side. The folder analyser needs files only, so there is a
// file-system service and no other.
#pragma once

#include <kest/platform_services.h>

class FileSystemService final : public IFileSystemService
{
public:
    HANDLE FindFirstFileW(const wchar_t* pattern, WIN32_FIND_DATAW* data) override;
    BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* data) override;
    BOOL FindClose(HANDLE search) override;

    BOOL PathFileExistsW(const wchar_t* path, std::wstring& actualPath) override;
    DWORD GetFileAttributesW(const wchar_t* path) override;
    wchar_t* PathFindExtensionW(const wchar_t* path) override;

    // The program calls none of these: they answer that they cannot.
    BOOL PathIsURLW(const wchar_t*) override { return FALSE; }
    wchar_t* PathAddBackslashW(wchar_t*) override { return nullptr; }
    HRESULT SHGetFolderPathW(HWND, int, HANDLE, DWORD, wchar_t*) override { return -1; }
    BOOL PathRelativePathToW(wchar_t*, const wchar_t*, DWORD, const wchar_t*, DWORD) override { return FALSE; }
    DWORD GetTempPathW(DWORD, wchar_t*) override { return 0; }
    BOOL SetFileAttributesW(const wchar_t*, DWORD) override { return FALSE; }
    BOOL PathIsRelativeW(const wchar_t*) override { return FALSE; }
};

class Host final : public IPlatformServices
{
public:
    IFileSystemService* fileSystemService() override { return &fileSystem_; }

    IWindowService* windowService() override { return nullptr; }
    ICursorService* cursorService() override { return nullptr; }
    IFontService* fontService() override { return nullptr; }
    IGraphicsService* graphicsService() override { return nullptr; }
    IProfileService* profileService() override { return nullptr; }
    IDialogService* dialogService() override { return nullptr; }
    IRegistryService* registryService() override { return nullptr; }
    ISystemService* systemService() override { return nullptr; }

private:
    FileSystemService fileSystem_;
};

// Makes the hub, before wmain is called.
IPlatformServices* makeHost();
