// Each function has the signature that modules built elsewhere call it by.
#include "kest/wide_string.h"
#include "abi/signature.h"

#include <string>
#include <type_traits>

using namespace kest::test;

static_assert(hasSignature<void(const void*), updateCStringManagerData>);
static_assert(hasSignature<KestPlatformCStringManager*(), KestPlatformCStringManager::getInstance>);
static_assert(hasSignature<void(), KestPlatformCStringManager::destroyInstance>);
static_assert(hasMember<void (KestPlatformCStringManager::*)(const void*), &KestPlatformCStringManager::insertElement>);
static_assert(
    hasMember<bool (KestPlatformCStringManager::*)(const void*) const, &KestPlatformCStringManager::isElementValid>);
static_assert(
    hasMember<bool (KestPlatformCStringManager::*)() const, &KestPlatformCStringManager::getForbiddenUpdateState>);
static_assert(
    hasMember<void (KestPlatformCStringManager::*)(bool), &KestPlatformCStringManager::setForbiddenUpdateState>);

static_assert(std::is_same_v<decltype(KestPlatformCStringManager::m_pInstance), KestPlatformCStringManager*>);
static_assert(std::is_default_constructible_v<KestPlatformCStringManager>);
static_assert(!std::is_polymorphic_v<KestPlatformCStringManager>);
static_assert(std::is_base_of_v<std::wstring, CStdStr<wchar_t>> && sizeof(CStdStr<wchar_t>) == sizeof(std::wstring));
