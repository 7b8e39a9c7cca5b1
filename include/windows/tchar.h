/*
 * Kest Platform Base, porting kit: generic text of the C runtime, wide where _UNICODE is defined. A name is there where
 * the C library, this library or its companions have the function it stands for. The formatting names read "%s" in wide
 * formats as Windows does, as wide text; _stprintf, which knows no size, is the C library's swprintf and does not.
 */
#ifndef KEST_WINDOWS_TCHAR_H
#define KEST_WINDOWS_TCHAR_H

#include "kest_kit/crt_names.h"
#include "windef.h"

#include <ctype.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>
#include <wchar.h>
#include <wctype.h>

#define _TEXT(literal) _T(literal)

#ifdef _UNICODE
#define _T(literal) KEST_WIDE_TEXT(literal)
typedef wchar_t _TCHAR;
typedef wchar_t _TUCHAR;
typedef wchar_t _TSCHAR;
typedef wint_t _TINT;
#define _TEOF WEOF
#define _tfinddata_t _wfinddata_t
#else
#define _T(literal) literal
typedef char _TCHAR;
typedef unsigned char _TUCHAR;
typedef signed char _TSCHAR;
typedef int _TINT;
#define _TEOF EOF
#endif

#ifdef _UNICODE

/* Characters */
#define _istalnum iswalnum
#define _istalpha iswalpha
#define _istcntrl iswcntrl
#define _istdigit iswdigit
#define _istgraph iswgraph
#define _istlower iswlower
#define _istprint iswprint
#define _istpunct iswpunct
#define _istspace iswspace
#define _istupper iswupper
#define _istxdigit iswxdigit
#define _totlower towlower
#define _totupper towupper

/* Strings */
#define _tcscat wcscat
#define _tcschr wcschr
#define _tcscmp wcscmp
#define _tcscoll wcscoll
#define _tcscpy wcscpy
#define _tcscspn wcscspn
#define _tcsdup wcsdup
#define _tcsftime wcsftime
#define _tcslen wcslen
#define _tcsnlen wcsnlen
#define _tcsncat wcsncat
#define _tcsncmp wcsncmp
#define _tcsncpy wcsncpy
#define _tcspbrk wcspbrk
#define _tcsrchr wcsrchr
#define _tcsspn wcsspn
#define _tcsstr wcsstr
#define _tcsxfrm wcsxfrm
#define _tcsicmp _wcsicmp
#define _tcsnicmp _wcsnicmp
#define _tcscpy_s wcscpy_s
#define _tcsncpy_s wcsncpy_s
#define _tcsncat_s wcsncat_s
#define _tcslwr _wcslwr
#define _tcsupr _wcsupr
#define _tcslwr_s _wcslwr_s
#define _tcsupr_s _wcsupr_s
#define _tcsrev _wcsrev
#define _tcstok _wcstok
#define _tcstok_s wcstok_s
#define _tcsinc _wcsinc
#define _tcsninc _wcsninc
#define _tcsnextc _wcsnextc
#define _tcsicoll _wcsicoll
#define _tcsncoll _wcsncoll
#define _tcsnicoll _wcsnicoll
#define _tcsclen wcslen
#define _tcsnccpy wcsncpy
#define _tcsnccmp wcsncmp
#define _tcsncicmp _wcsnicmp

/* Numbers */
#define _tstoi _wtoi
#define _tstol _wtol
#define _tstoi64 _wtoi64
#define _tstof _wtof
#define _ttoi _wtoi
#define _ttol _wtol
#define _ttoi64 _wtoi64
#define _tcstod wcstod
#define _tcstol wcstol
#define _tcstoul wcstoul
#define _tcstoi64 wcstoll
#define _tcstoui64 wcstoull
#define _itot _itow
#define _itot_s _itow_s
#define _ltot _ltow
#define _ltot_s _ltow_s
#define _i64tot _i64tow
#define _ui64tot _ui64tow

/* Formatted output: wide formats as Windows reads them */
#define _stprintf_s swprintf_s
#define _sntprintf_s _snwprintf_s
#define _tprintf _tarwprintf
#define _ftprintf _tarfwprintf
#define _sntprintf _tarswprintf
#define _vtprintf _tarvwprintf
#define _vftprintf _tarvfwprintf
#define _vsntprintf _tarvswprintf
#define _vstprintf_s vswprintf_s
#define _vsctprintf _vscwprintf
#define _stprintf swprintf

