// GetFullPathNameW and GetFullPathNameA in a folder with links, directories and names of every kind, against their
// rules written out one after the other over realpath. Buffers are compared whole.
#include "fuzzing.h"
#include "kest/kernel/directories.h"

#include <climits>
#include <clocale>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;
using kest::fuzz::require;

constexpr std::size_t nothing = static_cast<std::size_t>(-1);
constexpr wchar_t wideSentinel = L'\x5A';
constexpr char sentinel = '\x5A';

// The folder in which the names are resolved, for the program's life.
class World
{
public:
    World()
    {
        std::setlocale(LC_ALL, "C.UTF-8");
        char pattern[] = "/tmp/kest-fuzz-XXXXXX";
        require(mkdtemp(pattern) != nullptr, "no folder can be made");
        path_ = pattern;
        fs::create_directories(path_ / "a/b/a");
        fs::create_directories(path_ / "\xC3\xA4");
        fs::create_directories(path_ / "\xFF");
        fs::create_directories(path_ / std::string(200, 'n'));
        std::FILE* const file = std::fopen((path_ / "a/f.x").c_str(), "w");
        require(file != nullptr && std::fclose(file) == 0, "no file can be made");
        fs::create_symlink("a/b", path_ / "l");
        fs::create_symlink("\xFF", path_ / "u");
        fs::create_symlink("o", path_ / "o");
        fs::create_symlink("missing", path_ / "d");
        fs::create_symlink("/", path_ / "r");
    }
    ~World()
    {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

bool isDirectory(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// What realpath leaves, in a buffer that is zeroed before.
std::string resolved(const std::string& name)
{
    std::string buffer(PATH_MAX, '\0');
    [[maybe_unused]] const char* const result = realpath(name.c_str(), buffer.data());
    return buffer.c_str();
}

// The whole text as the locale's wide text; false when it cannot be converted.
bool widen(const std::string& text, std::wstring& wide)
{
    wide.assign(text.size() + 1, L'\0');
    const std::size_t length = std::mbstowcs(wide.data(), text.c_str(), wide.size());
    wide.resize(length == nothing ? 0 : length);
    return length != nothing;
}

// A name and an extension longer than 255 characters are left out, the extension begins at the last dot.
std::wstring wideLastComponent(const std::wstring& path)
{
    std::size_t separator = path.rfind(L'/');
    if (separator == std::wstring::npos)
    {
        separator = path.rfind(L'\\');
    }
    const bool bare = separator == std::wstring::npos;
    const std::wstring component = bare ? path : path.substr(separator + 1);
    const std::size_t dot = component.rfind(L'.');
    const std::wstring name = component.substr(0, dot);
    const std::wstring extension = dot == std::wstring::npos ? L"" : component.substr(dot);
    return ((bare ? name : component).size() <= 255 ? name : L"") + (extension.size() <= 255 ? extension : L"");
}

void checkWide(const std::wstring& name, std::size_t size, bool inPlace)
{
    std::wstring buffer(size, wideSentinel);
    if (inPlace && name.size() < size)
    {
        buffer.replace(0, name.size() + 1, name + L'\0');
    }
    std::wstring expectedBuffer = buffer;
    std::wstring expected;
    std::size_t filePart = nothing;
    bool conversionFails = false;

    std::string narrow((name.size() + 1) * 4, '\0');
    const std::size_t bytes = std::wcstombs(narrow.data(), name.c_str(), narrow.size());
    if (!name.empty() && name.size() < size && bytes < size)
    {
        narrow.resize(bytes);
        std::string text = resolved(narrow);
        std::wstring unused;
        conversionFails = text.size() >= name.size() && text.size() < size && !widen(text, unused);
        if (text.size() < name.size() || text.size() >= size || !widen(text, expected))
        {
            text = narrow;
            require(widen(text, expected), "a narrowed name cannot be widened");
        }
        expectedBuffer.replace(0, expected.size() + 1, expected + L'\0');
        if (!isDirectory(text))
        {
            filePart = expected.find(wideLastComponent(expected));
        }
    }

    wchar_t untouched = 0;
    wchar_t* foundPart = &untouched;
    const wchar_t* const argument = inPlace && name.size() < size ? buffer.data() : name.c_str();
    const DWORD length = GetFullPathNameW(argument, static_cast<DWORD>(size), buffer.data(), &foundPart);
    require(length == expected.size(), "GetFullPathNameW's result");
    if (conversionFails)
    {
        // Behind the name stands what could be widened of the result.
        expectedBuffer.replace(length + 1, size, buffer.substr(length + 1));
    }
    require(buffer == expectedBuffer, "GetFullPathNameW's text");
    require(foundPart == (filePart == nothing ? &untouched : buffer.data() + filePart), "GetFullPathNameW's file part");
}

void checkNarrow(const std::string& name, std::size_t size, bool inPlace)
{
    std::string buffer(size, sentinel);
    if (inPlace && name.size() < size)
    {
        buffer.replace(0, name.size() + 1, name + '\0');
    }
    std::string expectedBuffer = buffer;
    std::string expected;
    std::size_t filePart = nothing;
    if (!name.empty() && name.size() < size)
    {
        expected = resolved(name);
        if (expected.size() < name.size() || expected.size() >= size)
        {
            expected = name;
            expectedBuffer.assign(size, '\0');
        }
        expectedBuffer.replace(0, expected.size() + 1, expected + '\0');
        if (!isDirectory(expected))
        {
            filePart = expected.find(expected.substr(expected.rfind('/') + 1)); // npos + 1 is 0
        }
    }

    char untouched = 0;
    char* foundPart = &untouched;
    const char* const argument = inPlace && name.size() < size ? buffer.data() : name.c_str();
    const DWORD length = GetFullPathNameA(argument, static_cast<DWORD>(size), buffer.data(), &foundPart);
    require(length == expected.size(), "GetFullPathNameA's result");
    require(buffer == expectedBuffer, "GetFullPathNameA's text");
    require(foundPart == (filePart == nothing ? &untouched : buffer.data() + filePart), "GetFullPathNameA's file part");
}

std::wstring pathText(FuzzedDataProvider& data)
{
    const std::wstring components[] = {L".",
                                       L"..",
                                       L"a",
                                       L"b",
                                       L"f.x",
                                       L"l",
                                       L"u",
                                       L"o",
                                       L"d",
                                       L"r",
                                       L"\u00e4",
                                       L"missing",
                                       L"a.b.c",
                                       L".hidden",
                                       L"tmp",
                                       L"x\\y",
                                       std::wstring(200, L'n'),
                                       std::wstring(256, L'm'),
                                       std::wstring(255, L'm') + L".e"};
    std::wstring text = data.ConsumeBool() ? L"/" : L"";
    for (auto count = data.ConsumeIntegralInRange<int>(0, 6); count > 0; --count)
    {
        text += data.ConsumeIntegral<std::uint8_t>() < 220 ? data.PickValueInArray(components)
                                                           : kest::fuzz::wideText(data, 6, L"/.abfl\\");
        text.append(data.ConsumeIntegralInRange<std::size_t>(0, 2), L'/');
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const World world;

    FuzzedDataProvider data(bytes, size);
    // Names just too long for the buffer, and results just too long, matter most.
    const auto room = data.ConsumeBool() ? data.ConsumeIntegralInRange<std::size_t>(0, 48)
                                         : data.ConsumeIntegralInRange<std::size_t>(0, 700);
    const bool inPlace = data.ConsumeBool();
    const std::wstring name = pathText(data);
    std::string narrowName((name.size() + 1) * 4, '\0');
    const std::size_t narrowLength = std::wcstombs(narrowName.data(), name.c_str(), narrowName.size());
    narrowName.resize(narrowLength == nothing ? 0 : narrowLength);

    const fs::path before = fs::current_path();
    fs::current_path(world.path());
    checkWide(name, room, inPlace);
    checkNarrow(narrowName, room, inPlace);
    fs::current_path(before);
    return 0;
}
