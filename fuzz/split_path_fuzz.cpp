// _splitpath against its rules written out plainly.
#include "fuzzing.h"
#include "kest/crt/path_splitting.h"

#include <cerrno>

namespace
{

using Narrow = kest::fuzz::Output<char>;

struct Split
{
    std::string dir;
    std::string fname;
    std::string ext;
};

// Every "/" moves what came before it into the directory, every dot what came before it into the name.
Split model(const std::string& path)
{
    Split split;
    bool separated = false;
    for (const char character : path)
    {
        if (character == '/')
        {
            split.dir += (separated ? "/" : "") + split.fname + split.ext;
            split.fname.clear();
            split.ext.clear();
            separated = true;
            continue;
        }
        if (character == '.')
        {
            split.fname += split.ext;
            split.ext.clear();
        }
        (character == '.' || !split.ext.empty() ? split.ext : split.fname) += character;
    }
    return split;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const std::string path = data.ConsumeBool() ? kest::fuzz::narrowText(data, 64, "//ab..\\%")
                                                : kest::fuzz::textOfRuns<char>(data, 300, "/a.");
    const bool isNull = data.ConsumeIntegralInRange<int>(0, 31) == 1;
    const Split expected = isNull ? Split() : model(path);
    const std::size_t room = path.size() + 1;
    Narrow drive(room);
    Narrow dir(room);
    Narrow fname(room);
    Narrow ext(room);
    errno = 77;
    _splitpath(isNull ? nullptr : path.c_str(), drive.data(), dir.data(), fname.data(), ext.data());
    kest::fuzz::require(errno == 77, "last error");
    kest::fuzz::require(drive == Narrow(room, ""), "drive");
    kest::fuzz::require(dir == Narrow(room, expected.dir), "directory");
    kest::fuzz::require(fname == Narrow(room, expected.fname), "name");
    kest::fuzz::require(ext == Narrow(room, expected.ext), "extension");
    return 0;
}
