#include "kest/kernel/environment.h"
#include "support/second_name.h"

#include <cstdlib>

namespace
{

constexpr unsigned textSize = 37;
constexpr int byteCount = 16;
constexpr int versionByte = 6;
constexpr int variantByte = 8;
constexpr int byteValues = 255;
constexpr int digitValues = 15;

char hexadecimal(int digit)
{
    return "0123456789abcdef"[digit];
}

bool hyphenFollows(int byte)
{
    return byte == 3 || byte == 5 || byte == 7 || byte == 9;
}

} // namespace

// Programs that seed rand count on the identifiers that follow: the calls and the remainders are as they are.
char* random_uuid(char* buffer, unsigned int size)
{
    if (buffer == nullptr || size < textSize)
    {
        return nullptr;
    }
    char* out = buffer;
    for (int byte = 0; byte < byteCount; ++byte)
    {
        const int value = std::rand() % byteValues;
        if (byte == versionByte)
        {
            *out++ = '4';
            *out++ = hexadecimal(value % digitValues);
        }
        else if (byte == variantByte)
        {
            *out++ = "89ab"[std::rand() & 3];
            *out++ = hexadecimal(value % digitValues);
        }
        else
        {
            *out++ = hexadecimal(value / 16);
            *out++ = hexadecimal(value % 16);
        }
        if (hyphenFollows(byte))
        {
            *out++ = '-';
        }
    }
    *out = '\0';
    return buffer;
}

KEST_SECOND_NAME(char* plainRandomUuid(char*, unsigned int), "_Z11random_uuidPcj", "random_uuid");
