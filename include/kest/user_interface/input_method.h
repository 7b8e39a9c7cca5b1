/*
 * Kest Platform Base: input methods. The host's toolkit serves them; no window has an input context
 * here.
 */
#ifndef KEST_USER_INTERFACE_INPUT_METHOD_H
#define KEST_USER_INTERFACE_INPUT_METHOD_H

#include "kest/base_types.h"
#include "kest/export.h"

typedef struct tagCOMPOSITIONFORM
{
    DWORD dwStyle;
    POINT ptCurrentPos;
    RECT rcArea;
} COMPOSITIONFORM, *PCOMPOSITIONFORM, *LPCOMPOSITIONFORM;

typedef struct tagCANDIDATEFORM
{
    DWORD dwIndex;
    DWORD dwStyle;
    POINT ptCurrentPos;
    RECT rcArea;
} CANDIDATEFORM, *PCANDIDATEFORM, *LPCANDIDATEFORM;

/* dwStyle of both */
#define CFS_DEFAULT 0x0000
#define CFS_RECT 0x0001
#define CFS_POINT 0x0002
#define CFS_FORCE_POSITION 0x0020
#define CFS_CANDIDATEPOS 0x0040
#define CFS_EXCLUDE 0x0080

/* What ImmGetCompositionStringW is asked for */
#define GCS_COMPREADSTR 0x0001
#define GCS_COMPREADATTR 0x0002
#define GCS_COMPREADCLAUSE 0x0004
#define GCS_COMPSTR 0x0008
#define GCS_COMPATTR 0x0010
#define GCS_COMPCLAUSE 0x0020
#define GCS_CURSORPOS 0x0080
#define GCS_DELTASTART 0x0100
#define GCS_RESULTREADSTR 0x0200
#define GCS_RESULTREADCLAUSE 0x0400
#define GCS_RESULTSTR 0x0800
#define GCS_RESULTCLAUSE 0x1000

KEST_C_BEGIN

/** Always null: no window has an input context. @kind fixed result */
KEST_API HIMC ImmGetContext(HWND hWnd);
KEST_API HIMC ImmAssociateContext(HWND hWnd, HIMC hIMC);

/** Always 0: nothing is released, no window moves. @kind fixed result */
KEST_API BOOL ImmReleaseContext(HWND hWnd, HIMC hIMC);
KEST_API BOOL ImmSetCompositionWindow(HIMC hIMC, LPCOMPOSITIONFORM lpCompForm);
KEST_API BOOL ImmSetCandidateWindow(HIMC hIMC, LPCANDIDATEFORM lpCandidate);

/** Always 0, the length of a text that is not there: lpBuf stays as it was. @kind fixed result */
KEST_API LONG ImmGetCompositionStringW(HIMC hIMC, DWORD dwIndex, LPVOID lpBuf, DWORD dwBufLen);

KEST_C_END

#endif
