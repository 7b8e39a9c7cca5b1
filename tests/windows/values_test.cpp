// Every constant and every layout, against tables that are also compiled for Windows (compared_for_windows.c).
#include "value_headers.h"

#include <gtest/gtest.h>

namespace
{

struct Row
{
    const char* name;
    long long actual;
    long long expected;
};

void expectEqual(const Row& row)
{
    EXPECT_EQ(row.actual, row.expected) << row.name;
}

#define KEST_CONSTANT(name, value) {#name, (long long)(name), value},
#define KEST_LATE_CONSTANT(name, value) KEST_CONSTANT(name, value)
const Row constants[] = {
#include "constants.inc"
};

#define KEST_SIZE(type, size) {#type, (long long)sizeof(type), size},
#define KEST_FIELD(type, field, place) {#type "." #field, (long long)offsetof(type, field), place},
const Row layouts[] = {
#include "layouts.inc"
};

TEST(WindowsValues, ConstantsAreThoseOfWindows)
{
    for (const Row& row : constants)
    {
        expectEqual(row);
    }
}

TEST(WindowsValues, StructuresWithoutWideTextAreLaidOutAsOnWindows)
{
    for (const Row& row : layouts)
    {
        expectEqual(row);
    }
}

} // namespace