/* Input and output */
#define _fgettc fgetwc
#define _fgetts fgetws
#define _fputtc fputwc
#define _fputts fputws
#define _gettc getwc
#define _gettchar getwchar
#define _puttc putwc
#define _puttchar putwchar
#define _ungettc ungetwc
#define _stscanf swscanf
#define _ftscanf fwscanf
#define _tscanf wscanf

/* Files, paths, the environment */
#define _tchdir _wchdir
#define _tmkdir _wmkdir
#define _trmdir _wrmdir
#define _tunlink _wunlink
#define _tdupenv_s _wdupenv_s
#define _tfopen _wfopen
#define _tfopen_s _wfopen_s
#define _tremove _wremove
#define _trename _wrename
#define _taccess _waccess
#define _tstat _wstat
#define _tgetcwd _wgetcwd
#define _tgetenv _wgetenv
#define _tputenv _wputenv
#define _tfullpath _wfullpath
#define _tsplitpath _wsplitpath
#define _tsplitpath_s _wsplitpath_s
#define _tmakepath _wmakepath
#define _tfindfirst _wfindfirst
#define _tsetlocale _wsetlocale
#define _tmain wmain
#define _tWinMain wWinMain

#else

/* Characters */
#define _istalnum isalnum
#define _istalpha isalpha
#define _istcntrl iscntrl
#define _istdigit isdigit
#define _istgraph isgraph
#define _istlower islower
#define _istprint isprint
#define _istpunct ispunct
#define _istspace isspace
#define _istupper isupper
#define _istxdigit isxdigit
#define _totlower tolower
#define _totupper toupper

/* Strings */
#define _tcscat strcat
#define _tcschr strchr
#define _tcscmp strcmp
#define _tcscoll strcoll
#define _tcscpy strcpy
#define _tcscspn strcspn
#define _tcsdup strdup
#define _tcsftime strftime
#define _tcslen strlen
#define _tcsnlen strnlen
#define _tcsncat strncat
#define _tcsncmp strncmp
#define _tcsncpy strncpy
#define _tcspbrk strpbrk
#define _tcsrchr strrchr
#define _tcsspn strspn
#define _tcsstr strstr
#define _tcsxfrm strxfrm
#define _tcsicmp _stricmp
#define _tcsnicmp _strnicmp
#define _tcscpy_s strcpy_s
#define _tcsncpy_s strncpy_s
#define _tcslwr _strlwr
#define _tcsupr _strupr
#define _tcsupr_s _strupr_s
#define _tcstok strtok
#define _tcstok_s strtok_s
#define _tcsclen strlen
#define _tcsnccpy strncpy
#define _tcsnccmp strncmp
#define _tcsncicmp _strnicmp

/* Numbers */
#define _tstoi atoi
#define _tstol atol
#define _tstoi64 atoll
#define _tstof atof
#define _ttoi atoi
#define _ttol atol
#define _ttoi64 atoll
#define _tcstod strtod
#define _tcstol strtol
#define _tcstoul strtoul
#define _tcstoi64 strtoll
#define _tcstoui64 strtoull
#define _itot _itoa
#define _itot_s _itoa_s
#define _ltot _ltoa
#define _ltot_s _ltoa_s
#define _i64tot _i64toa
#define _ui64tot _ui64toa

/* Formatted output: wide formats as Windows reads them */
#define _stprintf_s sprintf_s
#define _tprintf printf
#define _ftprintf fprintf
#define _sntprintf snprintf
#define _vtprintf vprintf
#define _vftprintf vfprintf
#define _vsntprintf vsnprintf
#define _vstprintf_s vsprintf_s
#define _vsctprintf _vscprintf
#define _stprintf sprintf

/* Input and output */
#define _fgettc fgetc
#define _fgetts fgets
#define _fputtc fputc
#define _fputts fputs
#define _gettc getc
#define _gettchar getchar
#define _puttc putc
#define _puttchar putchar
#define _ungettc ungetc
#define _stscanf sscanf
#define _ftscanf fscanf
#define _tscanf scanf

/* Files, paths, the environment */
#define _tchdir _chdir
#define _tmkdir _mkdir
#define _trmdir _rmdir
#define _tunlink _unlink
#define _tdupenv_s _dupenv_s
#define _tfopen fopen
#define _tfopen_s fopen_s
#define _tremove remove
#define _trename rename
#define _taccess access
#define _tstat stat
#define _tgetcwd getcwd
#define _tgetenv getenv
#define _tsplitpath _splitpath
#define _tsplitpath_s _splitpath_s
#define _tsetlocale setlocale
#define _tmain main
#define _tWinMain WinMain

#endif

#endif
