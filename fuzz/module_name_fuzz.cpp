// ToPlatformModuleName against its rules written out one after the other.
#include "fuzzing.h"
#include "kest/kernel/modules.h"

namespace
{

std::wstring lowered(std::wstring text)
{
    for (wchar_t& character : text)
    {
        if (character >= L'A' && character <= L'Z')
        {
            character = static_cast<wchar_t>(character + 32);
        }
    }
    return text;
}

std::wstring model(const std::wstring& name)
{
    if (name.empty())
    {
        return name;
    }
    std::wstring directory;
    std::wstring file;
    for (const wchar_t character : name)
    {
        file += character;
        if (character == L'/')
        {
            directory += file;
            file.clear();
        }
    }
    std::wstring stem;
    std::wstring extension;
    for (const wchar_t character : file)
    {
        if (character == L'.')
        {
            stem += extension;
            extension.clear();
        }
        (character == L'.' || !extension.empty() ? extension : stem) += character;
    }
    if (lowered(extension) == L".dll" || extension.empty())
    {
        extension = L".so";
    }
    const bool prefixed = stem.size() >= 4 && lowered(stem.substr(0, 3)) == L"lib";
    return directory + (prefixed ? L"" : L"lib") + stem + extension;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const std::wstring name = kest::fuzz::wideText(data, 64, L"libLIB.dllDLL/so\\aq\u0130");
    kest::fuzz::require(ToPlatformModuleName(name.c_str()) == model(name), "module name");
    return 0;
}
