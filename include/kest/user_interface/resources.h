/*
 * Kest Platform Base: resources. Strings and images are the host's to supply: the forwards hand their arguments to its
 * IGraphicsService as they are, null included, and its result back unchanged. They need an installed hub with that
 * service and leave the last-error value to the host.
 */
#ifndef KEST_USER_INTERFACE_RESOURCES_H
#define KEST_USER_INTERFACE_RESOURCES_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Types of LoadImageW */
#define IMAGE_BITMAP 0
#define IMAGE_ICON 1
#define IMAGE_CURSOR 2
#define IMAGE_ENHMETAFILE 3

/* Flags of LoadImageW */
#define LR_DEFAULTCOLOR 0x00000000
#define LR_MONOCHROME 0x00000001
#define LR_COLOR 0x00000002
#define LR_COPYRETURNORG 0x00000004
#define LR_COPYDELETEORG 0x00000008
#define LR_LOADFROMFILE 0x00000010
#define LR_LOADTRANSPARENT 0x00000020
#define LR_DEFAULTSIZE 0x00000040
#define LR_VGACOLOR 0x00000080
#define LR_LOADMAP3DCOLORS 0x00001000
#define LR_CREATEDIBSECTION 0x00002000
#define LR_COPYFROMRESOURCE 0x00004000
#define LR_SHARED 0x00008000

/** A resource named by a number, where a name is asked for. */
#define MAKEINTRESOURCEW(number) ((LPWSTR)(ULONG_PTR)(WORD)(number))
#define IS_INTRESOURCE(name) (((ULONG_PTR)(name) >> 16) == 0)

/* Types of FindResourceW */
#define RT_CURSOR MAKEINTRESOURCEW(1)
#define RT_BITMAP MAKEINTRESOURCEW(2)
#define RT_ICON MAKEINTRESOURCEW(3)
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_FONTDIR MAKEINTRESOURCEW(7)
#define RT_FONT MAKEINTRESOURCEW(8)
#define RT_ACCELERATOR MAKEINTRESOURCEW(9)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_MESSAGETABLE MAKEINTRESOURCEW(11)
#define RT_GROUP_CURSOR MAKEINTRESOURCEW(12)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define RT_VERSION MAKEINTRESOURCEW(16)
#define RT_HTML MAKEINTRESOURCEW(23)
#define RT_MANIFEST MAKEINTRESOURCEW(24)

/* Icons of LoadIconW */
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDI_HAND MAKEINTRESOURCEW(32513)
#define IDI_ERROR IDI_HAND
#define IDI_QUESTION MAKEINTRESOURCEW(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCEW(32515)
#define IDI_WARNING IDI_EXCLAMATION
#define IDI_ASTERISK MAKEINTRESOURCEW(32516)
#define IDI_INFORMATION IDI_ASTERISK

KEST_C_BEGIN

/* ---- Strings, images and graphic objects ------------------------------------------------------- */

/**
 * Loads a string.
 * @param hInstance  the module whose string it is.
 * @param uID  the string's number.
 * @param lpBuffer  receives the string.
 * @param cchBufferMax  its size in characters.
 * @return characters written, without terminator; 0 for an unknown string.
 * @kind forward: IGraphicsService::LoadStringW
 */
KEST_API int LoadStringW(HINSTANCE hInstance, UINT uID, wchar_t* lpBuffer, int cchBufferMax);

/**
 * Loads an image.
 * @param hInst  the module whose image it is.
 * @param name  the image's name, number or file.
 * @param type  IMAGE_*.
 * @param cx  width asked for in pixels; 0 for the image's own.
 * @param cy  height asked for in pixels; 0 for the image's own.
 * @param fuLoad  LR_*.
 * @return the image's handle, or null; delete bitmaps with DeleteObject, icons with DestroyIcon.
 * @kind forward: IGraphicsService::LoadImageW
 */
KEST_API HANDLE LoadImageW(HINSTANCE hInst, const wchar_t* name, UINT type, int cx, int cy, UINT fuLoad);

/**
 * Loads a bitmap in its own size: LoadImageW with the type IMAGE_BITMAP and nothing else.
 * @return the bitmap, or null; delete it with DeleteObject.
 * @kind forward: IGraphicsService::LoadImageW
 */
KEST_API HBITMAP LoadBitmapW(HINSTANCE hInstance, const wchar_t* lpBitmapName);

/** Always null: icons come from LoadImageW. @kind fixed result */
KEST_API HICON LoadIconW(HINSTANCE hInstance, const wchar_t* lpIconName);

/**
 * Deletes a graphic object.
 * @return 1, whatever the service answers.
 * @kind forward: IGraphicsService::DeleteObject
 * @differs{DeleteObject.AnswersOneWhateverTheServiceAnswers} Failures are not reported.
 */
KEST_API BOOL DeleteObject(HGDIOBJ ho);

/**
 * Destroys an icon, with the operation that deletes graphic objects.
 * @return 1, whatever the service answers; 0 for a null icon.
 * @null hIcon: answers 0, the hub is not asked.
 * @kind forward: IGraphicsService::DeleteObject
 * @differs{DestroyIcon.AnswersOneWhateverTheServiceAnswers} Failures are not reported.
 */
KEST_API BOOL DestroyIcon(HICON hIcon);

/* ---- Resources as data ------------------------------------------------------------------------- */

/** Always null: modules carry no resources here. @kind fixed result */
KEST_API HRSRC FindResourceW(HMODULE hModule, const wchar_t* lpName, const wchar_t* lpType);

/**
 * Reads the size in a resource's information record.
 * @param hModule  not used.
 * @param hResInfo  the record: two words of 32 bits, the second of which is the size in bytes.
 * @return the size in bytes.
 * @lasterror left as it is.
 * @null hResInfo: answers 0.
 * @kind local
 */
KEST_API DWORD SizeofResource(HMODULE hModule, HRSRC hResInfo);

/** Always the handle that it is given. @kind fixed result */
KEST_API LPVOID LockResource(HGLOBAL hResData);

/* ---- The current resource handle --------------------------------------------------------------- */

/** The module whose resources are used by default; null until AfxSetResourceHandle sets it. */
extern KEST_API HINSTANCE m_hCurrentResourceHandle;

KEST_C_END

#ifdef __cplusplus

/**
 * Asks for the module whose resources are used by default.
 * @return the handle that AfxSetResourceHandle set last; null before.
 * @lasterror left as it is.
 * @kind local
 * @differs{AfxGetResourceHandle.IsNullUntilSet} There is no handle of the application's own to begin with.
 */
KEST_API HINSTANCE AfxGetResourceHandle();

/**
 * Sets the module whose resources are used by default. A plain store: set it before other threads use resources.
 * @param hInstResource  the module; null for none.
 * @lasterror left as it is.
 * @kind local
 */
KEST_API void AfxSetResourceHandle(HINSTANCE hInstResource);

#endif

#endif
