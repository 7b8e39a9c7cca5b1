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

KEST_C_BEGIN

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

KEST_C_END

#endif
