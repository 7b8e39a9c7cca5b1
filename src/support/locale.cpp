#include "support/locale.h"

#include <cerrno>
#include <clocale>

namespace kest
{

void setCharacterTypeToUtf8()
{
    const int lastError = errno;
    setlocale(LC_CTYPE, "UTF-8");
    errno = lastError;
}

} // namespace kest
