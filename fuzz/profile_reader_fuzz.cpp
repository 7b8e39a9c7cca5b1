// read_profile_string against the model that its tests use, and GetPrivateProfileStringW without a host against the
// same model between the C library's conversions. Buffers are compared whole; process ends are answers as well.
#include "config/process_end.h"
#include "config/profile_model.h"
#include "fuzzing.h"
#include "kest/kernel/profiles.h"

#include <climits>
#include <clocale>
#include <cwchar>
#include <optional>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

using kest::fuzz::require;
using kest::test::endsProcess;
using kest::test::processEnd;
using kest::test::ProfileAnswer;
using kest::test::ProfileModel;
using Text = std::optional<std::string>;
using WideText = std::optional<std::wstring>;

constexpr std::size_t longestContent = 1024;
constexpr char sentinel = '\x5A';
constexpr wchar_t wideSentinel = L'\x5A';

// The one file that is read, in memory.
class ProfileFile
{
public:
    ProfileFile() : descriptor_(memfd_create("profile", MFD_CLOEXEC)) {}

    void write(const std::string& content) const
    {
        require(ftruncate(descriptor_, 0) == 0 &&
                    pwrite(descriptor_, content.data(), content.size(), 0) == static_cast<ssize_t>(content.size()),
                "the file cannot be written");
    }
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

std::string narrowed(const std::wstring& text)
{
    std::string result;
    for (const wchar_t character : text)
    {
        char bytes[MB_LEN_MAX];
        std::mbstate_t state = {};
        const std::size_t count = std::wcrtomb(bytes, character, &state);
        if (count == static_cast<std::size_t>(-1))
        {
            break;
        }
        result.append(bytes, count);
    }
    return result;
}

std::wstring widened(const std::string& text)
{
    std::wstring result;
    for (std::size_t at = 0; at < text.size();)
    {
        wchar_t character = 0;
        std::mbstate_t state = {};
        const std::size_t count = std::mbrtowc(&character, text.data() + at, text.size() - at, &state);
        if (count == 0 || count > text.size() - at)
        {
            break;
        }
        result += character;
        at += count;
    }
    return result;
}

// A control character stands for so many of the character before it that a name may end the process, or just not:
// few inputs would have as many themselves.
std::string profileContent(FuzzedDataProvider& data)
{
    constexpr char firstMark = '\x10';
    constexpr char lastMark = '\x1F';
    constexpr std::size_t shortestRun = 1016;
    constexpr int mostRuns = 4;
    int runs = 0;
    std::string content;
    for (const char character : data.ConsumeBytesAsString(longestContent))
    {
        const bool isMark = character >= firstMark && character <= lastMark && !content.empty() && runs < mostRuns;
        content.append(isMark ? shortestRun + static_cast<std::size_t>(character - firstMark) : 1,
                       isMark ? content.back() : character);
        runs += isMark ? 1 : 0;
    }
    return content;
}

char* writable(Text& text)
{
    return text ? text->data() : nullptr;
}

const wchar_t* given(const WideText& text)
{
    return text ? text->c_str() : nullptr;
}

void checkReader(const std::string& content, const std::string& path, Text section, Text key, Text defaultValue,
                 int size)
{
    const std::size_t room = size > 0 ? static_cast<std::size_t>(size) : 0;
    ProfileAnswer answer = {0, std::string(room, sentinel)};
    std::string file = path;
    const bool ended = endsProcess(
        [&]
        {
            answer.count = read_profile_string(writable(section), writable(key), writable(defaultValue),
                                               answer.buffer.data(), size, file.data());
        });
    const ProfileAnswer expected = room < 2 ? ProfileAnswer{0, std::string(room, '\0')}
                                            : ProfileModel(content, room).ask(section, key, defaultValue);
    require((ended ? processEnd : answer) == expected, "read_profile_string");
}

void checkWide(const std::string& content, const std::string& path, const WideText& section, const WideText& key,
               const WideText& defaultValue, DWORD size)
{
    std::wstring buffer(size, wideSentinel);
    const std::wstring file(path.begin(), path.end());
    DWORD count = 0;
    const bool ended = endsProcess(
        [&]
        {
            count = GetPrivateProfileStringW(given(section), given(key), given(defaultValue), buffer.data(), size,
                                             file.c_str());
        });
    ProfileAnswer expected = {0, ""};
    if (size >= 2)
    {
        // Names that are not given are empty ones here: nothing is listed.
        expected = ProfileModel(content, size)
                       .ask(narrowed(section.value_or(L"")), narrowed(key.value_or(L"")),
                            narrowed(defaultValue.value_or(L"")));
    }
    require(ended == expected.endsProcess, "GetPrivateProfileStringW's process end");
    if (ended)
    {
        return;
    }
    std::wstring expectedBuffer(size, wideSentinel);
    if (size > 0)
    {
        const std::wstring text = widened(expected.buffer.c_str());
        expectedBuffer.replace(0, text.size() + 1, text + L'\0');
    }
    require(count == static_cast<DWORD>(expected.count), "GetPrivateProfileStringW's result");
    require(buffer == expectedBuffer, "GetPrivateProfileStringW's text");
}

template <class CharT, class Make>
std::optional<std::basic_string<CharT>> optionalText(FuzzedDataProvider& data, Make make,
                                                     const std::basic_string<CharT>& alphabet)
{
    constexpr std::size_t longest = 10;
    if (data.ConsumeIntegral<std::uint8_t>() % 8 == 0)
    {
        return std::nullopt;
    }
    return make(data, longest, alphabet);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const ProfileFile file;
    [[maybe_unused]] static const char* const locale = std::setlocale(LC_ALL, "C.UTF-8");

    // Numbers are taken from the end of the input, so that a corpus file begins with the profile's own text.
    FuzzedDataProvider data(bytes, size);
    const auto room = data.ConsumeIntegralInRange<int>(-1, 100);
    const bool wide = data.ConsumeBool();
    const std::string names = "AABBxy []\t=;\"";
    const std::wstring wideNames = L"AABBxy []\t=;\"\u00e4\u6f22\xd800";
    const auto narrowName = [&] { return optionalText<char>(data, kest::fuzz::narrowText, names); };
    const auto wideName = [&] { return optionalText<wchar_t>(data, kest::fuzz::wideText, wideNames); };
    if (wide)
    {
        const WideText section = wideName();
        const WideText key = wideName();
        const WideText defaultValue = wideName();
        const std::string content = profileContent(data);
        file.write(content);
        checkWide(content, file.path(), section, key, defaultValue, static_cast<DWORD>(room < 0 ? 0 : room));
    }
    else
    {
        const Text section = narrowName();
        const Text key = narrowName();
        const Text defaultValue = narrowName();
        const std::string content = profileContent(data);
        file.write(content);
        checkReader(content, file.path(), section, key, defaultValue, room);
    }
    return 0;
}
