// Compiled for Windows: names with the decorations of imports, calling conventions and C++.
extern "C"
{
    __declspec(dllimport) int __stdcall GetACP();
    __declspec(dllimport) void* __stdcall LocalFree(void*);
    int __stdcall MulDiv(int, int, int);
    int _wtoi(const wchar_t*);
    int __fastcall fast(int, int);
}

int decorated(int);

extern "C" int useEverything()
{
    return GetACP() + (LocalFree(nullptr) != nullptr) + MulDiv(1, 2, 3) + _wtoi(L"1") + fast(1, 2) + decorated(1);
}
