#include "kest/wide_string.h"
#include "support/second_name.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <new>

namespace
{

constexpr std::size_t slotCount = 16;

// The fields keep their plain types, which modules built by others know; every access to them after
// construction goes through this view, so that strings may be built on several threads at once.
template <class T>
auto atomically(T& field)
{
    return std::atomic_ref<T>(field);
}

template <class T>
T readAtomically(const T& field)
{
    return atomically(const_cast<T&>(field)).load(std::memory_order_relaxed);
}

} // namespace

constinit KestPlatformCStringManager* KestPlatformCStringManager::m_pInstance = nullptr;

KestPlatformCStringManager::KestPlatformCStringManager()
    : m_slots(slotCount, nullptr), m_forbiddenUpdate(false), m_nextIndex(0)
{
}

KestPlatformCStringManager::~KestPlatformCStringManager() = default;

KestPlatformCStringManager* KestPlatformCStringManager::getInstance()
{
    auto instance = atomically(m_pInstance);
    KestPlatformCStringManager* current = instance.load(std::memory_order_acquire);
    if (current == nullptr)
    {
        auto created = std::make_unique<KestPlatformCStringManager>();
        if (instance.compare_exchange_strong(current, created.get(), std::memory_order_acq_rel))
        {
            current = created.release();
        }
    }
    return current;
}

void KestPlatformCStringManager::destroyInstance()
{
    delete atomically(m_pInstance).exchange(nullptr, std::memory_order_acq_rel);
}

void KestPlatformCStringManager::insertElement(const void* p)
{
    if (p == nullptr || getForbiddenUpdateState())
    {
        return;
    }
    auto next = atomically(m_nextIndex);
    int index = next.load(std::memory_order_relaxed);
    do
    {
        if (static_cast<std::size_t>(index) >= m_slots.size())
        {
            return;
        }
    } while (!next.compare_exchange_weak(index, (index + 1) % static_cast<int>(slotCount), std::memory_order_relaxed));
    atomically(m_slots[static_cast<std::size_t>(index)]).store(p, std::memory_order_relaxed);
}

bool KestPlatformCStringManager::isElementValid(const void* p) const
{
    if (p == nullptr)
    {
        return false;
    }
    for (const void* const& slot : m_slots)
    {
        if (readAtomically(slot) == p)
        {
            return true;
        }
    }
    return false;
}

bool KestPlatformCStringManager::getForbiddenUpdateState() const
{
    return readAtomically(m_forbiddenUpdate);
}

void KestPlatformCStringManager::setForbiddenUpdateState(bool forbidden)
{
    atomically(m_forbiddenUpdate).store(forbidden, std::memory_order_relaxed);
}

void updateCStringManagerData(const void* p)
{
    if (p == nullptr)
    {
        return;
    }
    try
    {
        KestPlatformCStringManager::getInstance()->insertElement(p);
    }
    catch (const std::bad_alloc&)
    {
        // Strings are built all the same, and moves of them promise not to throw.
    }
}

KEST_SECOND_NAME(void plainUpdateCStringManagerData(const void*), "_Z24updateCStringManagerDataPKv",
                 "updateCStringManagerData");
