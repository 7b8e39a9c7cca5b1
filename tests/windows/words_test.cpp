// The words and macros that Windows declarations are written with.
#define INITGUID
#include <algorithm>

#include <windows.h>

#include <atltypes.h>
#include <crtdbg.h>
#include <malloc.h>
#include <shlobj.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <type_traits>

#if defined(min) || defined(max)
#error "min and max are there without being asked for"
#endif

DEFINE_GUID(keptIdentifier, 0x01234567, 0x89AB, 0xCDEF, 1, 2, 3, 4, 5, 6, 7, 8);
STDAPI declaredForCom(_In_reads_bytes_(size) const void* bytes, _In_ DWORD size, _Outptr_ void** result);

namespace
{

TEST(WindowsWords, WordsAreTakenApartAndPutTogether)
{
    EXPECT_EQ(MAKEWORD(0x134, 0x212), 0x1234);
    EXPECT_EQ(MAKELONG(0x15678, 0xFFFF1234), 0x12345678);
    EXPECT_EQ(MAKELONG(1, 0x8000), INT32_MIN + 1);
    EXPECT_EQ(LOWORD(0x12345678), 0x5678);
    EXPECT_EQ(HIWORD(0x12345678), 0x1234);
    EXPECT_EQ(LOBYTE(0x1234), 0x34);
    EXPECT_EQ(HIBYTE(0x1234), 0x12);
    EXPECT_EQ(MAKELPARAM(2, 0xFFFF), 0xFFFF0002);
    EXPECT_EQ(MAKEWPARAM(2, 0xFFFF), 0xFFFF0002U);
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(MAKEWPARAM(0, 0xFF88)), -WHEEL_DELTA);
    EXPECT_EQ(RGB(0x11, 0x22, 0x33), 0x332211U);
    EXPECT_EQ(GetRValue(0x332211), 0x11);
    EXPECT_EQ(GetGValue(0x332211), 0x22);
    EXPECT_EQ(GetBValue(0x332211), 0x33);
    EXPECT_EQ(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN_SWISS), 0x0807);
    static_assert(std::is_same<decltype(MAKELONG(0, 0)), LONG>::value, "as on Windows");
}

TEST(WindowsWords, ResultsAreMadeAndTakenApart)
{
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), static_cast<HRESULT>(0x80070002));
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_SUCCESS), S_OK);
    EXPECT_EQ(HRESULT_FROM_WIN32(E_FAIL), E_FAIL);
    EXPECT_EQ(MAKE_HRESULT(SEVERITY_ERROR, FACILITY_STORAGE, 2), STG_E_FILENOTFOUND);
    EXPECT_EQ(HRESULT_CODE(E_ACCESSDENIED), ERROR_ACCESS_DENIED);
    EXPECT_EQ(HRESULT_FACILITY(E_ACCESSDENIED), FACILITY_WIN32);
    EXPECT_EQ(HRESULT_SEVERITY(E_ACCESSDENIED), SEVERITY_ERROR);
    EXPECT_TRUE(FAILED(TRUST_E_NOSIGNATURE));
    EXPECT_TRUE(SUCCEEDED(DRAGDROP_S_DROP));
}

TEST(WindowsWords, NumberTypesHaveTheWidthsOfWindows)
{
    static_assert(sizeof(INT16) == 2 && sizeof(INT32) == 4 && sizeof(INT64) == 8 && sizeof(LONG32) == 4, "");
    static_assert(sizeof(UINT8) == 1 && sizeof(ULONG64) == 8 && sizeof(DWORD32) == 4 && sizeof(SSIZE_T) == 8, "");
    static_assert(sizeof(unsigned __int64) == 8 && sizeof(__int16) == 2 && sizeof(__int8) == 1, "");
    static_assert(std::is_unsigned<ULONG_PTR>::value && std::is_signed<LONG_PTR>::value, "");
    LARGE_INTEGER number;
    number.QuadPart = -2;
    EXPECT_EQ(number.LowPart, 0xFFFFFFFE);
    EXPECT_EQ(number.HighPart, -1);
    EXPECT_EQ(number.u.HighPart, -1);
    EXPECT_EQ(ULongToHandle(HandleToULong(INVALID_HANDLE_VALUE)), reinterpret_cast<HANDLE>(std::uintptr_t{0xFFFFFFFF}));
}

struct Numbers
{
    char first;
    int second[3];
};

