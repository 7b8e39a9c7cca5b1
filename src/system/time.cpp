#include "kest/kernel/time.h"
#include "support/last_error.h"

#include <cstdint>
#include <ctime>
#include <sys/time.h>

namespace
{

constexpr std::uint64_t unitsPerSecond = 10'000'000;
constexpr std::uint64_t unitsFrom1601To1970 = 116'444'736'000'000'000;

std::uint64_t monotonicMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000 + static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000;
}

// What breaks times down and puts them together looks for the time zone's file, and leaves in errno that there is none.

// localtime, but into storage of the caller's own. Of the two only localtime looks at TZ by itself.
bool breakDownLocally(std::time_t seconds, std::tm& parts)
{
    const kest::KeptLastError keep;
    tzset();
    return localtime_r(&seconds, &parts) != nullptr;
}

WORD calendarYear(const std::tm& parts)
{
    return static_cast<WORD>(static_cast<unsigned>(parts.tm_year) + 1900U);
}

WORD calendarMonth(const std::tm& parts)
{
    return static_cast<WORD>(parts.tm_mon + 1);
}

void fillDayAndTime(SYSTEMTIME& st, const std::tm& parts)
{
    st.wDay = static_cast<WORD>(parts.tm_mday);
    st.wHour = static_cast<WORD>(parts.tm_hour);
    st.wMinute = static_cast<WORD>(parts.tm_min);
    st.wSecond = static_cast<WORD>(parts.tm_sec);
}

} // namespace

DWORD GetTickCount()
{
    return static_cast<DWORD>(monotonicMilliseconds());
}

ULONGLONG GetTickCount64()
{
    return monotonicMilliseconds();
}

void GetLocalTime(SYSTEMTIME* st)
{
    if (st == nullptr)
    {
        return;
    }
    st->wYear = 0;
    st->wMonth = 0;
    st->wDayOfWeek = 0;
    st->wDay = 0;
    std::tm parts = {};
    if (!breakDownLocally(std::time(nullptr), parts))
    {
        return;
    }
    st->wYear = calendarYear(parts);
    st->wMonth = calendarMonth(parts);
    fillDayAndTime(*st, parts);
    timeval now = {};
    gettimeofday(&now, nullptr);
    st->wMilliseconds = static_cast<WORD>(now.tv_usec / 1000);
}

void GetSystemTime(SYSTEMTIME* st)
{
    if (st == nullptr)
    {
        return;
    }
    const kest::KeptLastError keep;
    const std::time_t now = std::time(nullptr);
    std::tm parts = {};
    if (gmtime_r(&now, &parts) == nullptr)
    {
        *st = {};
        return;
    }
    st->wYear = static_cast<WORD>(parts.tm_year);
    st->wMonth = static_cast<WORD>(parts.tm_mon);
    st->wDayOfWeek = static_cast<WORD>(parts.tm_wday);
    fillDayAndTime(*st, parts);
}

BOOL FileTimeToSystemTime(const FILETIME* ft, SYSTEMTIME* st)
{
    if (ft == nullptr || st == nullptr)
    {
        return 0;
    }
    // Every time of 32 bits can be broken down.
    std::tm parts = {};
    breakDownLocally(ft->dwLowDateTime, parts);
    st->wYear = calendarYear(parts);
    st->wMonth = calendarMonth(parts);
    st->wDayOfWeek = static_cast<WORD>(parts.tm_wday);
    fillDayAndTime(*st, parts);
    st->wMilliseconds = 0;
    return 1;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* st, FILETIME* ft)
{
    if (st == nullptr || ft == nullptr)
    {
        return 0;
    }
    const kest::KeptLastError keep;
    std::tm parts = {};
    parts.tm_sec = st->wSecond;
    parts.tm_min = st->wMinute;
    parts.tm_hour = st->wHour;
    parts.tm_mday = st->wDay;
    parts.tm_mon = st->wMonth - 1;
    parts.tm_year = st->wYear - 1900;
    parts.tm_wday = st->wDayOfWeek;
    parts.tm_isdst = 0;
    // Unsigned: times before 1970 and beyond the count's end wrap.
    const auto seconds = static_cast<std::uint64_t>(std::mktime(&parts));
    const std::uint64_t units = unitsFrom1601To1970 + seconds * unitsPerSecond;
    ft->dwLowDateTime = static_cast<DWORD>(units);
    ft->dwHighDateTime = static_cast<DWORD>(units >> 32);
    return 1;
}

BOOL FileTimeToLocalFileTime(const FILETIME* in, FILETIME* out)
{
    if (in == nullptr || out == nullptr)
    {
        return 0;
    }
    *out = *in;
    return 1;
}

BOOL SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION*, const SYSTEMTIME*, SYSTEMTIME*)
{
    return 0;
}

LONG CompareFileTime(const FILETIME*, const FILETIME*)
{
    return 1;
}
