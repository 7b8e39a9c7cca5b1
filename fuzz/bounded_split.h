// The rules of the splitters that take sizes, written out plainly, and the check of one call against them. How text
// that does not fit is cut is the width's own.
#pragma once

#include "fuzzing.h"

#include <cerrno>
#include <string>
#include <vector>

namespace kest::fuzz
{

// What one call is given for one of its outputs.
template <class CharT>
struct SizedOutput
{
    bool isNull;
    std::size_t size;
    Output<CharT> buffer;

    bool isMissing() const { return isNull && size != 0; }
    bool isWanted() const { return !isNull && size != 0; }
    CharT* data() { return isNull ? nullptr : buffer.data(); }
};

template <class CharT>
struct SizedOutputs
{
    SizedOutput<CharT> drive;
    SizedOutput<CharT> dir;
    SizedOutput<CharT> fname;
    SizedOutput<CharT> ext;
};

// As the C library's bounded prints leave it: the narrow one ends cut text with a terminator, the wide one does not,
// unless there is room for that alone.
inline void print(SizedOutput<char>& output, const std::string& text)
{
    if (output.isWanted())
    {
        output.buffer.put(text.substr(0, output.size - 1) + '\0');
    }
}

inline void print(SizedOutput<wchar_t>& output, const std::wstring& text)
{
    if (!output.isWanted())
    {
        return;
    }
    const bool ends = text.size() < output.size || output.size == 1;
    output.buffer.put(text.substr(0, output.size - 1) + (ends ? std::wstring(1, L'\0') : std::wstring()));
}

template <class CharT>
std::vector<std::basic_string<CharT>> componentsOf(const std::basic_string<CharT>& path)
{
    std::vector<std::basic_string<CharT>> components;
    bool inside = false;
    for (const CharT character : path)
    {
        if (character == CharT('/'))
        {
            inside = false;
            continue;
        }
        if (!inside)
        {
            components.emplace_back();
            inside = true;
        }
        components.back() += character;
    }
    return components;
}

template <class CharT>
int modelOfName(const std::basic_string<CharT>& name, SizedOutput<CharT>& fname, SizedOutput<CharT>& ext)
{
    const std::size_t dot = name.rfind(CharT('.'));
    if (dot == std::basic_string<CharT>::npos)
    {
        if (!fname.isNull && fname.size >= name.size() + 1)
        {
            fname.buffer.put(name + CharT());
        }
        return 0;
    }
    if (fname.isWanted())
    {
        if (fname.size < dot + 1)
        {
            return 1;
        }
        fname.buffer.put(name.substr(0, dot) + CharT());
    }
    if (ext.isWanted())
    {
        if (dot + ext.size < name.size() + 1)
        {
            return 1;
        }
        ext.buffer.put(name.substr(dot) + CharT());
    }
    return 0;
}

// The result; `printed` receives what appears on standard output.
template <class CharT>
int modelOfBoundedSplit(std::basic_string<CharT> path, SizedOutputs<CharT>& outputs, std::string& printed)
{
    using Text = std::basic_string<CharT>;
    if (path.empty())
    {
        return 1;
    }
    for (CharT& character : path)
    {
        character = character == CharT('\\') ? CharT('/') : character;
    }
    if (path.find(CharT('/')) == Text::npos)
    {
        return modelOfName(path, outputs.fname, outputs.ext);
    }
    const std::vector<Text> components = componentsOf(path);
    if (components.empty())
    {
        printed = "failed!\n";
        return 1;
    }
    if (outputs.drive.isMissing())
    {
        return 1;
    }
    print(outputs.drive, components[0]);
    Text directory;
    Text name;
    for (std::size_t index = 1; index < components.size(); ++index)
    {
        const Text& component = components[index];
        const std::size_t dot = component.rfind(CharT('.'));
        if (dot != Text::npos)
        {
            if (outputs.ext.isMissing())
            {
                return 1;
            }
            name = component;
            print(outputs.ext, component.substr(dot));
        }
        else if (index + 1 == components.size())
        {
            name = component;
        }
        else if (outputs.dir.size > 0)
        {
            directory = (directory + CharT('/') + component).substr(0, outputs.dir.size - 1);
        }
    }
    if (outputs.dir.isMissing())
    {
        return 1;
    }
    print(outputs.dir, directory);
    // Without a second component there is no name, which counts as one of dots only.
    if (name.find_first_not_of(CharT('.')) == Text::npos || outputs.fname.isMissing())
    {
        return 1;
    }
    print(outputs.fname, name.substr(0, name.find(CharT('.'))));
    return 0;
}

// Everything that is written to standard output, which is memory from here on.
class CapturedStandardOutput
{
public:
    CapturedStandardOutput() { stdout = open_memstream(&text_, &size_); }

    std::string take()
    {
        std::fflush(stdout);
        std::string taken(text_, size_);
        std::fseek(stdout, 0, SEEK_SET);
        return taken;
    }

private:
    char* text_ = nullptr;
    std::size_t size_ = 0;
};

template <class CharT>
SizedOutput<CharT> sizedOutput(FuzzedDataProvider& data, std::size_t largest)
{
    const bool isNull = data.ConsumeIntegralInRange<int>(0, 15) == 0;
    const std::size_t size = data.ConsumeIntegralInRange<std::size_t>(0, data.ConsumeBool() ? 8 : largest);
    return {isNull, size, Output<CharT>(size)};
}

template <class CharT>
SizedOutput<CharT> fresh(const SizedOutput<CharT>& output)
{
    return {output.isNull, output.size, Output<CharT>(output.size)};
}

// One call of `split` against the model.
template <class CharT, class Function>
void checkBoundedSplit(Function& split, const std::basic_string<CharT>& path, FuzzedDataProvider& data)
{
    static CapturedStandardOutput standardOutput;
    SizedOutputs<CharT> ours = {sizedOutput<CharT>(data, 40), sizedOutput<CharT>(data, 4096),
                                sizedOutput<CharT>(data, 40), sizedOutput<CharT>(data, 40)};
    SizedOutputs<CharT> expected = {fresh(ours.drive), fresh(ours.dir), fresh(ours.fname), fresh(ours.ext)};
    std::string printed;
    const bool isNull = data.ConsumeIntegralInRange<int>(0, 31) == 1;
    const int expectedResult = isNull ? 1 : modelOfBoundedSplit(path, expected, printed);
    errno = 77;
    const int result = split(isNull ? nullptr : path.c_str(), ours.drive.data(), ours.drive.size, ours.dir.data(),
                             ours.dir.size, ours.fname.data(), ours.fname.size, ours.ext.data(), ours.ext.size);
    require(errno == 77, "last error");
    require(result == expectedResult, "result");
    require(ours.drive.buffer == expected.drive.buffer, "drive");
    require(ours.dir.buffer == expected.dir.buffer, "directory");
    require(ours.fname.buffer == expected.fname.buffer, "name");
    require(ours.ext.buffer == expected.ext.buffer, "extension");
    require(standardOutput.take() == printed, "standard output");
}

} // namespace kest::fuzz
