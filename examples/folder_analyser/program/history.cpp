#include "program/history.h"

namespace
{

constexpr wchar_t keyPath[] = L"Software\\Folder Analyser\\Runs";

// Each run is a value that bears the paths as its name, as far as names go.
std::wstring valueName(const std::wstring& paths)
{
    constexpr std::size_t longestName = 16383;
    return paths.substr(0, longestName);
}

} // namespace

Run recallRun(const std::wstring& paths)
{
    Run run = {};
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, keyPath, 0, KEY_READ, &key) != ERROR_SUCCESS)
    {
        return run;
    }
    DWORD type = 0;
    DWORD size = sizeof run;
    const LONG result =
        RegQueryValueExW(key, valueName(paths).c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&run), &size);
    RegCloseKey(key);
    const bool known = result == ERROR_SUCCESS && type == REG_BINARY && size == sizeof run;
    return known ? run : Run{};
}

bool rememberRun(const std::wstring& paths, const Run& run)
{
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, keyPath, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS)
    {
        return false;
    }
    const LONG result =
        RegSetValueExW(key, valueName(paths).c_str(), 0, REG_BINARY, reinterpret_cast<const BYTE*>(&run), sizeof run);
    RegCloseKey(key);
    return result == ERROR_SUCCESS;
}
