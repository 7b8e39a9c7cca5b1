// The values of the constants, as Windows has them.
#include "kest/shell_paths.h"

// ---- Folders -----------------------------------------------------------------------------------------------------

static_assert(CSIDL_DESKTOP == 0x00);
static_assert(CSIDL_INTERNET == 0x01);
static_assert(CSIDL_PROGRAMS == 0x02);
static_assert(CSIDL_CONTROLS == 0x03);
static_assert(CSIDL_PRINTERS == 0x04);
static_assert(CSIDL_PERSONAL == 0x05);
static_assert(CSIDL_MYDOCUMENTS == 0x05);
static_assert(CSIDL_FAVORITES == 0x06);
static_assert(CSIDL_STARTUP == 0x07);
static_assert(CSIDL_RECENT == 0x08);
static_assert(CSIDL_SENDTO == 0x09);
static_assert(CSIDL_BITBUCKET == 0x0A);
static_assert(CSIDL_STARTMENU == 0x0B);
static_assert(CSIDL_MYMUSIC == 0x0D);
static_assert(CSIDL_MYVIDEO == 0x0E);
static_assert(CSIDL_DESKTOPDIRECTORY == 0x10);
static_assert(CSIDL_DRIVES == 0x11);
static_assert(CSIDL_NETWORK == 0x12);
static_assert(CSIDL_NETHOOD == 0x13);
static_assert(CSIDL_FONTS == 0x14);
static_assert(CSIDL_TEMPLATES == 0x15);
static_assert(CSIDL_COMMON_STARTMENU == 0x16);
static_assert(CSIDL_COMMON_PROGRAMS == 0x17);
static_assert(CSIDL_COMMON_STARTUP == 0x18);
static_assert(CSIDL_COMMON_DESKTOPDIRECTORY == 0x19);
static_assert(CSIDL_APPDATA == 0x1A);
static_assert(CSIDL_PRINTHOOD == 0x1B);
static_assert(CSIDL_LOCAL_APPDATA == 0x1C);
static_assert(CSIDL_COMMON_FAVORITES == 0x1F);
static_assert(CSIDL_INTERNET_CACHE == 0x20);
static_assert(CSIDL_COOKIES == 0x21);
static_assert(CSIDL_HISTORY == 0x22);
static_assert(CSIDL_COMMON_APPDATA == 0x23);
static_assert(CSIDL_WINDOWS == 0x24);
static_assert(CSIDL_SYSTEM == 0x25);
static_assert(CSIDL_PROGRAM_FILES == 0x26);
static_assert(CSIDL_MYPICTURES == 0x27);
static_assert(CSIDL_PROFILE == 0x28);
static_assert(CSIDL_SYSTEMX86 == 0x29);
static_assert(CSIDL_PROGRAM_FILESX86 == 0x2A);
static_assert(CSIDL_PROGRAM_FILES_COMMON == 0x2B);
static_assert(CSIDL_PROGRAM_FILES_COMMONX86 == 0x2C);
static_assert(CSIDL_COMMON_TEMPLATES == 0x2D);
static_assert(CSIDL_COMMON_DOCUMENTS == 0x2E);
static_assert(CSIDL_COMMON_ADMINTOOLS == 0x2F);
static_assert(CSIDL_ADMINTOOLS == 0x30);
static_assert(CSIDL_COMMON_MUSIC == 0x35);
static_assert(CSIDL_COMMON_PICTURES == 0x36);
static_assert(CSIDL_COMMON_VIDEO == 0x37);
static_assert(CSIDL_FLAG_CREATE == 0x8000);
static_assert(SHGFP_TYPE_CURRENT == 0);
static_assert(SHGFP_TYPE_DEFAULT == 1);
