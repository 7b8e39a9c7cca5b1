// Profile lookups beside reading the file.
#include "families.h"
#include "kest/host/profile_service.h"
#include "kest/kernel/profiles.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <fcntl.h>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 3;
constexpr long keys = 10'000;

struct LineEnding
{
    const char* name;
    const char* text;
};
constexpr std::array<LineEnding, 3> lineEndings = {{{"LF", "\n"}, {"CR LF", "\r\n"}, {"CR", "\r"}}};

std::string lastKey(long count)
{
    return "SomeLongerKeyName" + std::to_string(count - 1);
}

std::string valueOf(long key, const std::string& start)
{
    return start + std::to_string(key);
}

std::size_t lengthOfLast(long count)
{
    return valueOf(count - 1, "value ").size();
}

std::string profileOf(long count, const LineEnding& end, const std::string& value = "value ")
{
    std::string text = std::string("[Settings]") + end.text;
    for (long key = 0; key < count; ++key)
    {
        text.append(lastKey(key + 1)).append("=").append(valueOf(key, value)).append(end.text);
    }
    const std::string name = "profile-" + std::to_string(count) + end.name + std::to_string(value.size()) + ".ini";
    return scratch().write(name, text).string();
}

// The file's content, into memory of its size.
char readWhole(const char* path)
{
    const int descriptor = open(path, O_RDWR | O_CLOEXEC);
    const auto size = static_cast<std::size_t>(lseek(descriptor, 0, SEEK_END));
    lseek(descriptor, 0, SEEK_SET);
    const auto bytes = std::make_unique_for_overwrite<char[]>(size);
    benchmark::DoNotOptimize(read(descriptor, bytes.get(), size));
    close(descriptor);
    return bytes[size - 1];
}

// As GetPrivateProfileStringW looks values up without a host's profile service.
auto lookUp(const std::string& path, const std::wstring& key)
{
    return [=, name = wide(path), out = std::array<wchar_t, 256>()]() mutable
    { return GetPrivateProfileStringW(L"Settings", key.c_str(), L"", out.data(), 256, name.c_str()); };
}

// One that nothing derives from, so that it can be destroyed by its own name.
class HostProfiles final : public host::ProfileService
{
};

} // namespace

void addProfiles()
{
    const auto addLookUp = [](long count, const LineEnding& end)
    {
        addPreparedPair(
            "profiles/GetPrivateProfileStringW, last of " + std::to_string(count) + " keys, " + end.name, target,
            "open, read, close",
            [=]
            {
                const std::string path = profileOf(count, end);
                return std::pair(lookUp(path, wide(lastKey(count))), [=] { return readWhole(path.c_str()); });
            },
            {},
            [length = lengthOfLast(count), end = std::string_view(end.text)](DWORD ours, char baseline)
            { return ours == length && baseline == end.back(); });
    };
    for (const LineEnding& end : lineEndings)
    {
        addLookUp(keys, end);
    }
    addLookUp(10, lineEndings[0]);

    for (const LineEnding& end : lineEndings)
    {
        addGrowth(
            std::string("GetPrivateProfileStringW, last key, ") + end.name, "keys", keys / 100,
            [=](long count) { return lookUp(profileOf(count, end), wide(lastKey(count))); }, {}, NoneZero());
        addGrowth(
            std::string("GetPrivateProfileStringW, missing key, ") + end.name, "keys", keys / 100,
            [=](long count) { return lookUp(profileOf(count, end), L"NoSuchKey"); }, {}, AllZero());
    }
    // Values that a search must not skip unread: each could be a name too long.
    addGrowth(
        "GetPrivateProfileStringW, missing key, long lines", "keys", keys / 1000,
        [](long count) { return lookUp(profileOf(count, lineEndings[0], std::string(1200, 'v')), L"NoSuchKey"); }, {},
        AllZero());
    addGrowth(
        "read_profile_string, names of all keys", "keys", keys / 100,
        [](long count)
        {
            return [path = profileOf(count, lineEndings[0]),
                    out = std::string(static_cast<std::size_t>(count) * 32, '\0')]() mutable
            {
                std::string section = "Settings";
                return read_profile_string(section.data(), nullptr, nullptr, out.data(), static_cast<int>(out.size()),
                                           path.data());
            };
        },
        {}, NoneZero());
    addGrowth(
        "host: GetPrivateProfileStringW", "keys", keys / 500,
        [](long count)
        {
            return [service = std::make_shared<HostProfiles>(), path = wide(profileOf(count, lineEndings[1])),
                    key = wide(lastKey(count)), out = std::array<wchar_t, 256>()]() mutable
            { return service->GetPrivateProfileStringW(L"Settings", key.c_str(), L"", out.data(), 256, path.c_str()); };
        },
        {}, NoneZero());
    addGrowth(
        "host: GetPrivateProfileSectionW", "keys", keys / 500,
        [](long count)
        {
            return [service = std::make_shared<HostProfiles>(), path = wide(profileOf(count, lineEndings[1])),
                    out = std::wstring(static_cast<std::size_t>(count) * 64, L'\0')]() mutable {
                return service->GetPrivateProfileSectionW(L"Settings", out.data(), static_cast<DWORD>(out.size()),
                                                          path.c_str());
            };
        },
        {}, NoneZero());
    addGrowth(
        "host: WritePrivateProfileStringW", "keys", keys / 500,
        [](long count)
        {
            return [service = std::make_shared<HostProfiles>(), path = wide(profileOf(count, lineEndings[1])),
                    key = wide(lastKey(count)), other = false]() mutable
            {
                other = !other;
                return service->WritePrivateProfileStringW(L"Settings", key.c_str(), other ? L"1" : L"2", path.c_str());
            };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
