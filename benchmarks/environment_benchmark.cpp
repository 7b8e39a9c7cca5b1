// Environment and working directory beside the calls behind them.
#include "families.h"
#include "kest/kernel/environment.h"
#include "kest/kernel/memory.h"
#include "kest/kernel/time.h"
#include "kest/shell_paths.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <unistd.h>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.3;

} // namespace

void addEnvironment()
{
    addPair(
        "environment/GetEnvironmentVariableW", target, "popen, fgets, pclose",
        [out = std::array<wchar_t, 4096>()]() mutable { return GetEnvironmentVariableW(L"HOME", out.data(), 4096); },
        []
        {
            std::array<char, 4096> line;
            std::FILE* const shell = popen("echo $HOME", "r");
            benchmark::DoNotOptimize(std::fgets(line.data(), static_cast<int>(line.size()), shell));
            return pclose(shell);
        });
    addPair(
        "environment/GetCurrentDirectoryW", target, "getcwd, mbstowcs, free",
        [out = std::array<wchar_t, 1024>()]() mutable { return GetCurrentDirectoryW(1024, out.data()); },
        [out = std::array<wchar_t, 1024>()]() mutable
        {
            char* const folder = getcwd(nullptr, 0);
            const std::size_t length = std::mbstowcs(out.data(), folder, out.size());
            std::free(folder);
            return length;
        });
    addPair(
        "environment/GetTickCount64", target, "clock_gettime", [] { return GetTickCount64(); },
        []
        {
            timespec now;
            clock_gettime(CLOCK_MONOTONIC, &now);
            return now.tv_sec * 1000 + now.tv_nsec / 1'000'000;
        });
    addPair(
        "environment/GetLocalTime", target, "time, tzset, localtime_r, clock_gettime",
        []
        {
            SYSTEMTIME now;
            GetLocalTime(&now);
            return now.wSecond;
        },
        []
        {
            const std::time_t seconds = std::time(nullptr);
            std::tm parts;
            tzset();
            localtime_r(&seconds, &parts);
            timespec now;
            clock_gettime(CLOCK_REALTIME, &now);
            return parts.tm_sec;
        });
    addPair(
        "environment/HeapAlloc, HeapFree, 64 bytes", target, "calloc, free",
        [] { return HeapFree(nullptr, 0, HeapAlloc(nullptr, 0, 64)); },
        []
        {
            void* const memory = std::calloc(64, 1);
            benchmark::DoNotOptimize(memory);
            std::free(memory);
        });
    // Through a shell, which takes what a converted text can have: 4095 bytes.
    addGrowth("GetEnvironmentVariableW", "bytes", 40,
              [](long length)
              {
                  const std::string variable = "KEST_BENCHMARK_OF_" + std::to_string(length);
                  setenv(variable.c_str(), narrowText(length).c_str(), 1);
                  return [name = wide(variable), out = std::array<wchar_t, 4096>()]() mutable
                  { return GetEnvironmentVariableW(name.c_str(), out.data(), 4096); };
              });
    addGrowth("SetEnvironmentVariableW", "characters", 40,
              [](long length)
              { return [value = wideText(length)] { return SetEnvironmentVariableW(L"NAME", value.c_str()); }; });
    addGrowth("CreateProcessW", "characters", 40,
              [](long length)
              {
                  return [arguments = wideText(length)] {
                      return CreateProcessW(L":", arguments.c_str(), nullptr, nullptr, 0, 0, nullptr, nullptr, nullptr,
                                            nullptr);
                  };
              });
    addGrowth("ShellExecuteW", "characters", 40,
              [](long length)
              {
                  return [arguments = wideText(length)]
                  { return ShellExecuteW(nullptr, L":", L"file", arguments.c_str(), nullptr, 0); };
              });
    addGrowth("HeapAlloc, HeapFree", "bytes", 1000,
              [](long bytes) {
                  return [size = static_cast<SIZE_T>(bytes)]
                  { return HeapFree(nullptr, 0, HeapAlloc(nullptr, 0, size)); };
              });
    addGrowth("GlobalAlloc, GlobalReAlloc to twice, GlobalFree", "bytes", 500,
              [](long bytes)
              {
                  return [size = static_cast<SIZE_T>(bytes)]
                  { return GlobalFree(GlobalReAlloc(GlobalAlloc(0, size), 2 * size, GMEM_MOVEABLE)); };
              });
    addGrowth("ExpandEnvironmentStringsW", "characters", 1000,
              [](long length)
              {
                  std::wstring text;
                  while (text.size() < static_cast<std::size_t>(length))
                  {
                      text += L"%HOME% and ";
                  }
                  return [=, out = std::wstring(text.size() * 8, L'\0')]() mutable
                  { return ExpandEnvironmentStringsW(text.c_str(), out.data(), static_cast<DWORD>(out.size())); };
              });
}

} // namespace kest::benchmarks
