#include "kest/companions/shell.h"

#include "kest/shell_paths.h"
#include "narrow_text.h"
#include "services.h"
#include "windows_errors.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

using namespace kest::companions;

// ---- Known folders -------------------------------------------------------------------------------------------------

namespace
{

struct KnownFolder
{
    GUID identifier;
    int number;
};

constexpr KnownFolder knownFolders[] = {
    {{0xB4BFCC3A, 0xDB2C, 0x424C, {0xB0, 0x29, 0x7F, 0xE9, 0x9A, 0x87, 0xC6, 0x41}}, CSIDL_DESKTOPDIRECTORY}, // Desktop
    {{0xFDD39AD0, 0x238F, 0x46AF, {0xAD, 0xB4, 0x6C, 0x85, 0x48, 0x03, 0x69, 0xC7}}, CSIDL_PERSONAL},   // Documents
    {{0x4BD8D571, 0x6D19, 0x48D3, {0xBE, 0x97, 0x42, 0x22, 0x20, 0x08, 0x0E, 0x43}}, CSIDL_MYMUSIC},    // Music
    {{0x33E28130, 0x4E1E, 0x4676, {0x83, 0x5A, 0x98, 0x39, 0x5C, 0x3B, 0xC3, 0xBB}}, CSIDL_MYPICTURES}, // Pictures
    {{0x18989B1D, 0x99B5, 0x455B, {0x84, 0x1C, 0xAB, 0x7C, 0x74, 0xE4, 0xDD, 0xFC}}, CSIDL_MYVIDEO},    // Videos
    {{0x1777F761, 0x68AD, 0x4D8A, {0x87, 0xBD, 0x30, 0xB7, 0x59, 0xFA, 0x33, 0xDD}}, CSIDL_FAVORITES},  // Favorites
    {{0x5E6C858F, 0x0E22, 0x4760, {0x9A, 0xFE, 0xEA, 0x33, 0x17, 0xB6, 0x71, 0x73}}, CSIDL_PROFILE},    // Profile
    {{0x3EB685DB, 0x65F9, 0x4CF6, {0xA0, 0x3A, 0xE3, 0xEF, 0x65, 0x72, 0x9F, 0x3D}}, CSIDL_APPDATA}, // RoamingAppData
    {{0xF1B32785, 0x6FBA, 0x4FCF, {0x9D, 0x55, 0x7B, 0x8E, 0x7F, 0x15, 0x70, 0x91}},
     CSIDL_LOCAL_APPDATA}, // LocalAppData
    {{0x62AB5D82, 0xFDC1, 0x4DC3, {0xA9, 0xDD, 0x07, 0x0D, 0x1D, 0x49, 0x5D, 0x97}},
     CSIDL_COMMON_APPDATA}, // ProgramData
    {{0xC4AA340D, 0xF20F, 0x4863, {0xAF, 0xEF, 0xF8, 0x7E, 0xF2, 0xE6, 0xBA, 0x25}},
     CSIDL_COMMON_DESKTOPDIRECTORY}, // PublicDesktop
    {{0xED4824AF, 0xDCE4, 0x45A8, {0x81, 0xE2, 0xFC, 0x79, 0x65, 0x08, 0x36, 0x34}},
     CSIDL_COMMON_DOCUMENTS}, // PublicDocuments
    {{0x3214FAB5, 0x9757, 0x4298, {0xBB, 0x61, 0x92, 0xA9, 0xDE, 0xAA, 0x44, 0xFF}}, CSIDL_COMMON_MUSIC}, // PublicMusic
    {{0xB6EBFB86, 0x6907, 0x413C, {0x9A, 0xF7, 0x4F, 0xC2, 0xAB, 0xF0, 0x7C, 0xC5}},
     CSIDL_COMMON_PICTURES}, // PublicPictures
    {{0x2400183A, 0x6185, 0x49FB, {0xA2, 0xD8, 0x4A, 0x39, 0x2A, 0x60, 0x2B, 0xA3}},
     CSIDL_COMMON_VIDEO},                                                                             // PublicVideos
    {{0xA77F5D77, 0x2E2B, 0x44C3, {0xA6, 0xA2, 0xAB, 0xA6, 0x01, 0x05, 0x4A, 0x51}}, CSIDL_PROGRAMS}, // Programs
    {{0x0139D44E, 0x6AFE, 0x49F2, {0x86, 0x90, 0x3D, 0xAF, 0xCA, 0xE6, 0xFF, 0xB8}},
     CSIDL_COMMON_PROGRAMS},                                                                           // CommonPrograms
    {{0x625B53C3, 0xAB48, 0x4EC1, {0xBA, 0x1F, 0xA1, 0xEF, 0x41, 0x46, 0xFC, 0x19}}, CSIDL_STARTMENU}, // StartMenu
    {{0xA4115719, 0xD62E, 0x491D, {0xAA, 0x7C, 0xE7, 0x4B, 0x8B, 0xE3, 0xB0, 0x67}},
     CSIDL_COMMON_STARTMENU},                                                                        // CommonStartMenu
    {{0xB97D20BB, 0xF46A, 0x4C97, {0xBA, 0x10, 0x5E, 0x36, 0x08, 0x43, 0x08, 0x54}}, CSIDL_STARTUP}, // Startup
    {{0x82A5EA35, 0xD9CD, 0x47C5, {0x96, 0x29, 0xE1, 0x5D, 0x2F, 0x71, 0x4E, 0x6E}},
     CSIDL_COMMON_STARTUP},                                                                             // CommonStartup
    {{0x724EF170, 0xA42D, 0x4FEF, {0x9F, 0x26, 0xB6, 0x0E, 0x84, 0x6F, 0xBA, 0x4F}}, CSIDL_ADMINTOOLS}, // AdminTools
    {{0xD0384E7D, 0xBAC3, 0x4797, {0x8F, 0x14, 0xCB, 0xA2, 0x29, 0xB3, 0x92, 0xB5}},
     CSIDL_COMMON_ADMINTOOLS}, // CommonAdminTools
    {{0xA63293E8, 0x664E, 0x48DB, {0xA0, 0x79, 0xDF, 0x75, 0x9E, 0x05, 0x09, 0xF7}}, CSIDL_TEMPLATES}, // Templates
    {{0xB94237E7, 0x57AC, 0x4347, {0x91, 0x51, 0xB0, 0x8C, 0x6C, 0x32, 0xD1, 0xF7}},
     CSIDL_COMMON_TEMPLATES},                                                                        // CommonTemplates
    {{0xAE50C081, 0xEBD2, 0x438A, {0x86, 0x55, 0x8A, 0x09, 0x2E, 0x34, 0x98, 0x7A}}, CSIDL_RECENT},  // Recent
    {{0x8983036C, 0x27C0, 0x404B, {0x8F, 0x08, 0x10, 0x2D, 0x10, 0xDC, 0xFD, 0x74}}, CSIDL_SENDTO},  // SendTo
    {{0xC5ABBF53, 0xE17F, 0x4121, {0x89, 0x00, 0x86, 0x62, 0x6F, 0xC2, 0xC9, 0x73}}, CSIDL_NETHOOD}, // NetHood
    {{0x9274BD8D, 0xCFD1, 0x41C3, {0xB3, 0x5E, 0xB1, 0x3F, 0x55, 0xA7, 0x58, 0xF4}}, CSIDL_PRINTHOOD}, // PrintHood
    {{0x352481E8, 0x33BE, 0x4251, {0xBA, 0x85, 0x60, 0x07, 0xCA, 0xED, 0xCF, 0x9D}},
     CSIDL_INTERNET_CACHE},                                                                            // InternetCache
    {{0x2B0F765D, 0xC0E9, 0x4171, {0x90, 0x8E, 0x08, 0xA6, 0x11, 0xB8, 0x4F, 0xF6}}, CSIDL_COOKIES},   // Cookies
    {{0xD9DC8A3B, 0xB784, 0x432E, {0xA7, 0x81, 0x5A, 0x11, 0x30, 0xA7, 0x59, 0x63}}, CSIDL_HISTORY},   // History
    {{0xFD228CB7, 0xAE11, 0x4AE3, {0x86, 0x4C, 0x16, 0xF3, 0x91, 0x0A, 0xB8, 0xFE}}, CSIDL_FONTS},     // Fonts
    {{0xF38BF404, 0x1D43, 0x42F2, {0x93, 0x05, 0x67, 0xDE, 0x0B, 0x28, 0xFC, 0x23}}, CSIDL_WINDOWS},   // Windows
    {{0x1AC14E77, 0x02E7, 0x4E5D, {0xB7, 0x44, 0x2E, 0xB1, 0xAE, 0x51, 0x98, 0xB7}}, CSIDL_SYSTEM},    // System
    {{0xD65231B0, 0xB2F1, 0x4857, {0xA4, 0xCE, 0xA8, 0xE7, 0xC6, 0xEA, 0x7D, 0x27}}, CSIDL_SYSTEMX86}, // SystemX86
    {{0x905E63B6, 0xC1BF, 0x494E, {0xB2, 0x9C, 0x65, 0xB7, 0x32, 0xD3, 0xD2, 0x1A}},
     CSIDL_PROGRAM_FILES}, // ProgramFiles
    {{0x7C5A40EF, 0xA0FB, 0x4BFC, {0x87, 0x4A, 0xC0, 0xF2, 0xE0, 0xB9, 0xFA, 0x8E}},
     CSIDL_PROGRAM_FILESX86}, // ProgramFilesX86
    {{0x6D809377, 0x6AF0, 0x444B, {0x89, 0x57, 0xA3, 0x77, 0x3F, 0x02, 0x20, 0x0E}},
     CSIDL_PROGRAM_FILES}, // ProgramFilesX64
    {{0xF7F1ED05, 0x9F6D, 0x47A2, {0xAA, 0xAE, 0x29, 0xD3, 0x17, 0xC6, 0xF0, 0x66}},
     CSIDL_PROGRAM_FILES_COMMON}, // ProgramFilesCommon
    {{0xDE974D24, 0xD9C6, 0x4D3E, {0xBF, 0x91, 0xF4, 0x45, 0x51, 0x20, 0xB9, 0x17}},
     CSIDL_PROGRAM_FILES_COMMONX86}, // ProgramFilesCommonX86
    {{0x6365D5A7, 0x0F0D, 0x45E5, {0x87, 0xF6, 0x0D, 0xA5, 0x6B, 0x6A, 0x4F, 0x7D}},
     CSIDL_PROGRAM_FILES_COMMON}, // ProgramFilesCommonX64
};

constexpr HRESULT folderNotFound = static_cast<HRESULT>(0x80070002);
constexpr DWORD flagsOfNumbers = 0xF800; // of KF_FLAG_* those that are CSIDL_FLAG_* as well
constexpr DWORD defaultPath = 0x0400;    // KF_FLAG_DEFAULT_PATH

} // namespace

