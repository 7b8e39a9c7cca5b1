#include "support/date.h"

std::wstring dateText(const SYSTEMTIME& date)
{
    wchar_t text[64];
    wsprintfW(text, L"%04u-%02u-%02u %02u:%02u:%02u", date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute,
              date.wSecond);
    return text;
}

std::wstring dateText(const FILETIME& time)
{
    FILETIME local;
    SYSTEMTIME date;
    const bool known = FileTimeToLocalFileTime(&time, &local) && FileTimeToSystemTime(&local, &date);
    return known ? dateText(date) : L"(unknown)";
}
