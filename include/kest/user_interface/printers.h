/*
 * Kest Platform Base: printers.
 */
#ifndef KEST_USER_INTERFACE_PRINTERS_H
#define KEST_USER_INTERFACE_PRINTERS_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Flags of EnumPrintersW */
#define PRINTER_ENUM_DEFAULT 0x00000001
#define PRINTER_ENUM_LOCAL 0x00000002
#define PRINTER_ENUM_CONNECTIONS 0x00000004
#define PRINTER_ENUM_NAME 0x00000008
#define PRINTER_ENUM_REMOTE 0x00000010
#define PRINTER_ENUM_SHARED 0x00000020
#define PRINTER_ENUM_NETWORK 0x00000040

/* What EnumPrintersW lists at level 1. */
typedef struct _PRINTER_INFO_1W
{
    DWORD Flags;
    LPWSTR pDescription;
    LPWSTR pName;
    LPWSTR pComment;
} PRINTER_INFO_1W, *PPRINTER_INFO_1W, *LPPRINTER_INFO_1W;

/* What EnumPrintersW lists at level 4. */
typedef struct _PRINTER_INFO_4W
{
    LPWSTR pPrinterName;
    LPWSTR pServerName;
    DWORD Attributes;
} PRINTER_INFO_4W, *PPRINTER_INFO_4W, *LPPRINTER_INFO_4W;

/* What EnumPrintersW lists at level 5. */
typedef struct _PRINTER_INFO_5W
{
    LPWSTR pPrinterName;
    LPWSTR pPortName;
    DWORD Attributes;
    DWORD DeviceNotSelectedTimeout;
    DWORD TransmissionRetryTimeout;
} PRINTER_INFO_5W, *PPRINTER_INFO_5W, *LPPRINTER_INFO_5W;

KEST_C_BEGIN

/**
 * Lists printers. Needs an installed hub with a graphics service; arguments reach it as they are, null included.
 * @param Flags  PRINTER_ENUM_*.
 * @param Level  which PRINTER_INFO structure pPrinterEnum receives.
 * @param cbBuf  the size of pPrinterEnum in bytes.
 * @param pcbNeeded  receives the size needed in bytes.
 * @param pcReturned  receives the number of printers.
 * @return not 0 on success.
 * @lasterror left to the host.
 * @kind forward: IGraphicsService::EnumPrintersW
 */
KEST_API BOOL EnumPrintersW(DWORD Flags, wchar_t* Name, DWORD Level, BYTE* pPrinterEnum, DWORD cbBuf, DWORD* pcbNeeded,
                            DWORD* pcReturned);

KEST_C_END

#endif
