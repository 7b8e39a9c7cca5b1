#include "kest/kernel/memory.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>
#include <string>
#include <string_view>

// Requests that no system can grant must be answered, also by the sanitizers' allocators.
extern "C" KEST_API const char* __asan_default_options();
extern "C" KEST_API const char* __tsan_default_options();

extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

extern "C" const char* __tsan_default_options()
{
    return "allocator_may_return_null=1";
}

namespace
{

struct Record
{
    void* data;
    std::uint64_t size;
    std::uint32_t locked;
};

// A block that is freed at the end of the test.
class Block
{
public:
    explicit Block(std::size_t bytes, std::string_view contents = "") : handle_(GlobalAlloc(GMEM_FIXED, bytes))
    {
        std::memcpy(handle_, contents.data(), contents.size());
    }
    Block(std::size_t bytes, const Record& record) : Block(bytes) { this->record() = record; }
    ~Block() { GlobalFree(handle_); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    HGLOBAL handle() const { return handle_; }
    Record& record() const { return *static_cast<Record*>(handle_); }
    std::string bytes(std::size_t count) const { return {static_cast<const char*>(handle_), count}; }

    void reallocate(std::size_t bytes, UINT flags)
    {
        void* const result = GlobalReAlloc(handle_, bytes, flags);
        ASSERT_NE(result, nullptr);
        handle_ = result;
    }

private:
    HGLOBAL handle_;
};

// More than any system has. Volatile: compilers warn of such sizes.
const volatile std::size_t tooMuch = SIZE_MAX / 2 - 4096;

// ---- GlobalAlloc, GlobalFree

TEST(GlobalMemory, IsZeroFilledWhateverTheFlags)
{
    for (const UINT flags : {0U, 2U, 0x40U, 0x42U, 0xFFFFFFFFU})
    {
        char* const block = static_cast<char*>(GlobalAlloc(flags, 1000));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(std::string(block, 1000), std::string(1000, '\0'));
        std::memset(block, 0x5A, 1000);
        EXPECT_EQ(GlobalFree(block), nullptr);
    }
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
}

TEST(GlobalMemory, HasRoomForTheRecordInEveryBlock)
{
    for (const std::size_t bytes : {0U, 1U, 8U, 19U})
    {
        const Block block(bytes);
        ASSERT_NE(block.handle(), nullptr);
        EXPECT_GE(malloc_usable_size(block.handle()), 20U);
        EXPECT_EQ(GlobalSize(block.handle()), 0U);
        EXPECT_EQ(GlobalLock(block.handle()), block.handle());
        EXPECT_EQ(GlobalUnlock(block.handle()), 1);
        EXPECT_EQ(block.bytes(20), std::string(20, '\0'));
    }
}

TEST(GlobalMemory, AnswersNullWhenThereIsNone)
{
    errno = 0;
    EXPECT_EQ(GlobalAlloc(0, tooMuch), nullptr);
    EXPECT_EQ(errno, ENOMEM);
    EXPECT_EQ(GlobalAlloc(0, SIZE_MAX), nullptr);
    EXPECT_EQ(HeapAlloc(nullptr, 0, tooMuch), nullptr);
}

// ---- GlobalSize

TEST(GlobalSize, ReadsTheRecordNotTheAllocation)
{
    const Block block(100);
    EXPECT_EQ(GlobalSize(block.handle()), 0U);
    block.record().size = 12;
    EXPECT_EQ(GlobalSize(block.handle()), 12U);
    block.record().size = 0x123456789ABCDEF0;
    EXPECT_EQ(GlobalSize(block.handle()), 0x123456789ABCDEF0U);
}

TEST(GlobalMemory, HasNoSizeWithoutAHandle)
{
    EXPECT_EQ(GlobalSize(nullptr), 0U);
}

// ---- GlobalLock, GlobalUnlock

TEST(GlobalLock, AnswersTheHandleOnTheSecondLock)
{
    int data = 0;
    const Block block(100, Record{&data, 4, 0});
    EXPECT_EQ(GlobalLock(block.handle()), &data);
    EXPECT_EQ(GlobalLock(block.handle()), block.handle());
    EXPECT_EQ(GlobalUnlock(block.handle()), 1);
    EXPECT_EQ(GlobalLock(block.handle()), &data);
}

TEST(GlobalLock, TakesTheFirstBytesForTheRecord)
{
    const Block block(24, std::string("ABCDEFGHabcdefgh\0\0\0\0wxyz", 24));
    std::uintptr_t text = 0;
    std::memcpy(&text, "ABCDEFGH", sizeof text);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(GlobalLock(block.handle())), text);
    const std::uint32_t locked = 1;
    EXPECT_EQ(block.bytes(24), "ABCDEFGHabcdefgh" + std::string(reinterpret_cast<const char*>(&locked), 4) + "wxyz");
}

TEST(GlobalUnlock, AnswersOneForUnlockedBlocks)
{
    const Block block(100);
    EXPECT_EQ(GlobalLock(block.handle()), block.handle());
    EXPECT_EQ(GlobalUnlock(block.handle()), 1);
    EXPECT_EQ(GlobalUnlock(block.handle()), 1);
}

TEST(GlobalUnlock, ZeroesFourBytesOfABlockInUse)
{
    const Block block(24, "ABCDEFGHabcdefghijklwxyz");
    EXPECT_EQ(GlobalUnlock(block.handle()), 1);
    EXPECT_EQ(block.bytes(24), std::string("ABCDEFGHabcdefgh\0\0\0\0wxyz", 24));
}

TEST(GlobalMemory, LocksAFreshBlockToItself)
{
    const Block block(100);
    EXPECT_EQ(GlobalLock(block.handle()), block.handle());
    EXPECT_EQ(GlobalLock(block.handle()), block.handle());
    EXPECT_EQ(block.bytes(100), std::string(100, '\0'));
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
}

TEST(GlobalMemory, MarksARecordWithDataOnly)
{
    int data = 0;
    struct Row
    {
        Record before;
        bool answersData;
        std::uint32_t afterLock;
        std::uint32_t afterUnlock;
    };
    const Row rows[] = {
        {{nullptr, 7, 0}, false, 0, 0}, {{nullptr, 7, 1}, false, 1, 1}, {{&data, 7, 0}, true, 1, 0},
        {{&data, 7, 1}, false, 1, 0},   {{&data, 7, 5}, false, 5, 0},
    };
    for (const Row& row : rows)
    {
        const Block block(100, row.before);
        EXPECT_EQ(GlobalLock(block.handle()), row.answersData ? &data : block.handle());
        EXPECT_EQ(block.record().locked, row.afterLock);
        EXPECT_EQ(GlobalUnlock(block.handle()), 1);
        EXPECT_EQ(block.record().locked, row.afterUnlock);
        EXPECT_EQ(block.record().data, row.before.data);
        EXPECT_EQ(block.record().size, 7U);
    }
}

TEST(GlobalMemory, UnlocksNothingWithoutAHandle)
{
    EXPECT_EQ(GlobalUnlock(nullptr), 0);
}

// ---- GlobalReAlloc

TEST(GlobalReAlloc, LosesWhatTheRecordDoesNotCount)
{
    Block block(100);
    std::memcpy(static_cast<char*>(block.handle()) + 24, "text", 4);
    block.reallocate(200, GMEM_MOVEABLE);
    EXPECT_EQ(block.bytes(200), std::string(200, '\0'));
}

TEST(GlobalReAlloc, CopiesForOneFlagOnly)
{
    for (const UINT flags : {0U, 2U, 0x40U, 0x42U, 0x80U, 3U})
    {
        Block block(100, Record{nullptr, 50, 0});
        std::memset(static_cast<char*>(block.handle()) + 24, 0x5A, 76);
        std::string expected(200, '\0');
        if (flags == 2)
        {
            expected.replace(0, 50, block.bytes(50));
        }
        block.reallocate(200, flags);
        EXPECT_EQ(block.bytes(200), expected) << flags;
    }
}

TEST(GlobalReAlloc, NeverShrinks)
{
    const Block block(100, Record{nullptr, 80, 0});
    const std::string before = block.bytes(100);
    for (const std::size_t bytes : {0U, 1U, 79U, 80U})
    {
        EXPECT_EQ(GlobalReAlloc(block.handle(), bytes, GMEM_MOVEABLE), block.handle());
        EXPECT_EQ(GlobalReAlloc(block.handle(), bytes, 0), block.handle());
    }
    EXPECT_EQ(block.bytes(100), before);
}

TEST(GlobalMemory, ReadsTheSizeAsASigned32BitNumber)
{
    // Negative: enough for every size.
    const Block negative(100, Record{nullptr, 0x80000000, 0});
    EXPECT_EQ(GlobalReAlloc(negative.handle(), 0x7FFFFFFFFFFF, 0), negative.handle());
    EXPECT_EQ(GlobalReAlloc(negative.handle(), 0xFFFFFFFF80000000, 0), negative.handle());
    // Only the low 32 bits count.
    const Block low(100, Record{nullptr, 0x500000064, 0});
    EXPECT_EQ(GlobalReAlloc(low.handle(), 100, 0), low.handle());
}

TEST(GlobalMemory, CopiesNoMoreThanEitherBlockHolds)
{
    // The record counts more than the new block holds ...
    Block large(300, Record{nullptr, 0x100000001, 0});
    std::memset(static_cast<char*>(large.handle()) + 24, 0x5A, 276);
    const std::string begin = large.bytes(250);
    large.reallocate(250, GMEM_MOVEABLE);
    EXPECT_EQ(large.bytes(250), begin);
    // ... or than the old one holds.
    Block small(24, Record{nullptr, 5000, 0});
    const std::string old = small.bytes(24);
    small.reallocate(6000, GMEM_MOVEABLE);
    EXPECT_EQ(small.bytes(24), old);
}

TEST(GlobalMemory, GrowsWithoutABlockToStartFrom)
{
    EXPECT_EQ(GlobalReAlloc(nullptr, 0, GMEM_MOVEABLE), nullptr);
    char* const block = static_cast<char*>(GlobalReAlloc(nullptr, 100, GMEM_MOVEABLE));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::string(block, 100), std::string(100, '\0'));
    GlobalFree(block);
}

