// Dates as the report shows them.
#pragma once

#include <windows.h>

#include <string>

// "2026-01-31 23:59:59".
std::wstring dateText(const SYSTEMTIME& date);

// A file's time as a date in local time.
std::wstring dateText(const FILETIME& time);
