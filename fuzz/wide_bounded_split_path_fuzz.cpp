// _wsplitpath_s against its rules. Paths of 1024 characters and directory sizes above 4096 end the process and stay
// out.
#include "bounded_split.h"
#include "kest/crt/path_splitting.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const std::wstring path = data.ConsumeBool() ? kest::fuzz::wideText(data, 64, L"///ab..\\%")
                                                 : kest::fuzz::textOfRuns<wchar_t>(data, 1023, L"/\\a.");
    kest::fuzz::checkBoundedSplit(_wsplitpath_s, path, data);
    return 0;
}
