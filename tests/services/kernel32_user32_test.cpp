#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel.h"
#include "kest/kernel32_user32.h"
#include "kest/user_interface.h"
#include "services/fixed_results.h"

#include <filesystem>
#include <type_traits>

namespace
{

using namespace kest::test;

TEST(Kernel32AndUser32, HaveTheTypesOfTheGlobalFunctions)
{
    static_assert(std::is_same_v<decltype(KestKernel32::LoadLibraryW), decltype(::LoadLibraryW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::LoadLibraryExW), decltype(::LoadLibraryExW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetModuleFileNameW), decltype(::GetModuleFileNameW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetModuleHandleW), decltype(::GetModuleHandleW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetModuleHandleExW), decltype(::GetModuleHandleExW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetProcAddress), decltype(::GetProcAddress)>);
    static_assert(std::is_same_v<decltype(KestKernel32::FreeLibrary), decltype(::FreeLibrary)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetFileSize), decltype(::GetFileSize)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetFileAttributesW), decltype(::GetFileAttributesW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetFileAttributesA), decltype(::GetFileAttributesA)>);
    static_assert(std::is_same_v<decltype(KestKernel32::CloseHandle), decltype(::CloseHandle)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetCurrentDirectoryW), decltype(::GetCurrentDirectoryW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::SetCurrentDirectoryW), decltype(::SetCurrentDirectoryW)>);
    static_assert(std::is_same_v<decltype(KestKernel32::SetLastError), decltype(::SetLastError)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetLastError), decltype(::GetLastError)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetTickCount), decltype(::GetTickCount)>);
    static_assert(std::is_same_v<decltype(KestKernel32::IsDBCSLeadByte), decltype(::IsDBCSLeadByte)>);
    static_assert(std::is_same_v<decltype(KestKernel32::GetProcessHeap), decltype(::GetProcessHeap)>);
    static_assert(std::is_same_v<decltype(KestKernel32::HeapAlloc), decltype(::HeapAlloc)>);
    static_assert(std::is_same_v<decltype(KestKernel32::HeapFree), decltype(::HeapFree)>);
    static_assert(std::is_same_v<decltype(KestKernel32::SelectClipRgn), decltype(::SelectClipRgn)>);
    static_assert(std::is_same_v<decltype(KestKernel32::SelectObject), decltype(::SelectObject)>);
    static_assert(std::is_same_v<decltype(KestKernel32::WaitForSingleObject), decltype(::WaitForSingleObject)>);
    static_assert(std::is_same_v<decltype(KestUser32::GetKeyState), decltype(::GetKeyState)>);
    static_assert(std::is_same_v<decltype(KestUser32::GetCursor), decltype(::GetCursor)>);
    EXPECT_TRUE((std::is_same_v<decltype(KestUser32::SetCursor), decltype(::SetCursor)>));
}

TEST(Kernel32AndUser32, ShareWhatIsFixed)
{
    for (const Arguments kind : {Arguments::plausible, Arguments::null, Arguments::allBitsSet})
    {
        for (const FixedResult& row : {
                 answers("IsDBCSLeadByte", KestKernel32::IsDBCSLeadByte, 0),
                 answers("GetProcessHeap", KestKernel32::GetProcessHeap, nullptr),
                 answers("SelectClipRgn", KestKernel32::SelectClipRgn, 0),
                 answers("SelectObject", KestKernel32::SelectObject, nullptr),
             })
        {
            SCOPED_TRACE(row.name);
            FixedResultCall call(kind);
            row.call(call);
            call.expectNothingChanged();
        }
    }
}

TEST(Kernel32AndUser32, KeepTheCursorToThemselves)
{
    struct : StubCursorService
    {
        HCURSOR GetCursor() override { return reinterpret_cast<HCURSOR>(1L); }
        HCURSOR SetCursor(HCURSOR) override { return reinterpret_cast<HCURSOR>(2L); }
    } service;
    StubHub hub;
    hub.cursor = &service;
    const InstalledHub installed(&hub);

    const auto cursor = reinterpret_cast<HCURSOR>(3L);
    EXPECT_EQ(::GetCursor(), reinterpret_cast<HCURSOR>(1L));
    EXPECT_EQ(::SetCursor(cursor), reinterpret_cast<HCURSOR>(2L));
    EXPECT_EQ(KestUser32::GetCursor(), nullptr);
    EXPECT_EQ(KestUser32::SetCursor(cursor), cursor);
    EXPECT_EQ(KestUser32::SetCursor(nullptr), nullptr);
}

