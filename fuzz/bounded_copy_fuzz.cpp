// The copies and appends, bounded and not, each against its rule written out plainly. Every buffer is compared whole.
#include "fuzzing.h"
#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"

#include <cerrno>

namespace
{

using kest::fuzz::Output;
using kest::fuzz::require;
using Wide = Output<wchar_t>;
using Narrow = Output<char>;

// Mostly small numbers and those next to them, now and then any.
template <class Number>
Number number(FuzzedDataProvider& data)
{
    const int small = data.ConsumeIntegralInRange<int>(-2, 30);
    return data.ConsumeIntegralInRange<int>(0, 7) == 0 ? data.ConsumeIntegral<Number>() : static_cast<Number>(small);
}

// What one case works on: a source, null now and then, and the numbers that its function takes.
struct Case
{
    explicit Case(FuzzedDataProvider& data)
        : sourceIsNull(data.ConsumeIntegralInRange<int>(0, 15) == 0), size(number<int>(data)), count(number<int>(data)),
          longCount(number<unsigned long>(data)), wideSource(kest::fuzz::wideText(data, 24, L"ab\u00e9")),
          narrowSource(kest::fuzz::narrowText(data, 24, "ab\xe9")), wideBefore(kest::fuzz::wideText(data, 6, L"xy")),
          narrowBefore(kest::fuzz::narrowText(data, 6, "xy"))
    {
    }

    const wchar_t* wide() const { return sourceIsNull ? nullptr : wideSource.c_str(); }
    const char* narrow() const { return sourceIsNull ? nullptr : narrowSource.c_str(); }

