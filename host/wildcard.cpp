#include "wildcard.h"

namespace kest::host
{

namespace
{

// The classic walk with one place to go back to: linear in practice, never exponential.
bool matches(std::wstring_view name, std::wstring_view pattern)
{
    std::size_t at = 0;
    std::size_t part = 0;
    std::size_t star = std::wstring_view::npos;
    std::size_t starAt = 0;
    while (at < name.size() || part < pattern.size())
    {
        if (part < pattern.size() && pattern[part] == L'*')
        {
            star = part++;
            starAt = at;
        }
        else if (part < pattern.size() && at < name.size() &&
                 (pattern[part] == name[at] || (pattern[part] == L'?' && name[at] != L'.')))
        {
            ++part;
            ++at;
        }
        else if (part < pattern.size() && pattern[part] == L'?' && (at == name.size() || name[at] == L'.'))
        {
            // Before a dot and at the end a question mark may stand for nothing.
            ++part;
        }
        else if (star != std::wstring_view::npos && starAt < name.size())
        {
            part = star + 1;
            at = ++starAt;
        }
        else
        {
            return false;
        }
    }
    return true;
}

} // namespace

bool matchesEverything(std::wstring_view pattern)
{
    return pattern == L"*" || pattern == L"*.*";
}

bool matchesWildcard(std::wstring_view name, std::wstring_view pattern)
{
    if (matchesEverything(pattern))
    {
        return true;
    }
    // "*." asks for names without an extension.
    if (pattern.size() > 1 && pattern.ends_with(L'.') && name.find(L'.') == name.npos)
    {
        pattern.remove_suffix(1);
    }
    return matches(name, pattern);
}

} // namespace kest::host
