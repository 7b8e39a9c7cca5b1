// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/user_interface/printers.h"

#include <cstddef>

static_assert(sizeof(PRINTER_INFO_1W) == 32);
static_assert(offsetof(PRINTER_INFO_1W, Flags) == 0);
static_assert(offsetof(PRINTER_INFO_1W, pDescription) == 8);
static_assert(offsetof(PRINTER_INFO_1W, pName) == 16);
static_assert(offsetof(PRINTER_INFO_1W, pComment) == 24);

static_assert(sizeof(PRINTER_INFO_2W) == 136);
static_assert(offsetof(PRINTER_INFO_2W, pServerName) == 0);
static_assert(offsetof(PRINTER_INFO_2W, pPrinterName) == 8);
static_assert(offsetof(PRINTER_INFO_2W, pShareName) == 16);
static_assert(offsetof(PRINTER_INFO_2W, pPortName) == 24);
static_assert(offsetof(PRINTER_INFO_2W, pDriverName) == 32);
static_assert(offsetof(PRINTER_INFO_2W, pComment) == 40);
static_assert(offsetof(PRINTER_INFO_2W, pLocation) == 48);
static_assert(offsetof(PRINTER_INFO_2W, pDevMode) == 56);
static_assert(offsetof(PRINTER_INFO_2W, pSepFile) == 64);
static_assert(offsetof(PRINTER_INFO_2W, pPrintProcessor) == 72);
static_assert(offsetof(PRINTER_INFO_2W, pDatatype) == 80);
static_assert(offsetof(PRINTER_INFO_2W, pParameters) == 88);
static_assert(offsetof(PRINTER_INFO_2W, pSecurityDescriptor) == 96);
static_assert(offsetof(PRINTER_INFO_2W, Attributes) == 104);
static_assert(offsetof(PRINTER_INFO_2W, Priority) == 108);
static_assert(offsetof(PRINTER_INFO_2W, DefaultPriority) == 112);
static_assert(offsetof(PRINTER_INFO_2W, StartTime) == 116);
static_assert(offsetof(PRINTER_INFO_2W, UntilTime) == 120);
static_assert(offsetof(PRINTER_INFO_2W, Status) == 124);
static_assert(offsetof(PRINTER_INFO_2W, cJobs) == 128);
static_assert(offsetof(PRINTER_INFO_2W, AveragePPM) == 132);

static_assert(sizeof(PRINTER_INFO_4W) == 24);
static_assert(offsetof(PRINTER_INFO_4W, pPrinterName) == 0);
static_assert(offsetof(PRINTER_INFO_4W, pServerName) == 8);
static_assert(offsetof(PRINTER_INFO_4W, Attributes) == 16);

static_assert(sizeof(PRINTER_INFO_5W) == 32);
static_assert(offsetof(PRINTER_INFO_5W, pPrinterName) == 0);
static_assert(offsetof(PRINTER_INFO_5W, pPortName) == 8);
static_assert(offsetof(PRINTER_INFO_5W, Attributes) == 16);
static_assert(offsetof(PRINTER_INFO_5W, DeviceNotSelectedTimeout) == 20);
static_assert(offsetof(PRINTER_INFO_5W, TransmissionRetryTimeout) == 24);

static_assert(sizeof(PRINTER_DEFAULTSW) == 24);
static_assert(offsetof(PRINTER_DEFAULTSW, pDatatype) == 0);
static_assert(offsetof(PRINTER_DEFAULTSW, pDevMode) == 8);
static_assert(offsetof(PRINTER_DEFAULTSW, DesiredAccess) == 16);

static_assert(sizeof(FORM_INFO_1W) == 40);
static_assert(offsetof(FORM_INFO_1W, Flags) == 0);
static_assert(offsetof(FORM_INFO_1W, pName) == 8);
static_assert(offsetof(FORM_INFO_1W, Size) == 16);
static_assert(offsetof(FORM_INFO_1W, ImageableArea) == 24);

static_assert(sizeof(DEVMODEW) == 352);
static_assert(offsetof(DEVMODEW, dmDeviceName) == 0);
static_assert(offsetof(DEVMODEW, dmSpecVersion) == 128);
static_assert(offsetof(DEVMODEW, dmDriverVersion) == 130);
static_assert(offsetof(DEVMODEW, dmSize) == 132);
static_assert(offsetof(DEVMODEW, dmDriverExtra) == 134);
static_assert(offsetof(DEVMODEW, dmFields) == 136);
static_assert(offsetof(DEVMODEW, dmOrientation) == 140);
static_assert(offsetof(DEVMODEW, dmPaperSize) == 142);
static_assert(offsetof(DEVMODEW, dmPaperLength) == 144);
static_assert(offsetof(DEVMODEW, dmPaperWidth) == 146);
static_assert(offsetof(DEVMODEW, dmScale) == 148);
static_assert(offsetof(DEVMODEW, dmCopies) == 150);
static_assert(offsetof(DEVMODEW, dmDefaultSource) == 152);
static_assert(offsetof(DEVMODEW, dmPrintQuality) == 154);
static_assert(offsetof(DEVMODEW, dmPosition) == 140);
static_assert(offsetof(DEVMODEW, dmDisplayOrientation) == 148);
static_assert(offsetof(DEVMODEW, dmDisplayFixedOutput) == 152);
static_assert(offsetof(DEVMODEW, dmColor) == 156);
static_assert(offsetof(DEVMODEW, dmDuplex) == 158);
static_assert(offsetof(DEVMODEW, dmYResolution) == 160);
static_assert(offsetof(DEVMODEW, dmTTOption) == 162);
static_assert(offsetof(DEVMODEW, dmCollate) == 164);
static_assert(offsetof(DEVMODEW, dmFormName) == 168);
static_assert(offsetof(DEVMODEW, dmLogPixels) == 296);
static_assert(offsetof(DEVMODEW, dmBitsPerPel) == 300);
static_assert(offsetof(DEVMODEW, dmPelsWidth) == 304);
static_assert(offsetof(DEVMODEW, dmPelsHeight) == 308);
static_assert(offsetof(DEVMODEW, dmDisplayFlags) == 312);
static_assert(offsetof(DEVMODEW, dmNup) == 312);
static_assert(offsetof(DEVMODEW, dmDisplayFrequency) == 316);
static_assert(offsetof(DEVMODEW, dmICMMethod) == 320);
static_assert(offsetof(DEVMODEW, dmICMIntent) == 324);
static_assert(offsetof(DEVMODEW, dmMediaType) == 328);
static_assert(offsetof(DEVMODEW, dmDitherType) == 332);
static_assert(offsetof(DEVMODEW, dmReserved1) == 336);
static_assert(offsetof(DEVMODEW, dmReserved2) == 340);
static_assert(offsetof(DEVMODEW, dmPanningWidth) == 344);
static_assert(offsetof(DEVMODEW, dmPanningHeight) == 348);
