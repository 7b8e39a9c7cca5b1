#include "failure.h"
#include "keys.h"
#include "value_text.h"
#include "verbs.h"

using namespace kest::host;

namespace
{

// Which keys and values are shown.
class Filter
{
public:
    explicit Filter(const Arguments& arguments)
        : name_(arguments.has(L"/ve") ? std::optional<std::wstring>(L"") : arguments.value(L"/v")),
          searched_(arguments.value(L"/f")), exact_(arguments.has(L"/e")), withCase_(arguments.has(L"/c")),
          keys_(arguments.has(L"/k") || !arguments.has(L"/d")), data_(arguments.has(L"/d") || !arguments.has(L"/k")),
          names_(!arguments.has(L"/k") && !arguments.has(L"/d"))
    {
        if (const std::optional<std::wstring> type = arguments.value(L"/t"))
        {
            type_ = typeNamed(*type);
        }
        if (name_)
        {
            name_ = folded(*name_);
        }
        if (searched_ && !withCase_)
        {
            searched_ = folded(*searched_);
        }
    }

    bool searches() const { return searched_.has_value(); }
    // Whether anything is asked for that may not be there.
    bool selects() const { return searched_ || name_ || type_; }

    bool showsKey(std::wstring_view name) const { return searches() && keys_ && !name_ && !type_ && contains(name); }
    bool showsValue(const Value& value) const
    {
        const bool wanted = (!name_ || folded(value.name) == *name_) && (!type_ || value.type == *type_);
        return wanted && (!searches() || (names_ && contains(value.name)) ||
                          (data_ && contains(dataText(value.type, value.data))));
    }

private:
    bool contains(std::wstring_view text) const
    {
        const std::wstring compared = withCase_ ? std::wstring(text) : folded(text);
        return exact_ ? compared == *searched_ : compared.find(*searched_) != compared.npos;
    }

    std::optional<std::wstring> name_;
    std::optional<std::wstring> searched_;
    std::optional<std::uint32_t> type_;
    bool exact_;
    bool withCase_;
    bool keys_;
    bool data_;
    bool names_;
};

std::wstring lineOf(const Value& value)
{
    return L"    " + (value.name.empty() ? L"(Default)" : value.name) + L"    " + typeName(value.type) + L"    " +
           dataText(value.type, value.data) + L"\n";
}

class Query
{
public:
    Query(RegistryStore& store, const Arguments& arguments) : store_(store), filter_(arguments) {}

    // The values of a key and the names of the keys directly below it.
    void showKey(const FoundKey& key, bool withKeysBelow)
    {
        std::wstring lines;
        forEachValue(store_, key,
                     [&](const Value& value)
                     {
                         if (filter_.showsValue(value))
                         {
                             lines += lineOf(value);
                             ++found_;
                         }
                     });
        if (!filter_.selects() || !lines.empty())
        {
            print(key.path + L"\n" + lines + L"\n");
        }
        forEachChild(store_, key,
                     [&](const FoundKey& child, std::wstring_view name)
                     {
                         const bool matches = filter_.showsKey(name);
                         found_ += matches ? 1 : 0;
                         if (matches || (withKeysBelow && !filter_.selects()))
                         {
                             print(child.path + L"\n");
                         }
                     });
    }

    int status() const
    {
        if (filter_.searches())
        {
            print(std::to_wstring(found_) + (found_ == 1 ? L" match\n" : L" matches\n"));
        }
        return filter_.selects() && found_ == 0 ? statusFailed : statusDone;
    }

private:
    RegistryStore& store_;
    Filter filter_;
    std::size_t found_ = 0;
};

} // namespace

int query(RegistryStore& store, const Arguments& arguments)
{
    arguments.allowOneOf({L"/v", L"/ve"});
    for (const std::wstring_view option : {L"/k", L"/d", L"/c", L"/e"})
    {
        if (arguments.has(option) && !arguments.has(L"/f"))
        {
            throw Failure(L"option " + std::wstring(option) + L" needs /f", statusBadCommandLine);
        }
    }
    int status = statusDone;
    store.inSnapshot(
        [&]
        {
            Query query(store, arguments);
            const FoundKey key = findKey(store, arguments.operand(0));
            if (arguments.has(L"/s"))
            {
                forEachBelow(store, key, [&](const FoundKey& each) { query.showKey(each, false); });
            }
            else
            {
                query.showKey(key, true);
            }
            status = query.status();
        });
    if (status != statusDone && !arguments.has(L"/f"))
    {
        throw Failure(L"key \"" + arguments.operand(0) + L"\" has no such value");
    }
    return status;
}
