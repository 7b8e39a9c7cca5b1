#include "surroundings.h"

#include "kest/host/file_system_service.h"
#include "kest/host/registry_service.h"
#include "kest/host/system_service.h"

#include <filesystem>
#include <string_view>

namespace kest::benchmarks
{

namespace
{

struct Hub : test::StubHub
{
    Hub()
    {
        window = &idleWindow;
        dialog = &idleDialog;
        fileSystem = &hostFileSystem;
        registry = &hostRegistry;
        system = &hostSystem;
    }

    test::StubWindowService idleWindow;
    test::StubDialogService idleDialog;
    host::FileSystemService hostFileSystem;
    host::RegistryService hostRegistry{(scratch().path() / "registry.db").string()};
    host::SystemService hostSystem;
};

template <class Text>
Text repeated(const Text& pattern, long length)
{
    Text text;
    const auto wanted = static_cast<std::size_t>(length);
    while (text.size() < wanted)
    {
        text.append(pattern, 0, wanted - text.size());
    }
    return text;
}

constexpr std::string_view prose = "Every Module of the Application reads its Settings, opens its Files and goes on. ";

} // namespace

test::StubHub& hub()
{
    static Hub hub;
    return hub;
}

test::ScratchFolder& scratch()
{
    static test::ScratchFolder folder;
    return folder;
}

std::string fileOfSize(long size)
{
    const std::filesystem::path name = scratch().path() / ("bytes-" + std::to_string(size));
    if (!std::filesystem::exists(name))
    {
        scratch().write(name, narrowText(size));
    }
    return name.string();
}

std::string folderOfFiles(long count)
{
    const std::filesystem::path name = scratch().path() / ("files-" + std::to_string(count));
    if (!std::filesystem::exists(name))
    {
        for (long file = 0; file < count; ++file)
        {
            scratch().write(name / ("File" + std::to_string(file) + ".txt"), "");
        }
    }
    return name.string();
}

std::wstring wide(const std::string& text)
{
    return {text.begin(), text.end()};
}

std::wstring wideText(long length)
{
    return wide(narrowText(length));
}

std::string narrowText(long length)
{
    return repeated(std::string(prose), length);
}

std::wstring greekText(long length)
{
    return repeated(std::wstring(L"Ὁ δὲ Κῦρος ἀκούσας ταῦτα Ἐπορεύετο διὰ τῆς Χώρας. "), length);
}

std::wstring absentName(long length)
{
    return repeated(std::wstring(L"/nowhere"), length);
}

} // namespace kest::benchmarks
