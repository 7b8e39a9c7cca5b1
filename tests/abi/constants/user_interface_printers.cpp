// The values of the constants, as Windows has them.
#include "kest/user_interface/printers.h"

// ---- Listing -----------------------------------------------------------------------------------------------------

static_assert(PRINTER_ENUM_DEFAULT == 0x1);
static_assert(PRINTER_ENUM_LOCAL == 0x2);
static_assert(PRINTER_ENUM_CONNECTIONS == 0x4);
static_assert(PRINTER_ENUM_NAME == 0x8);
static_assert(PRINTER_ENUM_REMOTE == 0x10);
static_assert(PRINTER_ENUM_SHARED == 0x20);
static_assert(PRINTER_ENUM_NETWORK == 0x40);
static_assert(PRINTER_ACCESS_ADMINISTER == 0x4);
static_assert(PRINTER_ACCESS_USE == 0x8);

// ---- Settings ----------------------------------------------------------------------------------------------------

static_assert(CCHDEVICENAME == 32);
static_assert(CCHFORMNAME == 32);
static_assert(DM_ORIENTATION == 0x1);
static_assert(DM_PAPERSIZE == 0x2);
static_assert(DM_PAPERLENGTH == 0x4);
static_assert(DM_PAPERWIDTH == 0x8);
static_assert(DM_SCALE == 0x10);
static_assert(DM_COPIES == 0x100);
static_assert(DM_DEFAULTSOURCE == 0x200);
static_assert(DM_PRINTQUALITY == 0x400);
static_assert(DM_COLOR == 0x800);
static_assert(DM_DUPLEX == 0x1000);
static_assert(DM_YRESOLUTION == 0x2000);
static_assert(DM_TTOPTION == 0x4000);
static_assert(DM_COLLATE == 0x8000);
static_assert(DM_FORMNAME == 0x10000);
static_assert(DM_UPDATE == 1);
static_assert(DM_COPY == 2);
static_assert(DM_PROMPT == 4);
static_assert(DM_MODIFY == 8);
static_assert(DM_IN_BUFFER == 8);
static_assert(DM_IN_PROMPT == 4);
static_assert(DM_OUT_BUFFER == 2);
static_assert(DM_OUT_DEFAULT == 1);
static_assert(DMORIENT_PORTRAIT == 1);
static_assert(DMORIENT_LANDSCAPE == 2);
static_assert(DMPAPER_LETTER == 1);
static_assert(DMPAPER_LEGAL == 5);
static_assert(DMPAPER_A3 == 8);
static_assert(DMPAPER_A4 == 9);
static_assert(DMPAPER_A5 == 11);
static_assert(DMPAPER_USER == 256);

// ---- Capabilities ------------------------------------------------------------------------------------------------

static_assert(DC_FIELDS == 1);
static_assert(DC_PAPERS == 2);
static_assert(DC_PAPERSIZE == 3);
static_assert(DC_MINEXTENT == 4);
static_assert(DC_MAXEXTENT == 5);
static_assert(DC_BINS == 6);
static_assert(DC_DUPLEX == 7);
static_assert(DC_SIZE == 8);
static_assert(DC_EXTRA == 9);
static_assert(DC_VERSION == 10);
static_assert(DC_DRIVER == 11);
static_assert(DC_BINNAMES == 12);
static_assert(DC_ENUMRESOLUTIONS == 13);
static_assert(DC_FILEDEPENDENCIES == 14);
static_assert(DC_TRUETYPE == 15);
static_assert(DC_PAPERNAMES == 16);
static_assert(DC_ORIENTATION == 17);
static_assert(DC_COPIES == 18);
static_assert(DC_COLLATE == 22);
static_assert(DC_COLORDEVICE == 32);
