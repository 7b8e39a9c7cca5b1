// A module that has one of the functions of a plug-in and lacks the others.
extern "C" __attribute__((visibility("default"))) const wchar_t* AnalyserTitle();

const wchar_t* AnalyserTitle()
{
    return L"Lacking";
}