    bool sourceIsNull;
    int size;
    int count;
    unsigned long longCount;
    std::wstring wideSource;
    std::string narrowSource;
    std::wstring wideBefore;
    std::string narrowBefore;
};

// Room for everything that a size up to 30 and a source of up to 24 characters can fill.
constexpr std::size_t room = 40;

template <class CharT>
std::basic_string<CharT> terminated(std::basic_string<CharT> text)
{
    return text + CharT();
}

// ---- Wide copies -----------------------------------------------------------------------------------------------

int modelOfCountedCopy(Wide& output, int size, const Case& given, unsigned long count)
{
    if (size < 1 || given.sourceIsNull)
    {
        return -1;
    }
    const std::wstring taken = given.wideSource.substr(0, count);
    if (count == 0 || static_cast<std::size_t>(size) <= taken.size())
    {
        output.put(terminated<wchar_t>(L""));
        return -1;
    }
    output.put(terminated(taken));
    return 0;
}

int modelOfSizedCopy(Wide& output, int size, const Case& given)
{
    if (size < 1 || given.sourceIsNull)
    {
        return -1;
    }
    if (static_cast<std::size_t>(size) <= given.wideSource.size())
    {
        return modelOfCountedCopy(output, size, given, static_cast<unsigned long>(size) - 1);
    }
    output.put(terminated(given.wideSource));
    return 0;
}

void checkCountedCopy(const Case& given)
{
    Wide ours(room);
    Wide expected(room);
    const int result = modelOfCountedCopy(expected, given.size, given, given.longCount);
    require(wcsncpy_s(ours.data(), given.size, given.wide(), given.longCount) == result, "wcsncpy_s's result");
    require(ours == expected, "wcsncpy_s");
    require(wcsncpy_s(nullptr, given.size, given.wide(), given.longCount) == -1, "wcsncpy_s to null");
}

void checkSizedCopy(const Case& given)
{
    Wide ours(room);
    Wide expected(room);
    const int result = modelOfSizedCopy(expected, given.size, given);
    require(wcscpy_s(ours.data(), given.size, given.wide()) == result, "wcscpy_s's result");
    require(ours == expected, "wcscpy_s");
    require(wcscpy_s(nullptr, given.size, given.wide()) == -1, "wcscpy_s to null");
}

void checkCopyByCountAlone(const Case& given)
{
    Wide ours(room);
    Wide expected(room);
    const int result = modelOfSizedCopy(expected, static_cast<int>(given.longCount), given);
    require(wcsncpy_s(ours.data(), given.wide(), given.longCount) == result, "wcsncpy_s without size: the result");
    require(ours == expected, "wcsncpy_s without size");
}

void checkWholeCopies(const Case& given)
{
    Wide wide(room);
    require(wcscpy_s(wide.data(), given.wideSource.c_str()) == 0, "wcscpy_s without size: the result");
    require(wide == Wide(room, given.wideSource), "wcscpy_s without size");
    Narrow narrow(room);
    require(strcpy_s(narrow.data(), given.narrowSource.c_str()) == narrow.data(), "strcpy_s without size: the result");
    require(narrow == Narrow(room, given.narrowSource), "strcpy_s without size");
}

// ---- Appends ---------------------------------------------------------------------------------------------------

void checkCountedAppend(const Case& given)
{
    Wide ours(room, given.wideBefore);
    Wide expected(room, given.wideBefore);
    std::size_t most = 0;
    if (given.size > 0 && given.count > 0)
    {
        most = static_cast<std::size_t>(given.size < given.count ? given.size : given.count);
    }
    if (!given.sourceIsNull)
    {
        expected.put(terminated(given.wideBefore + given.wideSource.substr(0, most)));
    }
    require(wcsncat_s(ours.data(), given.size, given.wide(), given.count) == (given.sourceIsNull ? -1 : 0),
            "wcsncat_s's result");
    require(ours == expected, "wcsncat_s");
}

void checkWholeAppends(const Case& given)
{
    Wide wide(room, given.wideBefore);
    require(lstrcatW(wide.data(), given.wideSource.c_str()) == wide.data(), "lstrcatW's result");
    require(wide == Wide(room, given.wideBefore + given.wideSource), "lstrcatW");
    Narrow narrow(room, given.narrowBefore);
    require(lstrcatA(narrow.data(), given.narrowSource.c_str()) == narrow.data(), "lstrcatA's result");
    require(narrow == Narrow(room, given.narrowBefore + given.narrowSource), "lstrcatA");
}

void checkNarrowAppendOfWideName(const Case& given)
{
    Narrow destination(room, given.narrowBefore);
    require(wcsncat(destination.data(), given.narrowSource.c_str(), given.longCount) != nullptr, "wcsncat's result");
    require(destination == Narrow(room, given.narrowBefore), "wcsncat");
    // The locale, which is "C", reads ASCII only.
    const std::string all = given.narrowBefore + given.narrowSource;
    const bool readable = std::all_of(all.begin(), all.end(), [](char c) { return static_cast<signed char>(c) > 0; });
    require(errno == (readable ? 77 : EILSEQ), "wcsncat's last error");
    errno = 77;
}

// ---- Narrow copies that pad ------------------------------------------------------------------------------------

void modelOfPaddedCopy(Narrow& output, std::size_t size, const std::string& source)
{
    std::string padded = source.substr(0, size);
    padded.resize(size, '\0');
    output.put(padded);
}

void checkPaddedCopies(const Case& given)
{
    const int size = given.size > 30 ? 30 : given.size;
    Narrow expected(room);
    modelOfPaddedCopy(expected, size < 0 ? 0 : static_cast<std::size_t>(size), given.narrowSource);
    Narrow sized(room);
    require(strcpy_s(sized.data(), size, given.narrowSource.c_str()) == sized.data(), "strcpy_s's result");
    require(sized == expected, "strcpy_s");
    Narrow counted(room);
    require(strncpy_s(counted.data(), size, given.narrowSource.c_str(), given.longCount) == counted.data(),
            "strncpy_s's result");
    require(counted == expected, "strncpy_s");
    const unsigned long count = given.longCount > 30 ? 30 : given.longCount;
    Narrow expectedByCount(room);
    modelOfPaddedCopy(expectedByCount, count, given.narrowSource);
    Narrow byCount(room);
    require(strncpy_s(byCount.data(), given.narrowSource.c_str(), count) == byCount.data(),
            "strncpy_s without size: the result");
    require(byCount == expectedByCount, "strncpy_s without size");
}

// ---- Copies that always terminate ------------------------------------------------------------------------------

template <class CharT>
std::basic_string<CharT> modelOfTerminatedCopy(const std::basic_string<CharT>& source, int size)
{
    const auto places = static_cast<unsigned int>(size);
    return places == 0 ? std::basic_string<CharT>() : terminated(source.substr(0, places - 1));
}

void checkTerminatedCopies(const Case& given)
{
    Wide wide(room);
    Wide expectedWide(room);
    expectedWide.put(modelOfTerminatedCopy(given.wideSource, given.size));
    require(lstrcpynW(wide.data(), given.wideSource.c_str(), given.size) == wide.data(), "lstrcpynW's result");
    require(wide == expectedWide, "lstrcpynW");
    Narrow narrow(room);
    Narrow expectedNarrow(room);
    expectedNarrow.put(modelOfTerminatedCopy(given.narrowSource, given.size));
    require(lstrcpynA(narrow.data(), given.narrowSource.c_str(), given.size) == narrow.data(), "lstrcpynA's result");
    require(narrow == expectedNarrow, "lstrcpynA");
}

// ---- Memory ----------------------------------------------------------------------------------------------------

void checkBytes(const Case& given)
{
    const std::size_t size = given.longCount > 30 ? 30 : given.longCount;
    const auto count = static_cast<std::size_t>(given.count);
    Narrow ours(room);
    Narrow expected(room);
    const bool refused = count != 0 && (given.sourceIsNull || count > size);
    if (refused)
    {
        expected.put(std::string(size, '\0'));
    }
    else if (count != 0)
    {
        expected.put((given.narrowSource + std::string(room, '\0')).substr(0, count));
    }
    const std::string source = given.narrowSource + std::string(room, '\0');
    require(memcpy_s(ours.data(), size, given.sourceIsNull ? nullptr : source.data(), count) == (refused ? -1 : 0),
            "memcpy_s's result");
    require(ours == expected, "memcpy_s");
}

void checkWideMemory(const Case& given)
{
    const std::size_t size = given.longCount > 30 ? 30 : given.longCount;
    const auto count = static_cast<std::size_t>(given.count);
    Wide ours(room);
    Wide expected(room);
    expected.put(std::wstring(size, L'\0'));
    int result = 0;
    if (given.sourceIsNull || (count != 0 && size < count && size < given.wideSource.size()))
    {
        result = -1;
    }
    else if (count != 0)
    {
        expected.put(size < count ? given.wideSource : given.wideSource.substr(0, count));
    }
    require(wmemcpy_s(ours.data(), size, given.wide(), count) == result, "wmemcpy_s's result");
    require(ours == expected, "wmemcpy_s");
}

constexpr void (*checks[])(const Case&) = {
    checkCountedCopy,
    checkSizedCopy,
    checkCopyByCountAlone,
    checkWholeCopies,
    checkCountedAppend,
    checkWholeAppends,
    checkNarrowAppendOfWideName,
    checkPaddedCopies,
    checkTerminatedCopies,
    checkBytes,
    checkWideMemory,
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const Case given(data);
    for (const auto check : checks)
    {
        errno = 77;
        check(given);
        require(errno == 77, "last error");
    }
    return 0;
}