TEST(GlobalMemory, MakesRoomForTheRecordInANewBlock)
{
    Block block(100);
    block.reallocate(1, 0);
    EXPECT_GE(malloc_usable_size(block.handle()), 20U);
}

TEST(GlobalMemory, KeepsTheBlockWhenThereIsNoMemory)
{
    const Block block(100, Record{nullptr, 50, 0});
    const std::string before = block.bytes(100);
    errno = 0;
    EXPECT_EQ(GlobalReAlloc(block.handle(), tooMuch, GMEM_MOVEABLE), nullptr);
    EXPECT_EQ(errno, ENOMEM);
    EXPECT_EQ(block.bytes(100), before);
}

// ---- Heaps, local memory

TEST(HeapMemory, IsZeroFilledWhateverHeapAndFlags)
{
    int heap = 0;
    for (const DWORD flags : {0U, 8U, 0xFFFFFFFFU})
    {
        char* const block = static_cast<char*>(HeapAlloc(flags == 0 ? nullptr : &heap, flags, 500));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(std::string(block, 500), std::string(500, '\0'));
        std::memset(block, 0x5A, 500);
        EXPECT_EQ(HeapFree(&heap, flags, block), 1);
    }
    EXPECT_EQ(HeapFree(nullptr, 0, nullptr), 1);
    EXPECT_EQ(GetProcessHeap(), nullptr);
}

TEST(HeapMemory, IsNeverReallocated)
{
    const Block block(24, "ABCDEFGHabcdefghijklwxyz");
    EXPECT_EQ(HeapReAlloc(nullptr, 0, block.handle(), 10), nullptr);
    EXPECT_EQ(HeapReAlloc(nullptr, 0, block.handle(), 1000), nullptr);
    EXPECT_EQ(HeapReAlloc(nullptr, 0, nullptr, 10), nullptr);
    EXPECT_EQ(block.bytes(24), "ABCDEFGHabcdefghijklwxyz");
}

TEST(LocalMemory, IsNotFreed)
{
    const Block block(24, "ABCDEFGHabcdefghijklwxyz");
    EXPECT_EQ(LocalFree(block.handle()), nullptr);
    EXPECT_EQ(LocalFree(nullptr), nullptr);
    EXPECT_EQ(block.bytes(24), "ABCDEFGHabcdefghijklwxyz");
}

} // namespace
