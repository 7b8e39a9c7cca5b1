// The Windows-named headers that have constants and structures, in an order that other makers' headers take too.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <fcntl.h>
#include <imm.h>
#include <io.h>
#include <objbase.h>
#include <oleauto.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <stddef.h>
#include <tchar.h>
#include <usp10.h>
#include <wincrypt.h>
#include <winspool.h>
#include <wintrust.h>
#include <winver.h>

#include <strsafe.h>
