// Wide wrappers beside the conversion and the call that they wrap.
#include "families.h"
#include "kest/crt/file_wrappers.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.1;

using Name = std::array<char, 4096>;

const char* narrowed(Name& name, const std::wstring& text)
{
    std::wcstombs(name.data(), text.c_str(), name.size());
    return name.data();
}

void addPairsFor(const std::string& suffix, const std::wstring& name)
{
    Name narrowName;
    std::fclose(std::fopen(narrowed(narrowName, name), "w"));
    addPair(
        "conversions/_wfopen and fclose" + suffix, target, "wcstombs twice, fopen, fclose",
        [=] { return std::fclose(_wfopen(name.c_str(), L"rb")); },
        [=]
        {
            Name path;
            Name mode;
            return std::fclose(std::fopen(narrowed(path, name), narrowed(mode, L"rb")));
        },
        {}, AllZero());
    addPair(
        "conversions/_waccess" + suffix, target, "setlocale, wcstombs, access",
        [=] { return _waccess(name.c_str(), R_OK); },
        [=]
        {
            std::setlocale(LC_CTYPE, "UTF-8");
            Name path;
            return access(narrowed(path, name), R_OK);
        },
        {}, AllZero());
    addPair(
        "conversions/_wstat" + suffix, target, "wcstombs, stat",
        [=]
        {
            struct stat status;
            return _wstat(name.c_str(), &status);
        },
        [=]
        {
            Name path;
            struct stat status;
            return stat(narrowed(path, name), &status);
        },
        {}, AllZero());
}

} // namespace

void addConversions()
{
    addPairsFor("", wide(scratch().path().string()) + L"/settings-of-the-application.ini");
    addPairsFor(", Greek name", wide(scratch().path().string()) + L"/ῥυθμίσεις-τῆς-ἐφαρμογῆς.ini");
    addPair(
        "conversions/_wgetcwd", target, "getcwd, mbstowcs, free",
        [out = std::array<wchar_t, 1024>()]() mutable { return _wgetcwd(out.data(), 1024); },
        [out = std::array<wchar_t, 1024>()]() mutable
        {
            char* const folder = getcwd(nullptr, 0);
            std::mbstowcs(out.data(), folder, out.size());
            std::free(folder);
            return out[0];
        },
        {}, [](const wchar_t* ours, wchar_t baseline) { return ours != nullptr && *ours == baseline; });

    // Conversion into scratch of a fixed size, which takes 4095 bytes, and into scratch of the text's size.
    const auto growName = [](const std::string& name, auto function)
    {
        addGrowth(
            name, "characters", 40,
            [=](long length) { return [=, text = absentName(length)] { return function(text.c_str()); }; }, {},
            [](auto result)
            {
                // No function finds anything under such a name.
                if constexpr (std::is_pointer_v<decltype(result)>)
                {
                    return result == nullptr;
                }
                else
                {
                    return result == -1;
                }
            });
    };
    using Name = const wchar_t*;
    growName("_wfopen", [](Name name) { return _wfopen(name, L"r"); });
    growName("_wfindfirst", [](Name name) { return _wfindfirst(name, nullptr); });
    growName("_wrename", [](Name name) { return _wrename(name, name); });
    growName("_wremove", [](Name name) { return _wremove(name); });
    growName("_wstat",
             [](Name name)
             {
                 struct stat status;
                 return _wstat(name, &status);
             });
    growName("_wsetlocale", [](Name name) { return _wsetlocale(LC_NUMERIC, name); });
    growName("_waccess", [](Name name) { return _waccess(name, R_OK); });
    addGrowth(
        "_waccess, Greek name", "characters", 40,
        [](long length) { return [text = L"/" + greekText(length)] { return _waccess(text.c_str(), R_OK); }; }, {},
        [](int result) { return result == -1; });
    addGrowth(
        "_wfullpath", "characters", 10,
        [](long length)
        {
            return [text = wide(std::string(static_cast<std::size_t>(length), '/')),
                    out = std::array<wchar_t, 64>()]() mutable
            { return _wfullpath(out.data(), text.c_str(), out.size()); };
        },
        {}, NoneZero());
    addGrowth(
        "_wputenv", "characters", 40,
        [](long length)
        {
            constexpr const char* variable = "KEST_BENCHMARK";
            return [text = wide(variable) + L"=" + wideText(length)]
            {
                const int result = _wputenv(text.c_str());
                // The environment keeps a copy of every text that is put there.
                char* const copy = std::getenv(variable) - std::strlen(variable) - 1;
                unsetenv(variable);
                std::free(copy);
                return result;
            };
        },
        {}, AllZero());
    addGrowth(
        "_wgetenv", "bytes", 1000,
        [](long length)
        {
            const std::string variable = "KEST_BENCHMARK_" + std::to_string(length);
            setenv(variable.c_str(), narrowText(length).c_str(), 1);
            return [name = wide(variable)]
            {
                wchar_t* const value = _wgetenv(name.c_str());
                std::free(value);
                return value != nullptr;
            };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
