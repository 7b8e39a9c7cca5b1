// Wide wrappers beside the conversion and the call that they wrap.
#include "families.h"
#include "kest/crt/file_wrappers.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
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
        });
    addPair(
        "conversions/_waccess" + suffix, target, "setlocale, wcstombs, access",
        [=] { return _waccess(name.c_str(), R_OK); },
        [=]
        {
            std::setlocale(LC_CTYPE, "UTF-8");
            Name path;
            return access(narrowed(path, name), R_OK);
        });
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
        });
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
        });

    // Names of components that do not exist: the text is converted, the kernel answers at once.
    const auto growName = [](const std::string& name, const std::wstring& pattern)
    {
        addGrowth(name, "characters", 40,
                  [=](long length)
                  {
                      std::wstring text;
                      while (text.size() < static_cast<std::size_t>(length))
                      {
                          text += pattern;
                      }
                      return [=] { return _waccess(text.c_str(), R_OK); };
                  });
    };
    growName("_waccess", L"/nowhere");
    growName("_waccess, Greek name", L"/οὐδαμοῦ");
    addGrowth("_wgetenv", "bytes", 1000,
              [](long length)
              {
                  const std::string variable = "KEST_BENCHMARK_" + std::to_string(length);
                  setenv(variable.c_str(), narrowText(length).c_str(), 1);
                  return [name = wide(variable)] { std::free(_wgetenv(name.c_str())); };
              });
}

} // namespace kest::benchmarks
