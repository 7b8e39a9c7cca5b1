/*
 * Kest Platform Base, companions: the strings of automation. A BSTR is wide text with its length in bytes in the four
 * bytes before it, and a terminator behind it; null stands for an empty text.
 */
#ifndef KEST_COMPANIONS_AUTOMATION_H
#define KEST_COMPANIONS_AUTOMATION_H

#include "kest/base_types.h"
#include "kest/export.h"

typedef OLECHAR* BSTR;

KEST_C_BEGIN

/**
 * Makes a string of automation from a text.
 * @param text  copied, terminator included.
 * @return the string, which SysFreeString releases; null when there is no memory.
 * @lasterror left as it is.
 * @null text: answers null.
 * @kind local
 */
KEST_API BSTR SysAllocString(const OLECHAR* text);

/**
 * Makes a string of a given length.
 * @param text  length characters, zeros among them or not; null leaves the characters unspecified.
 * @param length  in characters, without the terminator that is added.
 * @return the string, which SysFreeString releases; null when there is no memory or its bytes pass 32 bits.
 * @lasterror left as it is.
 * @kind local
 */
KEST_API BSTR SysAllocStringLen(const OLECHAR* text, UINT length);

/**
 * Makes a string that holds bytes.
 * @param bytes  size bytes; null leaves them unspecified.
 * @param size  in bytes; a terminating zero character is added.
 * @return the string, which SysFreeString releases; null when there is no memory.
 * @lasterror left as it is.
 * @kind local
 */
KEST_API BSTR SysAllocStringByteLen(const char* bytes, UINT size);

/**
 * Puts a new string in the place of another one.
 * @param string  holds a string or null; receives the new string, and the old one is released. text may be part of it.
 * @return TRUE; FALSE when there is no memory, and then *string is as it was.
 * @lasterror left as it is.
 * @null string: FALSE. text: *string becomes null.
 * @kind local
 */
KEST_API INT SysReAllocString(BSTR* string, const OLECHAR* text);

/**
 * Puts a new string of a given length in the place of another one, as SysReAllocString does.
 * @param text  length characters, or null to leave those unspecified that the old string did not have.
 * @kind local
 */
KEST_API INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length);

/** Releases a string. @null string: nothing happens. @lasterror left as it is. @kind local */
KEST_API void SysFreeString(BSTR string);

/** The length of a string in characters, zeros inside counted. @null string: 0. @lasterror left as it is. @kind local */
KEST_API UINT SysStringLen(BSTR string);

/** The length of a string in bytes. @null string: 0. @lasterror left as it is. @kind local */
KEST_API UINT SysStringByteLen(BSTR string);

KEST_C_END

#endif
