#include "support/locale.h"
#include "support/last_error.h"

#include <clocale>

namespace kest
{

void setCharacterTypeToUtf8()
{
    const KeptLastError kept;
    setlocale(LC_CTYPE, "UTF-8");
}

} // namespace kest
