// The reader of .reg files: whatever the input, it refuses or reads; and what it has read is the same once written and
// read again.
#include "fuzzing.h"
#include "reg_text.h"

#include <optional>

using namespace kest::host;
using kest::fuzz::require;

namespace
{

std::optional<std::vector<RegTextKey>> read(std::string_view bytes)
{
    try
    {
        return readRegText(bytes);
    }
    catch (const RegTextError& error)
    {
        require(error.line() > 0, "lines are counted from 1");
        return std::nullopt;
    }
}

std::string written(const std::vector<RegTextKey>& keys)
{
    RegTextWriter writer;
    for (const RegTextKey& key : keys)
    {
        if (!key.removed)
        {
            writer.beginKey(key.path);
            for (const RegTextValue& value : key.values)
            {
                require(value.removed || writer.addValue(value.name, value.type, value.data), "text that was read");
            }
        }
    }
    return writer.utf16();
}

bool same(const RegTextValue& one, const RegTextValue& other)
{
    return one.name == other.name && one.type == other.type && one.data == other.data;
}

void requireSame(const std::vector<RegTextKey>& keys, const std::vector<RegTextKey>& again)
{
    auto other = again.begin();
    for (const RegTextKey& key : keys)
    {
        if (key.removed)
        {
            continue;
        }
        require(other != again.end() && key.path == other->path, "keys");
        auto otherValue = other->values.begin();
        for (const RegTextValue& value : key.values)
        {
            if (!value.removed)
            {
                require(otherValue != other->values.end() && same(value, *otherValue), "values");
                ++otherValue;
            }
        }
        require(otherValue == other->values.end(), "number of values");
        ++other;
    }
    require(other == again.end(), "number of keys");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (const auto keys = read({reinterpret_cast<const char*>(bytes), size}))
    {
        const auto again = read(written(*keys));
        require(again.has_value(), "what is written can be read");
        requireSame(*keys, *again);
    }
    return 0;
}
