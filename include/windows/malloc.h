/*
 * Kest Platform Base, porting kit: the system's <malloc.h>, and _alloca, _msize, _aligned_malloc and _aligned_free.
 */
#ifndef KEST_WINDOWS_MALLOC_H
#define KEST_WINDOWS_MALLOC_H

#pragma GCC system_header
#include_next <malloc.h>

#include <stdlib.h>

#define _alloca(size) __builtin_alloca(size)
#define _msize(block) malloc_usable_size(block)

/** A block at a multiple of alignment, a power of two; null when there is none. For _aligned_free. */
static __inline__ __attribute__((unused)) void* _aligned_malloc(size_t size, size_t alignment)
{
    void* block = 0;
    if (alignment == 0 || (alignment & (alignment - 1)) != 0)
    {
        return 0;
    }
    return posix_memalign(&block, alignment < sizeof(void*) ? sizeof(void*) : alignment, size) == 0 ? block : 0;
}

static __inline__ __attribute__((unused)) void _aligned_free(void* block)
{
    free(block);
}

#endif
