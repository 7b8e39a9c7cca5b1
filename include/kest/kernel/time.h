/*
 * Kest Platform Base: clocks and calendar times.
 *
 * A FILETIME is one 64-bit count, low word first. What it counts depends on the function:
 *
 *     function                   reads                                  writes
 *     GetFileTime and the other  -                                      seconds since 1970-01-01 00:00 UTC
 *       file functions
 *     FileTimeToSystemTime       seconds since 1970, low word only      -
 *     FileTimeToLocalFileTime    either                                 what it read
 *     SystemTimeToFileTime       -                                      100-nanosecond units since 1601-01-01 00:00 UTC
 *     CompareFileTime            nothing                                -
 *
 * A file's time goes through FileTimeToLocalFileTime and FileTimeToSystemTime and comes out right. What
 * SystemTimeToFileTime makes must not go into FileTimeToSystemTime: subtract 116444736000000000 and divide by 10000000
 * first.
 *
 * Local times follow the environment variable TZ as it is at the call. All functions may be called from several threads
 * at once, as long as none of them changes TZ. Without memory, or a descriptor, to read the zone's rules with, the C
 * library takes universal time for local time.
 */
#ifndef KEST_KERNEL_TIME_H
#define KEST_KERNEL_TIME_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/* ---- Clocks ----------------------------------------------------------------------------------- */

/**
 * Returns the milliseconds of the monotonic clock, in 32 bits: it starts again at 0 every 49.7 days.
 * @lasterror left as it is.
 * @kind local
 */
KEST_API DWORD GetTickCount(void);

/**
 * Returns the milliseconds of the monotonic clock.
 * @lasterror left as it is.
 * @kind local
 */
KEST_API ULONGLONG GetTickCount64(void);

/**
 * Tells the local time.
 * @param st  receives the time. The second and the millisecond are read one after the other: the millisecond may belong
 *            to the next second. For a time that cannot be broken down, wYear, wMonth, wDayOfWeek and wDay become 0 and
 *            the other fields stay as they were.
 * @lasterror left as it is.
 * @null st: nothing happens.
 * @kind local
 * @differs{GetLocalTime.LeavesTheDayOfWeekZero} wDayOfWeek is 0 on every day.
 */
KEST_API void GetLocalTime(SYSTEMTIME* st);

/**
 * Tells the time in UTC.
 * @param st  receives the time. For a time that cannot be broken down all fields become 0.
 * @lasterror left as it is.
 * @null st: nothing happens.
 * @kind local
 * @differs{GetSystemTime.CountsYearsFrom1900AndMonthsFromZero} In March 2026 wYear is 126 and wMonth 2.
 * @differs{GetSystemTime.LeavesMillisecondsUnwritten} wMilliseconds stays as it was.
 */
KEST_API void GetSystemTime(SYSTEMTIME* st);

/* ---- Conversions ------------------------------------------------------------------------------ */

/**
 * Breaks a file's time down.
 * @param ft  seconds since 1970-01-01 00:00 UTC.
 * @param st  receives the local time; wMilliseconds is 0.
 * @return 1; 0 with nothing written when a pointer is null.
 * @lasterror left as it is.
 * @null either pointer: answers 0.
 * @kind local
 * @differs{FileTimeToSystemTime.ReadsUnixSeconds} ft does not count 100-nanosecond units since 1601.
 * @differs{FileTimeToSystemTime.IgnoresTheHighWord} Times end on 2106-02-07.
 * @differs{FileTimeToSystemTime.AnswersLocalTime} The result is not UTC.
 */
KEST_API BOOL FileTimeToSystemTime(const FILETIME* ft, SYSTEMTIME* st);

/**
 * Puts a broken-down local time together.
 * @param st  the time, in local standard time. Fields beyond their range carry over; wMilliseconds is ignored.
 * @param ft  receives 100-nanosecond units since 1601-01-01 00:00 UTC. A time that cannot be put together becomes the
 *            second before 1970.
 * @return 1; 0 with nothing written when a pointer is null.
 * @lasterror left as it is.
 * @null either pointer: answers 0.
 * @kind local
 * @differs{SystemTimeToFileTime.ReadsLocalStandardTime} st is not UTC, and not summer time either: in summer the result
 *     is an hour off wall time.
 * @differs{SystemTimeToFileTime.DropsMilliseconds} The result counts whole seconds.
 * @differs{SystemTimeToFileTime.CarriesFieldsBeyondTheirRange} February 31st is a day in March and no failure.
 */
KEST_API BOOL SystemTimeToFileTime(const SYSTEMTIME* st, FILETIME* ft);

/**
 * Copies a file time.
 * @param in   the time, in any unit.
 * @param out  receives both words; may be in.
 * @return 1; 0 with nothing written when a pointer is null.
 * @lasterror left as it is.
 * @null either pointer: answers 0.
 * @kind local
 * @differs{FileTimeToLocalFileTime.ShiftsNothing} The time zone is not applied: FileTimeToSystemTime does that.
 */
KEST_API BOOL FileTimeToLocalFileTime(const FILETIME* in, FILETIME* out);

/** Always 0; *localTime stays unwritten. @kind fixed result */
KEST_API BOOL SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* universalTime,
                                              SYSTEMTIME* localTime);

/** Always 1, whatever the times are. @kind fixed result */
KEST_API LONG CompareFileTime(const FILETIME* first, const FILETIME* second);

KEST_C_END

#endif
