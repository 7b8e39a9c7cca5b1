/*
 * Kest Platform Base: the Microsoft C runtime's names. One header a family; this one includes them all.
 */
#ifndef KEST_CRT_H
#define KEST_CRT_H

#include "kest/crt/file_wrappers.h"
#include "kest/crt/formatted_output.h"
#include "kest/crt/numbers.h"
#include "kest/crt/path_splitting.h"
#include "kest/crt/strings.h"

#endif
