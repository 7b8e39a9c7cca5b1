/*
 * Kest Platform Base: the user-interface functions. One header a family; this one includes them all.
 */
#ifndef KEST_USER_INTERFACE_H
#define KEST_USER_INTERFACE_H

#include "kest/user_interface/dialogs.h"
#include "kest/user_interface/drawing.h"
#include "kest/user_interface/input_method.h"
#include "kest/user_interface/menus.h"
#include "kest/user_interface/printers.h"
#include "kest/user_interface/resources.h"
#include "kest/user_interface/strings.h"
#include "kest/user_interface/text_shaping.h"
#include "kest/user_interface/windows_and_input.h"

#endif
