/*
 * Kest Platform Base: modules.
 */
#ifndef KEST_KERNEL_MODULES_H
#define KEST_KERNEL_MODULES_H

#include "kest/base_types.h"
#include "kest/export.h"

#ifdef __cplusplus

#include "kest/wide_string.h"

/**
 * Turns a module's Windows name into the name of the shared object: the directory is kept, "lib" is put in
 * front of the file name unless that begins with "lib" and goes on, and ".dll" or no extension becomes ".so".
 *
 *     foo.dll -> libfoo.so     libfoo.dll -> libfoo.so     /opt/app/foo -> /opt/app/libfoo.so
 *     lib.dll -> liblib.so     foo.qlx    -> libfoo.qlx    libfoo.so.1  -> libfoo.so.1
 *
 * Only "/" ends a directory; a backslash is an ordinary character. ".dll" and "lib" are recognised in any case
 * of their ASCII letters; nothing else is looked at, and no case is changed. Every string that the translation
 * builds, the result last, is reported to the string-object registry.
 * @param name  the name as Windows code spells it, in characters; not kept.
 * @return the new name, by value.
 * @lasterror left as it is.
 * @null name: answers an empty string, as for an empty name.
 * @kind local
 */
KEST_API CStdStr<wchar_t> ToPlatformModuleName(const wchar_t* name);

#endif

#endif
