// The character-type locale that several Windows functions set as a side effect.
#pragma once

namespace kest
{

// Asks for the character-type locale "UTF-8" for the whole process. Most systems have no locale of that
// name and change nothing, leaving errno at 2; errno is kept here, as the callers promise to leave the
// last error alone.
void setCharacterTypeToUtf8();

} // namespace kest
