// The values of the constants, as Windows has them.
#include "kest/base_types.h"

// ---- Truth, lengths ----------------------------------------------------------------------------------------------

static_assert(TRUE == 1);
static_assert(FALSE == 0);
static_assert(MAX_PATH == 260);
static_assert(LF_FACESIZE == 32);

// ---- Results -----------------------------------------------------------------------------------------------------

static_assert(S_OK == 0);
static_assert(S_FALSE == 1);
static_assert(static_cast<unsigned int>(E_NOTIMPL) == 0x80004001);
static_assert(static_cast<unsigned int>(E_NOINTERFACE) == 0x80004002);
static_assert(static_cast<unsigned int>(E_POINTER) == 0x80004003);
static_assert(static_cast<unsigned int>(E_ABORT) == 0x80004004);
static_assert(static_cast<unsigned int>(E_FAIL) == 0x80004005);
static_assert(static_cast<unsigned int>(E_UNEXPECTED) == 0x8000FFFF);
static_assert(static_cast<unsigned int>(E_ACCESSDENIED) == 0x80070005);
static_assert(static_cast<unsigned int>(E_HANDLE) == 0x80070006);
static_assert(static_cast<unsigned int>(E_OUTOFMEMORY) == 0x8007000E);
static_assert(static_cast<unsigned int>(E_INVALIDARG) == 0x80070057);

// ---- File attributes ---------------------------------------------------------------------------------------------

static_assert(FILE_ATTRIBUTE_READONLY == 0x1);
static_assert(FILE_ATTRIBUTE_HIDDEN == 0x2);
static_assert(FILE_ATTRIBUTE_SYSTEM == 0x4);
static_assert(FILE_ATTRIBUTE_DIRECTORY == 0x10);
static_assert(FILE_ATTRIBUTE_ARCHIVE == 0x20);
static_assert(FILE_ATTRIBUTE_DEVICE == 0x40);
static_assert(FILE_ATTRIBUTE_NORMAL == 0x80);
static_assert(FILE_ATTRIBUTE_TEMPORARY == 0x100);
static_assert(FILE_ATTRIBUTE_SPARSE_FILE == 0x200);
static_assert(FILE_ATTRIBUTE_REPARSE_POINT == 0x400);
static_assert(FILE_ATTRIBUTE_COMPRESSED == 0x800);
static_assert(FILE_ATTRIBUTE_OFFLINE == 0x1000);
static_assert(FILE_ATTRIBUTE_NOT_CONTENT_INDEXED == 0x2000);
static_assert(FILE_ATTRIBUTE_ENCRYPTED == 0x4000);
static_assert(INVALID_FILE_ATTRIBUTES == 0xFFFFFFFF);

// ---- Kinds of information about a file ---------------------------------------------------------------------------

static_assert(FileBasicInfo == 0);
static_assert(FileStandardInfo == 1);
static_assert(FileNameInfo == 2);
static_assert(FileRenameInfo == 3);
static_assert(FileDispositionInfo == 4);
static_assert(FileAllocationInfo == 5);
static_assert(FileEndOfFileInfo == 6);
static_assert(FileStreamInfo == 7);
static_assert(FileCompressionInfo == 8);
static_assert(FileAttributeTagInfo == 9);
static_assert(FileIdBothDirectoryInfo == 10);
static_assert(FileIdBothDirectoryRestartInfo == 11);
static_assert(FileIoPriorityHintInfo == 12);
static_assert(FileRemoteProtocolInfo == 13);
static_assert(FileFullDirectoryInfo == 14);
static_assert(FileFullDirectoryRestartInfo == 15);
static_assert(FileStorageInfo == 16);
static_assert(FileAlignmentInfo == 17);
static_assert(FileIdInfo == 18);
static_assert(FileIdExtdDirectoryInfo == 19);
static_assert(FileIdExtdDirectoryRestartInfo == 20);

// ---- Character sets ----------------------------------------------------------------------------------------------

static_assert(ANSI_CHARSET == 0);
static_assert(DEFAULT_CHARSET == 1);
static_assert(SYMBOL_CHARSET == 2);
static_assert(MAC_CHARSET == 77);
static_assert(SHIFTJIS_CHARSET == 128);
static_assert(HANGUL_CHARSET == 129);
static_assert(HANGEUL_CHARSET == 129);
static_assert(JOHAB_CHARSET == 130);
static_assert(GB2312_CHARSET == 134);
static_assert(CHINESEBIG5_CHARSET == 136);
static_assert(GREEK_CHARSET == 161);
static_assert(TURKISH_CHARSET == 162);
static_assert(VIETNAMESE_CHARSET == 163);
static_assert(HEBREW_CHARSET == 177);
static_assert(ARABIC_CHARSET == 178);
static_assert(BALTIC_CHARSET == 186);
static_assert(RUSSIAN_CHARSET == 204);
static_assert(THAI_CHARSET == 222);
static_assert(EASTEUROPE_CHARSET == 238);
static_assert(OEM_CHARSET == 255);

// ---- Weights -----------------------------------------------------------------------------------------------------

static_assert(FW_DONTCARE == 0);
static_assert(FW_THIN == 100);
static_assert(FW_EXTRALIGHT == 200);
static_assert(FW_LIGHT == 300);
static_assert(FW_NORMAL == 400);
static_assert(FW_REGULAR == 400);
static_assert(FW_MEDIUM == 500);
static_assert(FW_SEMIBOLD == 600);
static_assert(FW_BOLD == 700);
static_assert(FW_EXTRABOLD == 800);
static_assert(FW_HEAVY == 900);
static_assert(FW_BLACK == 900);

// ---- Pitch and family --------------------------------------------------------------------------------------------

static_assert(DEFAULT_PITCH == 0);
static_assert(FIXED_PITCH == 1);
static_assert(VARIABLE_PITCH == 2);
static_assert(FF_DONTCARE == 0x00);
static_assert(FF_ROMAN == 0x10);
static_assert(FF_SWISS == 0x20);
static_assert(FF_MODERN == 0x30);
static_assert(FF_SCRIPT == 0x40);
static_assert(FF_DECORATIVE == 0x50);
static_assert(RASTER_FONTTYPE == 1);
static_assert(DEVICE_FONTTYPE == 2);
static_assert(TRUETYPE_FONTTYPE == 4);

// ---- Monitors ----------------------------------------------------------------------------------------------------

static_assert(MONITOR_DEFAULTTONULL == 0);
static_assert(MONITOR_DEFAULTTOPRIMARY == 1);
static_assert(MONITOR_DEFAULTTONEAREST == 2);
static_assert(MONITORINFOF_PRIMARY == 1);

// ---- Reasons of DllMain ------------------------------------------------------------------------------------------

static_assert(DLL_PROCESS_DETACH == 0);
static_assert(DLL_PROCESS_ATTACH == 1);
static_assert(DLL_THREAD_ATTACH == 2);
static_assert(DLL_THREAD_DETACH == 3);
