#include "kest/kernel/memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <malloc.h>

namespace
{

// What the handle functions read at the beginning of every block.
struct HandleRecord
{
    void* data;
    std::uint64_t size;
    std::uint32_t locked;
};

constexpr UINT copyContents = GMEM_MOVEABLE;

HandleRecord& recordOf(HGLOBAL h)
{
    return *static_cast<HandleRecord*>(h);
}

// Every block has room for the record, or reading it would read past the block.
void* newBlock(std::size_t bytes)
{
    return std::calloc(std::max(bytes, sizeof(HandleRecord)), 1);
}

// Whatever stands in the record, copying stays inside both blocks.
void copyBlock(void* destination, std::size_t destinationSize, HGLOBAL source)
{
    if (source != nullptr)
    {
        std::memcpy(destination, source,
                    std::min<std::size_t>({GlobalSize(source), destinationSize, malloc_usable_size(source)}));
    }
}

} // namespace

HGLOBAL GlobalAlloc(UINT, SIZE_T bytes)
{
    return newBlock(bytes);
}

HGLOBAL GlobalFree(HGLOBAL h)
{
    std::free(h);
    return nullptr;
}

SIZE_T GlobalSize(HGLOBAL h)
{
    return h == nullptr ? 0 : recordOf(h).size;
}

void* GlobalLock(HGLOBAL h)
{
    if (h == nullptr)
    {
        return nullptr;
    }
    HandleRecord& record = recordOf(h);
    if (record.data == nullptr || record.locked != 0)
    {
        return h;
    }
    record.locked = 1;
    return record.data;
}

BOOL GlobalUnlock(HGLOBAL h)
{
    if (h == nullptr)
    {
        return 0;
    }
    HandleRecord& record = recordOf(h);
    if (record.data != nullptr)
    {
        record.locked = 0;
    }
    return 1;
}

HGLOBAL GlobalReAlloc(HGLOBAL h, SIZE_T bytes, UINT flags)
{
    // The size counts as a signed 32-bit number: one beyond 2 GiB is enough for everything.
    const auto size = static_cast<std::size_t>(static_cast<std::int32_t>(GlobalSize(h)));
    if (bytes <= size)
    {
        return h;
    }
    void* const block = newBlock(bytes);
    if (block == nullptr)
    {
        return nullptr;
    }
    if (flags == copyContents)
    {
        copyBlock(block, bytes, h);
    }
    std::free(h);
    return block;
}

HANDLE GetProcessHeap()
{
    return nullptr;
}

void* HeapAlloc(HANDLE, DWORD, SIZE_T bytes)
{
    return std::calloc(bytes, 1);
}

BOOL HeapFree(HANDLE, DWORD, void* p)
{
    std::free(p);
    return 1;
}

void* HeapReAlloc(HANDLE, DWORD, void*, SIZE_T)
{
    return nullptr;
}

HLOCAL LocalFree(HLOCAL)
{
    return nullptr;
}
