#include "harness/locale_requests.h"

#include <clocale>
#include <dlfcn.h>

namespace
{

kest::test::LocaleRequests* noting = nullptr;

} // namespace

extern "C" __attribute__((visibility("default"))) char* setlocale(int category, const char* name) noexcept
{
    if (noting != nullptr)
    {
        noting->note(category, name);
    }
    const auto next = reinterpret_cast<char* (*)(int, const char*)>(dlsym(RTLD_NEXT, "setlocale"));
    return next(category, name);
}

namespace kest::test
{

LocaleRequests::LocaleRequests()
{
    noting = this;
}

LocaleRequests::~LocaleRequests()
{
    noting = nullptr;
}

void LocaleRequests::note(int category, const char* name)
{
    requests_.emplace_back(category, name == nullptr ? "(query)" : name);
}

} // namespace kest::test
