#include "kest/companions/shell.h"

#include "failure.h"
#include "kest/shell_paths.h"
#include "narrow_text.h"
#include "services.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <shlobj.h>
#include <string>
#include <system_error>
#include <vector>

using namespace kest::companions;

// ---- Known folders -------------------------------------------------------------------------------------------------

namespace
{

struct KnownFolder
{
    const KNOWNFOLDERID* identifier;
    int number;
};

const KnownFolder knownFolders[] = {
    {&FOLDERID_Desktop, CSIDL_DESKTOPDIRECTORY},
    {&FOLDERID_Documents, CSIDL_PERSONAL},
    {&FOLDERID_Music, CSIDL_MYMUSIC},
    {&FOLDERID_Pictures, CSIDL_MYPICTURES},
    {&FOLDERID_Videos, CSIDL_MYVIDEO},
    {&FOLDERID_Favorites, CSIDL_FAVORITES},
    {&FOLDERID_Profile, CSIDL_PROFILE},
    {&FOLDERID_RoamingAppData, CSIDL_APPDATA},
    {&FOLDERID_LocalAppData, CSIDL_LOCAL_APPDATA},
    {&FOLDERID_ProgramData, CSIDL_COMMON_APPDATA},
    {&FOLDERID_PublicDesktop, CSIDL_COMMON_DESKTOPDIRECTORY},
    {&FOLDERID_PublicDocuments, CSIDL_COMMON_DOCUMENTS},
    {&FOLDERID_PublicMusic, CSIDL_COMMON_MUSIC},
    {&FOLDERID_PublicPictures, CSIDL_COMMON_PICTURES},
    {&FOLDERID_PublicVideos, CSIDL_COMMON_VIDEO},
    {&FOLDERID_Programs, CSIDL_PROGRAMS},
    {&FOLDERID_CommonPrograms, CSIDL_COMMON_PROGRAMS},
    {&FOLDERID_StartMenu, CSIDL_STARTMENU},
    {&FOLDERID_CommonStartMenu, CSIDL_COMMON_STARTMENU},
    {&FOLDERID_Startup, CSIDL_STARTUP},
    {&FOLDERID_CommonStartup, CSIDL_COMMON_STARTUP},
    {&FOLDERID_AdminTools, CSIDL_ADMINTOOLS},
    {&FOLDERID_CommonAdminTools, CSIDL_COMMON_ADMINTOOLS},
    {&FOLDERID_Templates, CSIDL_TEMPLATES},
    {&FOLDERID_CommonTemplates, CSIDL_COMMON_TEMPLATES},
    {&FOLDERID_Recent, CSIDL_RECENT},
    {&FOLDERID_SendTo, CSIDL_SENDTO},
    {&FOLDERID_NetHood, CSIDL_NETHOOD},
    {&FOLDERID_PrintHood, CSIDL_PRINTHOOD},
    {&FOLDERID_InternetCache, CSIDL_INTERNET_CACHE},
    {&FOLDERID_Cookies, CSIDL_COOKIES},
    {&FOLDERID_History, CSIDL_HISTORY},
    {&FOLDERID_Fonts, CSIDL_FONTS},
    {&FOLDERID_Windows, CSIDL_WINDOWS},
    {&FOLDERID_System, CSIDL_SYSTEM},
    {&FOLDERID_SystemX86, CSIDL_SYSTEMX86},
    {&FOLDERID_ProgramFiles, CSIDL_PROGRAM_FILES},
    {&FOLDERID_ProgramFilesX86, CSIDL_PROGRAM_FILESX86},
    {&FOLDERID_ProgramFilesX64, CSIDL_PROGRAM_FILES},
    {&FOLDERID_ProgramFilesCommon, CSIDL_PROGRAM_FILES_COMMON},
    {&FOLDERID_ProgramFilesCommonX86, CSIDL_PROGRAM_FILES_COMMONX86},
    {&FOLDERID_ProgramFilesCommonX64, CSIDL_PROGRAM_FILES_COMMON},
};

constexpr HRESULT folderNotFound = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
constexpr DWORD flagsOfNumbers = 0xF800; // of KF_FLAG_* those that are CSIDL_FLAG_* as well

} // namespace

HRESULT SHGetKnownFolderPath(REFGUID folder, DWORD flags, HANDLE token, PWSTR* path)
{
    if (path == nullptr)
        return E_INVALIDARG;
    *path = nullptr;
    const auto* const known = std::find_if(std::begin(knownFolders), std::end(knownFolders),
                                           [&folder](const KnownFolder& candidate)
                                           { return IsEqualGUID(*candidate.identifier, folder) != 0; });
    if (known == std::end(knownFolders))
        return folderNotFound;
    if (!hasFileSystemService())
        return E_NOTIMPL;
    wchar_t found[MAX_PATH] = L"";
    const HRESULT result =
        SHGetFolderPathW(nullptr, known->number | static_cast<int>(flags & flagsOfNumbers), token,
                         (flags & KF_FLAG_DEFAULT_PATH) != 0 ? SHGFP_TYPE_DEFAULT : SHGFP_TYPE_CURRENT, found);
    if (result != S_OK)
        return SUCCEEDED(result) ? folderNotFound : result;
    *path = wcsdup(found);
    return *path == nullptr ? E_OUTOFMEMORY : S_OK;
}

