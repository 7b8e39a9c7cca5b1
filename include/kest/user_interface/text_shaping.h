/*
 * Kest Platform Base: the shaping of complex scripts.
 *
 * A text is one item and runs keep their order; shaping proper is the host's. Nothing here sets the last
 * error.
 */
#ifndef KEST_USER_INTERFACE_TEXT_SHAPING_H
#define KEST_USER_INTERFACE_TEXT_SHAPING_H

#include "kest/base_types.h"
#include "kest/export.h"

#define SCRIPT_UNDEFINED 0

typedef void* SCRIPT_CACHE;
typedef void* SCRIPT_STRING_ANALYSIS;

typedef struct tag_SCRIPT_CONTROL
{
    DWORD uDefaultLanguage : 16;
    DWORD fContextDigits : 1;
    DWORD fInvertPreBoundDir : 1;
    DWORD fInvertPostBoundDir : 1;
    DWORD fLinkStringBefore : 1;
    DWORD fLinkStringAfter : 1;
    DWORD fNeutralOverride : 1;
    DWORD fNumericOverride : 1;
    DWORD fLegacyBidiClass : 1;
    DWORD fMergeNeutralItems : 1;
    DWORD fUseStandardBidi : 1;
    DWORD fReserved : 6;
} SCRIPT_CONTROL;

__extension__ typedef struct tag_SCRIPT_STATE
{
    WORD uBidiLevel : 5;
    WORD fOverrideDirection : 1;
    WORD fInhibitSymSwap : 1;
    WORD fCharShape : 1;
    WORD fDigitSubstitute : 1;
    WORD fInhibitLigate : 1;
    WORD fDisplayZWG : 1;
    WORD fArabicNumContext : 1;
    WORD fGcpClusters : 1;
    WORD fReserved : 1;
    WORD fEngineReserved : 2;
} SCRIPT_STATE;

__extension__ typedef struct tag_SCRIPT_ANALYSIS
{
    WORD eScript : 10;
    WORD fRTL : 1;
    WORD fLayoutRTL : 1;
    WORD fLinkBefore : 1;
    WORD fLinkAfter : 1;
    WORD fLogicalOrder : 1;
    WORD fNoGlyphIndex : 1;
    SCRIPT_STATE s;
} SCRIPT_ANALYSIS;

typedef struct tag_SCRIPT_ITEM
{
    int iCharPos;
    SCRIPT_ANALYSIS a;
} SCRIPT_ITEM;

__extension__ typedef struct tag_SCRIPT_LOGATTR
{
    BYTE fSoftBreak : 1;
    BYTE fWhiteSpace : 1;
    BYTE fCharStop : 1;
    BYTE fWordStop : 1;
    BYTE fInvalid : 1;
    BYTE fReserved : 3;
} SCRIPT_LOGATTR;

typedef struct SCRIPT_PROPERTIES
{
    DWORD langid : 16;
    DWORD fNumeric : 1;
    DWORD fComplex : 1;
    DWORD fNeedsWordBreaking : 1;
    DWORD fNeedsCaretInfo : 1;
    DWORD bCharSet : 8;
    DWORD fControl : 1;
    DWORD fPrivateUseArea : 1;
    DWORD fNeedsCharacterJustify : 1;
    DWORD fInvalidGlyph : 1;
    DWORD fInvalidLogAttr : 1;
    DWORD fCDM : 1;
    DWORD fAmbiguousCharSet : 1;
    DWORD fClusterSizeVaries : 1;
    DWORD fRejectInvalid : 1;
} SCRIPT_PROPERTIES;

typedef struct tag_SCRIPT_TABDEF
{
    int cTabStops;
    int iScale;
    int* pTabStops;
    int iTabOrigin;
} SCRIPT_TABDEF;

