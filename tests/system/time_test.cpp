// The clocks and mktime are this program's own: the library reaches them by name, as it reaches those of any program
// that replaces them.
#include "harness/scoped_variable.h"
#include "kest/kernel/time.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <string>
#include <sys/syscall.h>
#include <sys/time.h>
#include <thread>
#include <unistd.h>

using kest::test::ScopedVariable;

namespace
{

// What the clocks show while a test lives; the real time where not set.
struct Clocks
{
    std::optional<std::time_t> seconds;
    std::optional<suseconds_t> microseconds;
    std::optional<timespec> monotonic;
    std::optional<std::time_t> mktimeResult;
    std::tm mktimeArgument = {};
};

Clocks clocks;

timespec realTime(clockid_t clock)
{
    timespec now = {};
    syscall(SYS_clock_gettime, clock, &now);
    return now;
}

} // namespace

extern "C"
{
    KEST_API std::time_t time(std::time_t* out) noexcept
    {
        const std::time_t now = clocks.seconds.value_or(realTime(CLOCK_REALTIME).tv_sec);
        if (out != nullptr)
        {
            *out = now;
        }
        return now;
    }

    KEST_API int gettimeofday(timeval* out, void*) noexcept
    {
        const timespec now = realTime(CLOCK_REALTIME);
        // Another second than time tells: the two must not be made one.
        out->tv_sec = clocks.microseconds ? 0 : now.tv_sec;
        out->tv_usec = clocks.microseconds.value_or(static_cast<suseconds_t>(now.tv_nsec / 1000));
        return 0;
    }

    KEST_API int clock_gettime(clockid_t clock, timespec* out) noexcept
    {
        *out = clock == CLOCK_MONOTONIC && clocks.monotonic ? *clocks.monotonic : realTime(clock);
        return 0;
    }

    KEST_API std::time_t mktime(std::tm* parts) noexcept
    {
        static const auto real = reinterpret_cast<std::time_t (*)(std::tm*)>(dlsym(RTLD_NEXT, "mktime"));
        clocks.mktimeArgument = *parts;
        return clocks.mktimeResult ? *clocks.mktimeResult : real(parts);
    }
}

bool operator==(const SYSTEMTIME& left, const SYSTEMTIME& right);
bool operator==(const FILETIME& left, const FILETIME& right);
std::ostream& operator<<(std::ostream& out, const SYSTEMTIME& time);
std::ostream& operator<<(std::ostream& out, const FILETIME& time);

