// The overload of wcsncat that takes narrow strings.
#include "kest/crt/strings.h"
#include "support/checked_entry_points.h"

#include <array>
#include <cstring>

namespace
{

// In characters. The C library refuses to convert more than 1023 bytes, as the limit is four times their number.
constexpr std::size_t wideScratchSize = 4096;

class WideScratch
{
public:
    explicit WideScratch(const char* text)
    {
        const std::size_t limit = (std::strlen(text) + 1) * sizeof(wchar_t);
        __mbstowcs_chk(buffer_.data(), text, limit, buffer_.size());
    }

    wchar_t* data() { return buffer_.data(); }

private:
    std::array<wchar_t, wideScratchSize> buffer_{};
};

} // namespace

wchar_t* wcsncat(char* destination, const char* source, unsigned long count)
{
    WideScratch first(destination);
    WideScratch second(source);
    // Through a volatile: compilers turn the plain address of a local into null.
    wchar_t* volatile const address = __wcsncat_chk(first.data(), second.data(), count, wideScratchSize);
    return address;
}
