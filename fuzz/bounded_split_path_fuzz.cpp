// _splitpath_s against its rules. Paths of 1024 bytes and directory sizes above 4096 end the process and stay out.
#include "bounded_split.h"
#include "kest/crt/path_splitting.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const std::string path = data.ConsumeBool() ? kest::fuzz::narrowText(data, 64, "///ab..\\%")
                                                : kest::fuzz::textOfRuns<char>(data, 1023, "/\\a.");
    kest::fuzz::checkBoundedSplit(_splitpath_s, path, data);
    return 0;
}
