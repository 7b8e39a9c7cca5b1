/*
 * Kest Platform Base: the kernel functions. One header a family; this one includes them all.
 */
#ifndef KEST_KERNEL_H
#define KEST_KERNEL_H

#include "kest/kernel/certificates.h"
#include "kest/kernel/com.h"
#include "kest/kernel/directories.h"
#include "kest/kernel/environment.h"
#include "kest/kernel/files.h"
#include "kest/kernel/locale.h"
#include "kest/kernel/memory.h"
#include "kest/kernel/modules.h"
#include "kest/kernel/profiles.h"
#include "kest/kernel/search_path.h"
#include "kest/kernel/strings.h"
#include "kest/kernel/synchronisation.h"
#include "kest/kernel/time.h"

#endif
