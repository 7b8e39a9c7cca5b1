/*
 * Kest Platform Base, porting kit: the assertions and reports of the debug C runtime. As in a release build on Windows
 * they do nothing; with _DEBUG, _ASSERT and _ASSERTE are the C library'\''s assert.
 */
#ifndef KEST_WINDOWS_CRTDBG_H
#define KEST_WINDOWS_CRTDBG_H

#include <assert.h>

#ifdef _DEBUG
#define _ASSERT(expression) assert(expression)
#define _ASSERTE(expression) assert(expression)
#define _ASSERT_EXPR(expression, message) assert(expression)
#else
#define _ASSERT(expression) ((void)0)
#define _ASSERTE(expression) ((void)0)
#define _ASSERT_EXPR(expression, message) ((void)0)
#endif
#define _RPT0(...) ((void)0)
#define _RPT1(...) ((void)0)
#define _RPT2(...) ((void)0)
#define _RPT3(...) ((void)0)
#define _RPT4(...) ((void)0)
#define _RPTF0(...) ((void)0)
#define _RPTF1(...) ((void)0)
#define _RPTF2(...) ((void)0)
#define _RPTF3(...) ((void)0)
#define _RPTF4(...) ((void)0)
#define _RPTW0(...) ((void)0)
#define _RPTW1(...) ((void)0)
#define _RPTW2(...) ((void)0)
#define _RPTW3(...) ((void)0)
#define _RPTW4(...) ((void)0)

/* Kinds and ways of reports. */
#define _CRT_WARN 0
#define _CRT_ERROR 1
#define _CRT_ASSERT 2
#define _CRT_ERRCNT 3
#define _CRTDBG_MODE_FILE 0x1
#define _CRTDBG_MODE_DEBUG 0x2
#define _CRTDBG_MODE_WNDW 0x4
#define _CRTDBG_REPORT_MODE (-1)
#define _CRTDBG_ALLOC_MEM_DF 0x01
#define _CRTDBG_DELAY_FREE_MEM_DF 0x02
#define _CRTDBG_CHECK_ALWAYS_DF 0x04
#define _CRTDBG_CHECK_CRT_DF 0x10
#define _CRTDBG_LEAK_CHECK_DF 0x20
#define _CRTDBG_REPORT_FLAG (-1)

#define _CrtSetReportMode(kind, mode) ((int)0)
#define _CrtSetDbgFlag(flags) ((int)0)
#define _CrtSetBreakAlloc(allocation) ((long)0)
#define _CrtDumpMemoryLeaks() ((int)0)
#define _CrtCheckMemory() ((int)1)
#define _CrtDbgBreak() ((void)0)

#endif