// ---- Command lines -------------------------------------------------------------------------------------------------

namespace
{

bool isBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

const wchar_t* withoutBlanks(const wchar_t* text)
{
    while (isBlank(*text))
        ++text;
    return text;
}

// Takes the program's name off the front of a command line.
std::wstring takeProgram(const wchar_t*& text)
{
    const bool quoted = *text == L'"';
    const wchar_t* const begin = quoted ? text + 1 : text;
    const wchar_t* end = begin;
    while (*end != L'\0' && (quoted ? *end != L'"' : !isBlank(*end)))
        ++end;
    text = quoted && *end == L'"' ? end + 1 : end;
    return {begin, end};
}

// Takes an argument off the front of a command line that does not begin with a blank.
std::wstring takeArgument(const wchar_t*& text)
{
    std::wstring argument;
    bool quoted = false;
    while (*text != L'\0' && (quoted || !isBlank(*text)))
    {
        const std::size_t backslashes = std::wcsspn(text, L"\\");
        text += backslashes;
        const bool beforeQuote = *text == L'"';
        argument.append(beforeQuote ? backslashes / 2 : backslashes, L'\\');
        if (beforeQuote && backslashes % 2 != 0)
        {
            argument += *text++;
        }
        else if (beforeQuote)
        {
            // The third quote in a row is one of the text, and ends what the first began.
            int row = quoted ? 2 : 1;
            while (*++text == L'"')
            {
                if (++row == 3)
                {
                    argument += L'"';
                    row = 0;
                }
            }
            quoted = row == 1;
        }
        else if (backslashes == 0)
        {
            argument += *text++;
        }
    }
    return argument;
}

std::vector<std::wstring> argumentsOf(const wchar_t* line)
{
    std::vector<std::wstring> arguments;
    if (*line == L'\0')
    {
        std::error_code failed;
        const std::string program = std::filesystem::read_symlink("/proc/self/exe", failed).string();
        arguments.push_back(widened(program.c_str()).value_or(std::wstring()));
        return arguments;
    }
    arguments.push_back(takeProgram(line));
    for (line = withoutBlanks(line); *line != L'\0'; line = withoutBlanks(line))
        arguments.push_back(takeArgument(line));
    return arguments;
}

// The arguments' addresses, the null behind them and their texts, in one block; null without memory.
wchar_t** inOneBlock(const std::vector<std::wstring>& arguments)
{
    std::size_t characters = 0;
    for (const std::wstring& argument : arguments)
        characters += argument.size() + 1;
    const std::size_t addresses = (arguments.size() + 1) * sizeof(wchar_t*);
    auto* const block = static_cast<char*>(std::malloc(addresses + characters * sizeof(wchar_t)));
    if (block == nullptr)
        return nullptr;
    auto** const list = reinterpret_cast<wchar_t**>(block);
    auto* text = reinterpret_cast<wchar_t*>(block + addresses);
    wchar_t** next = list;
    for (const std::wstring& argument : arguments)
    {
        *next++ = text;
        text = std::wmemcpy(text, argument.c_str(), argument.size() + 1) + argument.size() + 1;
    }
    *next = nullptr;
    return list;
}

} // namespace

LPWSTR* CommandLineToArgvW(LPCWSTR line, int* count)
{
    if (line == nullptr || count == nullptr)
        return failWith(ERROR_INVALID_PARAMETER, static_cast<LPWSTR*>(nullptr));
    return reportingNoMemory(static_cast<LPWSTR*>(nullptr),
                             [=]
                             {
                                 const int lastError = errno;
                                 const std::vector<std::wstring> arguments = argumentsOf(line);
                                 wchar_t** const list = inOneBlock(arguments);
                                 if (list == nullptr)
                                     return failWith(ERROR_NOT_ENOUGH_MEMORY, list);
                                 *count = static_cast<int>(arguments.size());
                                 errno = lastError;
                                 return list;
                             });
}

// ---- Texts ---------------------------------------------------------------------------------------------------------

BOOL StrTrimW(PWSTR text, PCWSTR characters)
{
    if (text == nullptr || characters == nullptr)
        return FALSE;
    const std::size_t length = std::wcslen(text);
    const std::size_t begin = std::wcsspn(text, characters);
    std::size_t end = length;
    while (end > begin && std::wcschr(characters, text[end - 1]) != nullptr)
        --end;
    std::wmemmove(text, text + begin, end - begin);
    text[end - begin] = L'\0';
    return end - begin != length ? TRUE : FALSE;
}