TEST(WindowsWords, ArraysAndFieldsAreMeasured)
{
    Numbers numbers = {};
    EXPECT_EQ(ARRAYSIZE(numbers.second), 3U);
    EXPECT_EQ(_countof(numbers.second), 3U);
    EXPECT_EQ(FIELD_OFFSET(Numbers, second), 4);
    EXPECT_EQ(CONTAINING_RECORD(&numbers.second, Numbers, second), &numbers);
    FillMemory(&numbers, sizeof numbers, 0x11);
    EXPECT_EQ(numbers.second[2], 0x11111111);
    ZeroMemory(&numbers, sizeof numbers);
    EXPECT_EQ(numbers.second[2], 0);
}

__declspec(noinline) int notInlined();
__declspec(noinline) int notInlined()
{
    return 5;
}

struct DECLSPEC_NOVTABLE Aligned
{
    __declspec(align(32)) int value;
};

__declspec(thread) int ofThisThread = 3;

TEST(WindowsWords, DeclspecsMeanWhatTheyMeanToTheCompilerHere)
{
    static_assert(alignof(Aligned) == 32, "");
    EXPECT_EQ(notInlined() + ofThisThread, 8);
}

TEST(WindowsWords, IdentifiersAreDefinedAndCompared)
{
    const GUID same = {0x01234567, 0x89AB, 0xCDEF, {1, 2, 3, 4, 5, 6, 7, 8}};
    EXPECT_TRUE(IsEqualGUID(keptIdentifier, same));
    EXPECT_TRUE(keptIdentifier == same);
    EXPECT_TRUE(keptIdentifier != GUID_NULL);
    EXPECT_FALSE(IsEqualIID(FOLDERID_Desktop, FOLDERID_Documents));
    EXPECT_EQ(FOLDERID_Documents.Data1, 0xFDD39AD0U);
    EXPECT_EQ(FOLDERID_Documents.Data4[7], 0xC7);
}

DECLARE_INTERFACE_(ICounter, IUnknown)
{
    STDMETHOD(Count)(THIS_ int* result) PURE;
    STDMETHOD_(int, Twice)(THIS_ int number) PURE;
};

class Counter final : public ICounter
{
public:
    STDMETHODIMP QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }
    STDMETHODIMP Count(int* result) override
    {
        *result = static_cast<int>(references_);
        return S_OK;
    }
    STDMETHODIMP_(int) Twice(int number) override { return 2 * number; }

private:
    ULONG references_ = 1;
};

TEST(WindowsWords, InterfacesAreDeclaredAndImplemented)
{
    Counter counter;
    ICounter& interface = counter;
    int count = 0;
    interface.AddRef();
    EXPECT_EQ(interface.Count(&count), S_OK);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(interface.Twice(4), 8);
    void* object = &counter;
    EXPECT_EQ(interface.QueryInterface(IID_NULL, &object), E_NOINTERFACE);
}

TEST(WindowsWords, VariantsHoldOneValueOfManyTypes)
{
    VARIANT variant = {};
    V_VT(&variant) = VT_ARRAY | VT_BOOL;
    V_BOOL(&variant) = VARIANT_TRUE;
    EXPECT_EQ(V_I2(&variant), -1);
    EXPECT_TRUE(V_ISARRAY(&variant));
    EXPECT_FALSE(V_ISBYREF(&variant));
    variant.decVal.scale = 9;
    EXPECT_EQ(V_VT(&variant), VT_ARRAY | VT_BOOL);
}

TEST(WindowsWords, MemoryOfTheRuntimeIsAlignedAndMeasured)
{
    for (const std::size_t alignment : {1U, 8U, 64U, 4096U})
    {
        void* const block = _aligned_malloc(10, alignment);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignment, 0U);
        EXPECT_GE(_msize(block), 10U);
        _aligned_free(block);
    }
    EXPECT_EQ(_aligned_malloc(10, 24), nullptr);
    EXPECT_EQ(_aligned_malloc(10, 0), nullptr);
    char* const onStack = static_cast<char*>(_alloca(16));
    onStack[15] = 'x';
    EXPECT_EQ(onStack[15], 'x');
}

TEST(WindowsWords, DebuggingReportsDoNothing)
{
    int evaluated = 0;
    _ASSERTE(++evaluated == 7);
    _RPT1(_CRT_WARN, "%d", ++evaluated);
    EXPECT_EQ(_CrtSetDbgFlag(_CRTDBG_LEAK_CHECK_DF), 0);
    EXPECT_EQ(evaluated, 0);
}

TEST(WindowsWords, GeometryClassesComeFromTheirHeader)
{
    EXPECT_EQ(CRect(1, 2, 4, 7).Size(), CSize(3, 5));
}

} // namespace