TEST(Kernel32AndUser32, AskTheHostForKeys)
{
    struct : StubWindowService
    {
        SHORT GetKeyState(int key) override { return static_cast<SHORT>(-key); }
    } service;
    StubHub hub;
    hub.window = &service;
    const InstalledHub installed(&hub);
    EXPECT_EQ(KestUser32::GetKeyState(0x41), -0x41);
}

TEST(Kernel32AndUser32, ShareFilesWithTheGlobalFunctions)
{
    const ScratchFolder folder;
    folder.write("file", "seven b");
    const HANDLE file = CreateFileW(L"file", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD high = 4711;
    DWORD globalHigh = 4711;
    EXPECT_EQ(KestKernel32::GetFileSize(file, &high), 7U);
    EXPECT_EQ(::GetFileSize(file, &globalHigh), 7U);
    EXPECT_EQ(high, globalHigh);
    EXPECT_EQ(KestKernel32::CloseHandle(file), 1);
    EXPECT_EQ(KestKernel32::CloseHandle(nullptr), ::CloseHandle(nullptr));

    EXPECT_NE(KestKernel32::GetFileAttributesA("file"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(KestKernel32::GetFileAttributesA("file"), ::GetFileAttributesA("file"));
    EXPECT_EQ(KestKernel32::GetFileAttributesA("nothing"), INVALID_FILE_ATTRIBUTES);

    struct : StubFileSystemService
    {
        BOOL PathFileExistsW(const wchar_t*, std::wstring&) override { return 1; }
        DWORD GetFileAttributesW(const wchar_t*) override { return 0x1234; }
    } service;
    StubHub hub;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    EXPECT_EQ(KestKernel32::GetFileAttributesW(L"file"), 0x1234U);
}

TEST(Kernel32AndUser32, ShareTheCurrentDirectory)
{
    const ScratchFolder folder;
    std::filesystem::create_directory("inner");
    EXPECT_EQ(KestKernel32::SetCurrentDirectoryW(L"inner"), 1);
    EXPECT_EQ(std::filesystem::current_path(), folder.path() / "inner");
    EXPECT_EQ(KestKernel32::SetCurrentDirectoryW(L"nothing"), 0);

    const std::wstring expected = (folder.path() / "inner").wstring();
    constexpr DWORD size = 4096;
    SentinelBuffer<wchar_t, size> buffer;
    SentinelBuffer<wchar_t, size> globalBuffer;
    EXPECT_EQ(KestKernel32::GetCurrentDirectoryW(size, buffer.data()), expected.size());
    EXPECT_EQ(::GetCurrentDirectoryW(size, globalBuffer.data()), expected.size());
    EXPECT_EQ(buffer.contents(), globalBuffer.contents());
    EXPECT_EQ(buffer.data(), expected);
}

TEST(Kernel32AndUser32, ShareTheLastErrorAndTheClock)
{
    KestKernel32::SetLastError(4711);
    EXPECT_EQ(errno, 4711);
    EXPECT_EQ(::GetLastError(), 4711U);
    errno = 42;
    EXPECT_EQ(KestKernel32::GetLastError(), 42U);

    const DWORD before = ::GetTickCount();
    const DWORD between = KestKernel32::GetTickCount();
    const DWORD after = ::GetTickCount();
    EXPECT_LE(between - before, after - before);
}

TEST(Kernel32AndUser32, ShareTheHeap)
{
    auto* const block = static_cast<char*>(KestKernel32::HeapAlloc(KestKernel32::GetProcessHeap(), 0, 16));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::string(block, 16), std::string(16, '\0'));
    EXPECT_EQ(KestKernel32::HeapFree(KestKernel32::GetProcessHeap(), 0, block), 1);
}

} // namespace
