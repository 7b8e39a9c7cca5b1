// _wsplitpath against its rules written out plainly, with every selection of outputs and around its limits.
#include "fuzzing.h"
#include "kest/crt/path_splitting.h"

#include <cerrno>
#include <optional>

namespace
{

using Wide = kest::fuzz::Output<wchar_t>;

struct Split
{
    std::wstring dir;
    std::wstring fname;
    std::wstring ext;
};

constexpr std::size_t none = std::wstring::npos;

std::size_t lastOf(const std::wstring& text, wchar_t wanted)
{
    for (std::size_t position = text.size(); position > 0; --position)
    {
        if (text[position - 1] == wanted)
        {
            return position - 1;
        }
    }
    return none;
}

Split modelWithoutSeparator(const std::wstring& path)
{
    Split split;
    const std::size_t dot = lastOf(path, L'.');
    const std::wstring stem = path.substr(0, dot);
    if (stem.size() <= 255)
    {
        split.fname = stem;
    }
    if (dot != none && path.size() - dot <= 255)
    {
        split.ext = path.substr(dot);
    }
    return split;
}

Split model(const std::wstring& path, bool nameIsWanted)
{
    std::size_t separator = lastOf(path, L'/');
    if (separator == none)
    {
        separator = lastOf(path, L'\\');
    }
    if (separator == none)
    {
        return modelWithoutSeparator(path);
    }
    Split split;
    if (separator < 1025)
    {
        split.dir = path.substr(0, separator + 1);
    }
    const std::wstring rest = path.substr(separator + 1);
    if (nameIsWanted && !rest.empty() && rest.size() <= 255)
    {
        const std::size_t dot = lastOf(rest, L'.');
        split.fname = rest.substr(0, dot);
        split.ext = dot == none ? L"" : rest.substr(dot);
        return split;
    }
    const std::size_t dot = lastOf(path, L'.');
    if (dot != none && dot > separator && path.size() - dot <= 255)
    {
        split.ext = path.substr(dot);
    }
    return split;
}

// An output of the function's, or none.
class Wanted
{
public:
    Wanted(bool wanted, std::size_t room) : room_(room)
    {
        if (wanted)
        {
            output_.emplace(room);
        }
    }

    wchar_t* data() { return output_ ? output_->data() : nullptr; }

    void check(const std::wstring& expected, const char* what) const
    {
        kest::fuzz::require(!output_ || *output_ == Wide(room_, expected), what);
    }

private:
    std::size_t room_;
    std::optional<Wide> output_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const bool nameIsWanted = data.ConsumeBool();
    Wanted drive(data.ConsumeBool(), 1);
    Wanted dir(data.ConsumeBool(), 1026);
    Wanted fname(nameIsWanted, 256);
    Wanted ext(data.ConsumeBool(), 256);
    const std::wstring path = data.ConsumeBool() ? kest::fuzz::wideText(data, 64, L"/\\ab..%")
                                                 : kest::fuzz::textOfRuns<wchar_t>(data, 1200, L"/\\a.");
    const bool isNull = data.ConsumeIntegralInRange<int>(0, 31) == 1;
    errno = 77;
    _wsplitpath(isNull ? nullptr : path.c_str(), drive.data(), dir.data(), fname.data(), ext.data());
    kest::fuzz::require(errno == 77, "last error");
    const Split expected = isNull ? Split() : model(path, nameIsWanted);
    drive.check(L"", "drive");
    dir.check(expected.dir, "directory");
    fname.check(expected.fname, "name");
    ext.check(expected.ext, "extension");
    return 0;
}
