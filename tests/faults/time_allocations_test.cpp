// Local times without memory for the rules of the zone: the C library takes universal time.
#include "faults/allocation_faults.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "kest/companions/crt.h"
#include "kest/kernel/time.h"

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using namespace kest::test;
using namespace std::string_view_literals;

// A zone five hours east of Greenwich, as the system's files hold it: no transitions, one type, its offset and name.
constexpr std::string_view zoneFile = "TZif\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                      "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\4"
                                      "\0\0\x46\x50\0\0KST\0"sv;

class TimeAllocations : public testing::Test
{
protected:
    ScratchFolder folder;
    std::string zone = ":" + folder.write("zone", std::string(zoneFile)).string();
    ScopedVariable variable{"TZ", "UTC0"};

    // A row that answers how many hours local time is ahead.
    AllocatingCall row(const char* name, std::function<long()> call)
    {
        return {.name = name,
                .call = std::move(call),
                .success = 5,
                .failure = 0,
                .prepare = [this] { setenv("TZ", zone.c_str(), 1); },
                // What the C library took for the zone it keeps until TZ is another.
                .release =
                    []
                {
                    setenv("TZ", "UTC0", 1);
                    tzset();
                }};
    }
};

long hoursAhead(const SYSTEMTIME& local)
{
    const long minutes = local.wHour * 60L + local.wMinute - std::time(nullptr) / 60 % 1440;
    // The clock may go on between the two.
    return (minutes + 1440 + 2) % 1440 / 60;
}

TEST_F(TimeAllocations, TakeUniversalTime)
{
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row("GetLocalTime",
            []
            {
                SYSTEMTIME now;
                GetLocalTime(&now);
                return hoursAhead(now);
            }),
        row("FileTimeToSystemTime",
            []
            {
                const FILETIME epoch = {0, 0};
                SYSTEMTIME broken;
                return FileTimeToSystemTime(&epoch, &broken) == 1 ? static_cast<long>(broken.wHour) : -1L;
            }),
        row("SystemTimeToFileTime",
            []
            {
                SYSTEMTIME noon = {};
                noon.wYear = 1970;
                noon.wMonth = 1;
                noon.wDay = 1;
                noon.wHour = 12;
                FILETIME time;
                if (SystemTimeToFileTime(&noon, &time) != 1)
                {
                    return -1L;
                }
                const std::uint64_t units = static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
                return 12 - static_cast<long>((units - 116'444'736'000'000'000) / 36'000'000'000);
            }),
        row("_localtime64_s",
            []
            {
                const long long epoch = 0;
                std::tm parts;
                return _localtime64_s(&parts, &epoch) == 0 ? static_cast<long>(parts.tm_hour) : -1L;
            }),
        row("_mktime64",
            []
            {
                std::tm noon = {};
                noon.tm_year = 70;
                noon.tm_mday = 1;
                noon.tm_hour = 12;
                return 12 - static_cast<long>(_mktime64(&noon) / 3600);
            }),
    });
}

} // namespace