bool operator==(const SYSTEMTIME& left, const SYSTEMTIME& right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

bool operator==(const FILETIME& left, const FILETIME& right)
{
    return left.dwLowDateTime == right.dwLowDateTime && left.dwHighDateTime == right.dwHighDateTime;
}

std::ostream& operator<<(std::ostream& out, const SYSTEMTIME& time)
{
    return out << time.wYear << '-' << time.wMonth << '-' << time.wDay << " (" << time.wDayOfWeek << ") " << time.wHour
               << ':' << time.wMinute << ':' << time.wSecond << '.' << time.wMilliseconds;
}

std::ostream& operator<<(std::ostream& out, const FILETIME& time)
{
    return out << time.dwHighDateTime << ':' << time.dwLowDateTime;
}

namespace
{

// Real clocks again after each test.
class SetClocks
{
public:
    explicit SetClocks(std::optional<std::time_t> seconds = {}, std::optional<suseconds_t> microseconds = {})
    {
        clocks.seconds = seconds;
        clocks.microseconds = microseconds;
    }
    ~SetClocks() { clocks = {}; }
    SetClocks(const SetClocks&) = delete;
    SetClocks& operator=(const SetClocks&) = delete;
};

constexpr WORD x = 0x5A5A;
constexpr SYSTEMTIME untouchedTime = {x, x, x, x, x, x, x, x};
constexpr FILETIME untouchedFileTime = {0x5A5A5A5A, 0x5A5A5A5A};

// Half a year of summer time in the one, half an hour beside the whole hours in the other.
constexpr const char* middleEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr const char* newfoundland = "NST3:30NDT,M3.2.0,M11.1.0";
constexpr const char* unshifted = "UTC0";

// Beyond every calendar.
constexpr std::time_t endlessly = INT64_MAX / 2;

constexpr std::time_t march2026 = 1772709845; // 2026-03-05 11:24:05 UTC, a Thursday
constexpr std::time_t july2024 = 1721001599;  // 2024-07-14 23:59:59 UTC, a Sunday
constexpr std::uint64_t year1970 = 116444736000000000;

SYSTEMTIME localTime()
{
    SYSTEMTIME st = untouchedTime;
    GetLocalTime(&st);
    return st;
}

SYSTEMTIME systemTime()
{
    SYSTEMTIME st = untouchedTime;
    GetSystemTime(&st);
    return st;
}

SYSTEMTIME brokenDown(FILETIME ft)
{
    SYSTEMTIME st = untouchedTime;
    EXPECT_EQ(FileTimeToSystemTime(&ft, &st), 1);
    return st;
}

std::uint64_t putTogether(SYSTEMTIME st)
{
    FILETIME ft = untouchedFileTime;
    EXPECT_EQ(SystemTimeToFileTime(&st, &ft), 1);
    return static_cast<std::uint64_t>(ft.dwHighDateTime) << 32 | ft.dwLowDateTime;
}

// ---- GetTickCount, GetTickCount64

TEST(TickCounts, CountMillisecondsOfTheMonotonicClock)
{
    struct Row
    {
        timespec clock;
        DWORD count;
        ULONGLONG count64;
    };
    const Row rows[] = {
        {{0, 0}, 0, 0},
        {{0, 999999}, 0, 0},
        {{0, 1000000}, 1, 1},
        {{1, 999999999}, 1999, 1999},
        {{4294967, 295999999}, 4294967295U, 4294967295U},
        {{4294967, 296000000}, 0, 4294967296U},
        {{8589934, 600000000}, 8, 8589934600U},
        {{100000000000, 5000000}, 276447237, 100000000000005U},
    };
    const SetClocks restored;
    for (const Row& row : rows)
    {
        clocks.monotonic = row.clock;
        EXPECT_EQ(GetTickCount64(), row.count64);
        EXPECT_EQ(GetTickCount(), row.count);
    }
}

TEST(TickCounts, FollowTheRealClock)
{
    const auto now = []
    {
        const timespec clock = realTime(CLOCK_MONOTONIC);
        return static_cast<ULONGLONG>(clock.tv_sec) * 1000 + static_cast<ULONGLONG>(clock.tv_nsec) / 1000000;
    };
    const ULONGLONG before = now();
    const ULONGLONG count = GetTickCount64();
    EXPECT_GE(count, before);
    EXPECT_LE(count, now());
}

// ---- GetLocalTime

TEST(GetLocalTime, LeavesTheDayOfWeekZero)
{
    const ScopedVariable zone("TZ", unshifted);
    const SetClocks set(march2026, 0);
    EXPECT_EQ(localTime(), (SYSTEMTIME{2026, 3, 0, 5, 11, 24, 5, 0}));
}

TEST(LocalTime, FollowsTheTimeZoneOfTheMoment)
{
    ScopedVariable zone("TZ", unshifted);
    const SetClocks set(march2026, 987654);
    EXPECT_EQ(localTime(), (SYSTEMTIME{2026, 3, 0, 5, 11, 24, 5, 987}));
    zone.set(middleEurope);
    EXPECT_EQ(localTime(), (SYSTEMTIME{2026, 3, 0, 5, 12, 24, 5, 987}));
    zone.set(newfoundland);
    EXPECT_EQ(localTime(), (SYSTEMTIME{2026, 3, 0, 5, 7, 54, 5, 987}));
    clocks.seconds = july2024;
    EXPECT_EQ(localTime(), (SYSTEMTIME{2024, 7, 0, 14, 21, 29, 59, 987}));
    zone.set(middleEurope);
    EXPECT_EQ(localTime(), (SYSTEMTIME{2024, 7, 0, 15, 1, 59, 59, 987}));
}

TEST(LocalTime, TruncatesToMilliseconds)
{
    const ScopedVariable zone("TZ", unshifted);
    const SetClocks set(july2024);
    const std::pair<suseconds_t, WORD> rows[] = {{0, 0}, {999, 0}, {1000, 1}, {999499, 999}, {999999, 999}};
    for (const auto& [microseconds, milliseconds] : rows)
    {
        clocks.microseconds = microseconds;
        EXPECT_EQ(localTime(), (SYSTEMTIME{2024, 7, 0, 14, 23, 59, 59, milliseconds}));
    }
}

TEST(LocalTime, ZeroesTheDateWhenItCannotBeTold)
{
    const SetClocks set(endlessly, 5000);
    EXPECT_EQ(localTime(), (SYSTEMTIME{0, 0, 0, 0, x, x, x, x}));
}

TEST(LocalTime, KeepsTheLowBitsOfALargeYear)
{
    const ScopedVariable zone("TZ", unshifted);
    // 65536 years of 365.2425 days later.
    const SetClocks set(march2026 + std::time_t{23936532} * 86400, 0);
    EXPECT_EQ(localTime().wYear, 2026);
}

TEST(LocalTime, DoesNothingWithoutAStructure)
{
    GetLocalTime(nullptr);
    GetSystemTime(nullptr);
}

TEST(LocalTime, IsTheRealOne)
{
    SYSTEMTIME st = localTime();
    std::tm parts = {};
    parts.tm_year = st.wYear - 1900;
    parts.tm_mon = st.wMonth - 1;
    parts.tm_mday = st.wDay;
    parts.tm_hour = st.wHour;
    parts.tm_min = st.wMinute;
    parts.tm_sec = st.wSecond;
    parts.tm_isdst = -1;
    EXPECT_NEAR(static_cast<double>(std::mktime(&parts)), static_cast<double>(std::time(nullptr)), 60);
    EXPECT_LT(st.wMilliseconds, 1000);
}

// ---- GetSystemTime

TEST(GetSystemTime, CountsYearsFrom1900AndMonthsFromZero)
{
    const SetClocks set(march2026);
    const SYSTEMTIME st = systemTime();
    EXPECT_EQ(st.wYear, 126);
    EXPECT_EQ(st.wMonth, 2);
}

TEST(GetSystemTime, LeavesMillisecondsUnwritten)
{
    const SetClocks set(march2026, 5000);
    EXPECT_EQ(systemTime().wMilliseconds, x);
}

TEST(SystemTime, IsCoordinatedUniversalTimeWithTheDayOfWeek)
{
    const ScopedVariable zone("TZ", newfoundland);
    const SetClocks set(march2026);
    EXPECT_EQ(systemTime(), (SYSTEMTIME{126, 2, 4, 5, 11, 24, 5, x}));
    clocks.seconds = july2024;
    EXPECT_EQ(systemTime(), (SYSTEMTIME{124, 6, 0, 14, 23, 59, 59, x}));
    clocks.seconds = 0;
    EXPECT_EQ(systemTime(), (SYSTEMTIME{70, 0, 4, 1, 0, 0, 0, x}));
}

TEST(SystemTime, IsZeroWhenItCannotBeTold)
{
    const SetClocks set(endlessly);
    EXPECT_EQ(systemTime(), (SYSTEMTIME{0, 0, 0, 0, 0, 0, 0, 0}));
}

// ---- FileTimeToSystemTime

TEST(FileTimeToSystemTime, ReadsUnixSeconds)
{
    const ScopedVariable zone("TZ", unshifted);
    EXPECT_EQ(brokenDown({0, 0}), (SYSTEMTIME{1970, 1, 4, 1, 0, 0, 0, 0}));
    EXPECT_EQ(brokenDown({1772709845, 0}), (SYSTEMTIME{2026, 3, 4, 5, 11, 24, 5, 0}));
}

TEST(FileTimeToSystemTime, IgnoresTheHighWord)
{
    const ScopedVariable zone("TZ", unshifted);
    EXPECT_EQ(brokenDown({1772709845, 0xFFFFFFFF}), (SYSTEMTIME{2026, 3, 4, 5, 11, 24, 5, 0}));
    EXPECT_EQ(brokenDown({0xFFFFFFFF, 1}), (SYSTEMTIME{2106, 2, 0, 7, 6, 28, 15, 0}));
    EXPECT_EQ(brokenDown({0x80000000, 0}), (SYSTEMTIME{2038, 1, 2, 19, 3, 14, 8, 0}));
}

TEST(FileTimeToSystemTime, AnswersLocalTime)
{
    ScopedVariable zone("TZ", middleEurope);
    EXPECT_EQ(brokenDown({1721001599, 0}), (SYSTEMTIME{2024, 7, 1, 15, 1, 59, 59, 0}));
    zone.set(newfoundland);
    EXPECT_EQ(brokenDown({1721001599, 0}), (SYSTEMTIME{2024, 7, 0, 14, 21, 29, 59, 0}));
    EXPECT_EQ(brokenDown({0, 0}), (SYSTEMTIME{1969, 12, 3, 31, 20, 30, 0, 0}));
}

TEST(FileTimes, AreNotBrokenDownWithoutBothPointers)
{
    const FILETIME ft = {1772709845, 0};
    SYSTEMTIME st = untouchedTime;
    EXPECT_EQ(FileTimeToSystemTime(nullptr, &st), 0);
    EXPECT_EQ(st, untouchedTime);
    EXPECT_EQ(FileTimeToSystemTime(&ft, nullptr), 0);
    EXPECT_EQ(FileTimeToSystemTime(nullptr, nullptr), 0);
}

TEST(FileTimes, AreBrokenDownOnSeveralThreads)
{
    const ScopedVariable zone("TZ", unshifted);
    const auto check = [](DWORD seconds, const SYSTEMTIME& expected)
    {
        for (int round = 0; round < 2000; ++round)
        {
            EXPECT_EQ(brokenDown({seconds, 0}), expected);
        }
    };
    std::thread other(check, 0, SYSTEMTIME{1970, 1, 4, 1, 0, 0, 0, 0});
    check(1721001599, {2024, 7, 0, 14, 23, 59, 59, 0});
    other.join();
}

// ---- SystemTimeToFileTime

TEST(SystemTimeToFileTime, ReadsLocalStandardTime)
{
    const ScopedVariable zone("TZ", middleEurope);
    EXPECT_EQ(putTogether({2026, 3, 4, 5, 12, 24, 5, 0}), year1970 + 1772709845ULL * 10000000);
    // In summer an hour off wall time, which was 01:59:59.
    EXPECT_EQ(putTogether({2024, 7, 1, 15, 0, 59, 59, 0}), year1970 + 1721001599ULL * 10000000);
    EXPECT_EQ(clocks.mktimeArgument.tm_isdst, 0);
}

TEST(SystemTimeToFileTime, DropsMilliseconds)
{
    const ScopedVariable zone("TZ", unshifted);
    EXPECT_EQ(putTogether({1970, 1, 4, 1, 0, 0, 1, 999}), year1970 + 10000000);
}

TEST(SystemTimeToFileTime, CarriesFieldsBeyondTheirRange)
{
    const ScopedVariable zone("TZ", unshifted);
    EXPECT_EQ(putTogether({2023, 2, 0, 31, 0, 0, 0, 0}), putTogether({2023, 3, 0, 3, 0, 0, 0, 0}));
    EXPECT_EQ(putTogether({2023, 13, 0, 1, 25, 61, 61, 0}), putTogether({2024, 1, 0, 2, 2, 2, 1, 0}));
    EXPECT_EQ(putTogether({2023, 0, 0, 0, 0, 0, 0, 0}), putTogether({2022, 11, 0, 30, 0, 0, 0, 0}));
}

TEST(FileTimes, ArePutTogetherFromTheLocalEpoch)
{
    ScopedVariable zone("TZ", unshifted);
    EXPECT_EQ(putTogether({1970, 1, 4, 1, 0, 0, 0, 0}), year1970);
    zone.set(middleEurope);
    EXPECT_EQ(putTogether({1970, 1, 4, 1, 0, 0, 0, 0}), year1970 - 36000000000);
    zone.set(newfoundland);
    EXPECT_EQ(putTogether({1970, 1, 4, 1, 0, 0, 0, 0}), year1970 + 126000000000);
}

TEST(FileTimes, HandTheFieldsToTheCalendarAsTheyAre)
{
    const SetClocks restored;
    putTogether({2026, 3, 6, 5, 12, 24, 7, 890});
    EXPECT_EQ(clocks.mktimeArgument.tm_year, 126);
    EXPECT_EQ(clocks.mktimeArgument.tm_mon, 2);
    EXPECT_EQ(clocks.mktimeArgument.tm_wday, 6);
    EXPECT_EQ(clocks.mktimeArgument.tm_mday, 5);
    EXPECT_EQ(clocks.mktimeArgument.tm_hour, 12);
    EXPECT_EQ(clocks.mktimeArgument.tm_min, 24);
    EXPECT_EQ(clocks.mktimeArgument.tm_sec, 7);
    EXPECT_EQ(clocks.mktimeArgument.tm_yday, 0);
    EXPECT_EQ(clocks.mktimeArgument.tm_isdst, 0);
}

TEST(FileTimes, AreASecondBefore1970WhenTheyCannotBePutTogether)
{
    const SetClocks restored;
    clocks.mktimeResult = -1;
    EXPECT_EQ(putTogether({2026, 3, 6, 5, 12, 24, 7, 0}), year1970 - 10000000);
}

TEST(FileTimes, WrapBeyondTheEndOfTheirCount)
{
    const ScopedVariable zone("TZ", unshifted);
    // 65535-12-31 23:59:59: 2005949145599 seconds.
    EXPECT_EQ(putTogether({65535, 12, 0, 31, 23, 59, 59, 0}), year1970 + 2005949145599ULL * 10000000);
    EXPECT_EQ(putTogether({1601, 1, 1, 1, 0, 0, 0, 0}), 0U);
}

TEST(FileTimes, AreNotPutTogetherWithoutBothPointers)
{
    const SYSTEMTIME st = {2026, 3, 6, 5, 12, 24, 7, 0};
    FILETIME ft = untouchedFileTime;
    EXPECT_EQ(SystemTimeToFileTime(nullptr, &ft), 0);
    EXPECT_EQ(ft, untouchedFileTime);
    EXPECT_EQ(SystemTimeToFileTime(&st, nullptr), 0);
    EXPECT_EQ(SystemTimeToFileTime(nullptr, nullptr), 0);
}

TEST(FileTimes, DoNotComeBackFromTheirOtherUnit)
{
    const ScopedVariable zone("TZ", unshifted);
    const SYSTEMTIME st = {2026, 3, 4, 5, 11, 24, 5, 0};
    FILETIME ft = untouchedFileTime;
    EXPECT_EQ(SystemTimeToFileTime(&st, &ft), 1);
    EXPECT_FALSE(brokenDown(ft) == st);
}

// ---- FileTimeToLocalFileTime

TEST(FileTimeToLocalFileTime, ShiftsNothing)
{
    const ScopedVariable zone("TZ", newfoundland);
    const FILETIME in = {0x12345678, 0x9ABCDEF0};
    FILETIME out = untouchedFileTime;
    EXPECT_EQ(FileTimeToLocalFileTime(&in, &out), 1);
    EXPECT_EQ(out, in);
}

TEST(FileTimes, AreCopiedInPlaceAndNotWithoutBothPointers)
{
    FILETIME ft = {1, 2};
    EXPECT_EQ(FileTimeToLocalFileTime(&ft, &ft), 1);
    EXPECT_EQ(ft, (FILETIME{1, 2}));
    EXPECT_EQ(FileTimeToLocalFileTime(nullptr, &ft), 0);
    EXPECT_EQ(ft, (FILETIME{1, 2}));
    EXPECT_EQ(FileTimeToLocalFileTime(&ft, nullptr), 0);
    EXPECT_EQ(FileTimeToLocalFileTime(nullptr, nullptr), 0);
}

// ---- Fixed results

TEST(FileTimes, AlwaysCompareAsLater)
{
    const FILETIME early = {1, 0};
    const FILETIME late = {0, 1};
    EXPECT_EQ(CompareFileTime(&early, &late), 1);
    EXPECT_EQ(CompareFileTime(&late, &early), 1);
    EXPECT_EQ(CompareFileTime(&early, &early), 1);
    EXPECT_EQ(CompareFileTime(nullptr, nullptr), 1);
}

// The C library looks for a file of the zone's name whenever TZ has changed.
TEST(Times, LeaveTheLastErrorAlone)
{
    for (const char* const zone : {unshifted, middleEurope, "Nowhere/Land"})
    {
        SYSTEMTIME st = {};
        FILETIME ft = {1, 0};
        const auto expectLeftAlone = [zone](auto&& call)
        {
            const ScopedVariable other("TZ", "Another/Land");
            tzset();
            const ScopedVariable timeZone("TZ", zone);
            errno = 77;
            call();
            EXPECT_EQ(errno, 77) << zone;
        };
        expectLeftAlone([&] { GetLocalTime(&st); });
        expectLeftAlone([&] { GetSystemTime(&st); });
        expectLeftAlone([&] { EXPECT_EQ(FileTimeToSystemTime(&ft, &st), 1); });
        expectLeftAlone([&] { EXPECT_EQ(SystemTimeToFileTime(&st, &ft), 1); });
    }
    const SetClocks clock(endlessly);
    SYSTEMTIME st = {};
    errno = 77;
    GetLocalTime(&st);
    GetSystemTime(&st);
    EXPECT_EQ(errno, 77);
}

TEST(SystemTime, IsNotConvertedToATimeZone)
{
    const TIME_ZONE_INFORMATION zone = {};
    const SYSTEMTIME universal = {2026, 3, 4, 5, 11, 24, 5, 0};
    SYSTEMTIME local = untouchedTime;
    EXPECT_EQ(SystemTimeToTzSpecificLocalTime(&zone, &universal, &local), 0);
    EXPECT_EQ(SystemTimeToTzSpecificLocalTime(nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(local, untouchedTime);
}

} // namespace
