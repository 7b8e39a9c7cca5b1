// Each function has the signature that modules built elsewhere call it by.
#include "kest/platform_services.h"
#include "abi/signature.h"

#include <type_traits>

using namespace kest::test;

static_assert(hasSignature<IPlatformServices*(), platformServices>);
static_assert(hasSignature<void(IPlatformServices*), setPlatformServices>);

static_assert(std::is_same_v<decltype(g_platformServices), IPlatformServices*>);