HRESULT SHGetKnownFolderPath(REFGUID folder, DWORD flags, HANDLE token, PWSTR* path)
{
    if (path == nullptr)
        return E_INVALIDARG;
    *path = nullptr;
    const auto* const known = std::find_if(std::begin(knownFolders), std::end(knownFolders),
                                           [&folder](const KnownFolder& candidate)
                                           { return std::memcmp(&candidate.identifier, &folder, sizeof folder) == 0; });
    if (known == std::end(knownFolders))
        return folderNotFound;
    if (!hasFileSystemService())
        return E_NOTIMPL;
    wchar_t found[MAX_PATH] = L"";
    const HRESULT result =
        SHGetFolderPathW(nullptr, known->number | static_cast<int>(flags & flagsOfNumbers), token,
                         (flags & defaultPath) != 0 ? SHGFP_TYPE_DEFAULT : SHGFP_TYPE_CURRENT, found);
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
        return failWith(errorInvalidParameter, static_cast<LPWSTR*>(nullptr));
    return reportingNoMemory(static_cast<LPWSTR*>(nullptr),
                             [=]
                             {
                                 const int lastError = errno;
                                 const std::vector<std::wstring> arguments = argumentsOf(line);
                                 wchar_t** const list = inOneBlock(arguments);
                                 if (list == nullptr)
                                     return failWith(errorNotEnoughMemory, list);
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
