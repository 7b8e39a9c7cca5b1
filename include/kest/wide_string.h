/*
 * Kest Platform Base: the shared wide string class and the registry of recently built string objects.
 *
 * CStdStr<wchar_t> is the standard string plus one habit: every construction, copies and moves included,
 * reports the new object's own address to KestPlatformCStringManager, which remembers the last 16. An
 * application can ask whether an address was among them. An address stays known until 16 later reports
 * have overwritten it, even when its string is gone.
 *
 * Reports, checks and the flag may come from any thread at any time; only destroyInstance must not run
 * while another thread uses the registry. Loading the library reports nothing.
 */
#ifndef KEST_WIDE_STRING_H
#define KEST_WIDE_STRING_H

#include "kest/export.h"

#include <string>
#include <utility>
#include <vector>

/**
 * Reports a newly built string object.
 * @param p  the object's own address (not its characters); null is ignored and creates no registry. When there is no
 * memory for the registry the report is lost and nothing else.
 * @kind local
 */
KEST_API void updateCStringManagerData(const void* p);

/** The registry: a ring of 16 addresses. One instance, created by the first report. */
class KestPlatformCStringManager
{
public:
    /** An empty ring that accepts reports. */
    KEST_API KestPlatformCStringManager();
    /** Releases the slots; the strings are not touched. */
    KEST_API ~KestPlatformCStringManager();
    KestPlatformCStringManager(const KestPlatformCStringManager&) = delete;
    KestPlatformCStringManager& operator=(const KestPlatformCStringManager&) = delete;

    /** Returns the instance, creating it on the first call; std::bad_alloc without memory. It stays the library's. */
    KEST_API static KestPlatformCStringManager* getInstance();

    /** Destroys the instance, if there is one; the next getInstance creates an empty one. */
    KEST_API static void destroyInstance();

    /**
     * Remembers p in the slot whose turn it is, the oldest. The same address reported twice takes two slots.
     * Null is ignored; so is everything while updates are forbidden.
     */
    KEST_API void insertElement(const void* p);

    /** Returns whether p is one of the remembered addresses; false for null. */
    KEST_API bool isElementValid(const void* p) const;

    /** Returns whether reports are being ignored. */
    KEST_API bool getForbiddenUpdateState() const;

    /** Sets whether reports are ignored; recording resumes at the slot where it stopped. */
    KEST_API void setForbiddenUpdateState(bool forbidden);

    /** The instance; null until the first report or the first getInstance. */
    KEST_API static KestPlatformCStringManager* m_pInstance;

private:
    std::vector<const void*> m_slots;
    bool m_forbiddenUpdate;
    int m_nextIndex;
};

namespace kest
{
/** Selects the one construction that is not reported: that of a string at library load. */
struct UnreportedConstruction
{
};
} // namespace kest

/** A standard string that reports its constructions. Null text builds an empty string. */
template <class CharT>
class CStdStr : public std::basic_string<CharT>
{
    using Base = std::basic_string<CharT>;

public:
    CStdStr() { report(); }
    CStdStr(const CStdStr& other) : Base(other) { report(); }
    CStdStr(CStdStr&& other) noexcept : Base(std::move(other)) { report(); }
    CStdStr(const Base& text) : Base(text) { report(); }
    CStdStr(Base&& text) : Base(std::move(text)) { report(); }
    CStdStr(const CharT* text) : Base(text == nullptr ? Base() : Base(text)) { report(); }
    CStdStr(const CharT* text, std::size_t length) : Base(text, length) { report(); }
    CStdStr(std::size_t count, CharT character) : Base(count, character) { report(); }
    template <class Iterator>
    CStdStr(Iterator first, Iterator last) : Base(first, last)
    {
        report();
    }
    explicit CStdStr(kest::UnreportedConstruction) {}
    ~CStdStr() = default;

    CStdStr& operator=(const CStdStr&) = default;
    CStdStr& operator=(CStdStr&&) = default;
    CStdStr& operator=(const Base& text)
    {
        Base::operator=(text);
        return *this;
    }
    CStdStr& operator=(Base&& text)
    {
        Base::operator=(std::move(text));
        return *this;
    }
    CStdStr& operator=(const CharT* text)
    {
        if (text == nullptr)
        {
            this->clear();
        }
        else
        {
            Base::operator=(text);
        }
        return *this;
    }

private:
    void report() const { updateCStringManagerData(this); }
};

#endif
