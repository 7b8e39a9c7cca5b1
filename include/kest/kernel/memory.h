/*
 * Kest Platform Base: global, local and heap memory.
 *
 * A memory handle is the address of a zero-filled block of the C library. There are no heaps, no movable blocks and no
 * lock counts. GlobalSize, GlobalLock, GlobalUnlock and GlobalReAlloc all the same read the block as if it began with a
 * record of its own: an 8-byte data address, an 8-byte size, a 4-byte locked flag. A fresh block reads as a record with
 * nothing in it. A program that keeps its own data in the block, as programs do, must not call these four functions on
 * it once the first 20 bytes are in use: they take the data for the record, and GlobalLock and GlobalUnlock write the
 * locked flag into it.
 *
 * Handles of these four functions come from GlobalAlloc or GlobalReAlloc, which make every block large enough for the
 * record, however small it was asked for.
 */
#ifndef KEST_KERNEL_MEMORY_H
#define KEST_KERNEL_MEMORY_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Flags of GlobalAlloc and GlobalReAlloc. */
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)

/* Flag of HeapAlloc. */
#define HEAP_ZERO_MEMORY 0x00000008

KEST_C_BEGIN

/* ---- Global memory ---------------------------------------------------------------------------- */

/**
 * Takes a zero-filled block.
 * @param flags  ignored: every block is zero-filled and stays where it is.
 * @param bytes  its size; 0 gives a block of its own as well.
 * @return the block's address, or null when there is no memory. The caller frees it with GlobalFree.
 * @lasterror 12 without memory, else left as it is.
 * @kind local
 */
KEST_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);

/**
 * Frees a block.
 * @return null always.
 * @lasterror left as it is.
 * @null h: nothing happens.
 * @kind local
 */
KEST_API HGLOBAL GlobalFree(HGLOBAL h);

/**
 * Returns the size that stands in the block's record.
 * @lasterror left as it is.
 * @null h: answers 0.
 * @kind local
 * @differs{GlobalSize.ReadsTheRecordNotTheAllocation} A fresh block answers 0, whatever its size.
 */
KEST_API SIZE_T GlobalSize(HGLOBAL h);

/**
 * Returns the data address that stands in the block's record and marks the record locked; when there is no data
 * address, or the record is marked already, the handle itself.
 * @lasterror left as it is.
 * @null h: answers null.
 * @kind local
 * @differs{GlobalLock.TakesTheFirstBytesForTheRecord} Of a block whose bytes 0 to 7 are in use and whose bytes 16 to 19
 *     are zero, the answer is what bytes 0 to 7 hold, and bytes 16 to 19 become 1.
 * @differs{GlobalLock.AnswersTheHandleOnTheSecondLock} There is no lock count: only the first of two locks of a record
 *     with a data address answers that address.
 */
KEST_API void* GlobalLock(HGLOBAL h);

/**
 * Clears the mark of a record that has a data address.
 * @return 1, or 0 for a null handle.
 * @lasterror left as it is.
 * @null h: answers 0.
 * @kind local
 * @differs{GlobalUnlock.ZeroesFourBytesOfABlockInUse} Of a block whose bytes 0 to 7 are in use, bytes 16 to 19 become
 *     0.
 * @differs{GlobalUnlock.AnswersOneForUnlockedBlocks} The result does not tell whether the block is still locked.
 */
KEST_API BOOL GlobalUnlock(HGLOBAL h);

/**
 * Makes a block larger, unless the size in its record, read as a signed 32-bit number, is enough.
 * @param h      the block; freed when a new one is returned.
 * @param bytes  the size asked for.
 * @param flags  2 (GMEM_MOVEABLE) alone: the old contents are copied, as many bytes as the record gives for the size,
 *               but no more than either block holds. Any other flags: the new block is all zeros.
 * @return h itself, or the new block; null when there is no memory, and h stays valid.
 * @lasterror 12 without memory, else left as it is.
 * @null h: as a block of size 0.
 * @kind local
 * @differs{GlobalReAlloc.LosesWhatTheRecordDoesNotCount} The contents of a block whose record is empty are not copied.
 * @differs{GlobalReAlloc.CopiesForOneFlagOnly} Without GMEM_MOVEABLE, or with another flag beside it, the contents are
 *     lost.
 * @differs{GlobalReAlloc.NeverShrinks} A size that is not larger returns the block as it is.
 */
KEST_API HGLOBAL GlobalReAlloc(HGLOBAL h, SIZE_T bytes, UINT flags);

/* ---- Heaps ------------------------------------------------------------------------------------ */

/** Always null. @kind fixed result */
KEST_API HANDLE GetProcessHeap(void);

/**
 * Takes a zero-filled block.
 * @param heap   ignored.
 * @param flags  ignored: every block is zero-filled.
 * @param bytes  its size.
 * @return the block's address, or null when there is no memory. The caller frees it with HeapFree.
 * @lasterror 12 without memory, else left as it is.
 * @kind local
 */
KEST_API void* HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes);

/**
 * Frees a block.
 * @param heap   ignored.
 * @param flags  ignored.
 * @param p      the block.
 * @return 1 always.
 * @lasterror left as it is.
 * @null p: nothing happens.
 * @kind local
 */
KEST_API BOOL HeapFree(HANDLE heap, DWORD flags, void* p);

/** Always null; the block stays as it is, and the caller's. @kind fixed result */
KEST_API void* HeapReAlloc(HANDLE heap, DWORD flags, void* p, SIZE_T bytes);

/* ---- Local memory ----------------------------------------------------------------------------- */

/** Always null; the block is not freed. @kind fixed result */
KEST_API HLOCAL LocalFree(HLOCAL h);

/* ---- Pointers --------------------------------------------------------------------------------- */

/** Always 0: every pointer counts as readable. @kind fixed result */
KEST_API BOOL IsBadReadPtr(const void* lp, UINT_PTR ucb);

KEST_C_END

#endif