/* Flags of ScriptStringAnalyse */
#define SSA_PASSWORD 0x00000001
#define SSA_TAB 0x00000002
#define SSA_CLIP 0x00000004
#define SSA_FIT 0x00000008
#define SSA_DZWG 0x00000010
#define SSA_FALLBACK 0x00000020
#define SSA_BREAK 0x00000040
#define SSA_GLYPHS 0x00000080
#define SSA_RTL 0x00000100
#define SSA_GCP 0x00000200
#define SSA_HOTKEY 0x00000400
#define SSA_METAFILE 0x00000800
#define SSA_LINK 0x00001000
#define SSA_HIDEHOTKEY 0x00002000
#define SSA_HOTKEYONLY 0x00002400
#define SSA_FULLMEASURE 0x04000000
#define SSA_LPKANSIFALLBACK 0x08000000
#define SSA_PIDX 0x10000000
#define SSA_LAYOUTRTL 0x20000000
#define SSA_DONTGLYPH 0x40000000
#define SSA_NOKASHIDA 0x80000000

KEST_C_BEGIN

/* ---- Items and runs --------------------------------------------------------------------------- */

/**
 * Splits a text into items: the whole text is one. items[0] starts at character 0, and items[1], which closes the
 * list, at cChars; their analysis fields stay as they were.
 * @param chars     the text; not read.
 * @param cChars    its length in characters.
 * @param cMaxItems the number of items that there is room for.
 * @param control, state  a SCRIPT_CONTROL and a SCRIPT_STATE; not read.
 * @param cItems    receives 1.
 * @return 0, or 0x8007000E (out of memory) when cMaxItems is below 2; then nothing is written.
 * @lasterror left as it is.
 * @null chars: answers 0 with nothing written, as for cChars below 1. items, cItems: not tested.
 * @kind local
 * @differs{ScriptItemize.TakesTheWholeTextForOneItem} Scripts and directions are not told apart.
 * @differs{ScriptItemize.LeavesTheAnalysisUnwritten} The analysis fields of the items stay as they were.
 * @differs{ScriptItemize.AcceptsAnAbsentText} A null or empty text is no error.
 */
KEST_API HRESULT ScriptItemize(const wchar_t* chars, int cChars, int cMaxItems, const void* control, const void* state,
                               SCRIPT_ITEM* items, int* cItems);

/**
 * Orders runs for display: every run keeps its place. Each array receives 0, 1, ..., cRuns - 1.
 * @param levels  the runs' levels; not read.
 * @return 0.
 * @lasterror left as it is.
 * @null either array: is not filled.
 * @kind local
 * @differs{ScriptLayout.KeepsTheOrderOfRuns} Runs from right to left are not reversed.
 * @differs{ScriptLayout.AcceptsAbsentArrays} With both arrays null, or without runs, the answer is 0 as well.
 */
KEST_API HRESULT ScriptLayout(int cRuns, const BYTE* levels, int* visualToLogical, int* logicalToVisual);

/* ---- Shaping ---------------------------------------------------------------------------------- */

/** Always 0, success, with everything that they fill left as it was. @kind fixed result */
KEST_API HRESULT ScriptBreak(const wchar_t* pwcChars, int cChars, const SCRIPT_ANALYSIS* psa, SCRIPT_LOGATTR* psla);
KEST_API HRESULT ScriptFreeCache(SCRIPT_CACHE* psc);
KEST_API HRESULT ScriptGetProperties(const SCRIPT_PROPERTIES*** ppSp, int* piNumScripts);
KEST_API HRESULT ScriptStringAnalyse(HDC hdc, const void* pString, int cString, int cGlyphs, int iCharset,
                                     DWORD dwFlags, int iReqWidth, SCRIPT_CONTROL* psControl, SCRIPT_STATE* psState,
                                     const int* piDx, SCRIPT_TABDEF* pTabdef, const BYTE* pbInClass,
                                     SCRIPT_STRING_ANALYSIS* pssa);
KEST_API HRESULT ScriptStringFree(SCRIPT_STRING_ANALYSIS* pssa);
KEST_API HRESULT ScriptStringOut(SCRIPT_STRING_ANALYSIS ssa, int iX, int iY, UINT uOptions, const RECT* prc,
                                 int iMinSel, int iMaxSel, BOOL fDisabled);

KEST_C_END

#endif
