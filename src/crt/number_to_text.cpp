// Digits are made here, where they fit; only text that does not is left to the C library, whose leftovers count.
#include "kest/crt/numbers.h"
#include "support/checked_entry_points.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cwchar>

namespace
{

enum class Base
{
    Decimal = 10,
    Hexadecimal = 16
};

Base baseOf(int radix)
{
    return radix == 16 ? Base::Hexadecimal : Base::Decimal;
}

// The digits of an integer, without terminator.
class Digits
{
public:
    template <class Integer>
    explicit Digits(Integer value, Base base = Base::Decimal)
    {
        char* const end = std::to_chars(text_.data(), text_.data() + text_.size(), value, static_cast<int>(base)).ptr;
        size_ = static_cast<std::size_t>(end - text_.data());
    }

    const char* data() const { return text_.data(); }
    std::size_t size() const { return size_; }

private:
    std::array<char, 20> text_; // a sign and 19 digits, or 20 digits
    std::size_t size_;
};

// Hexadecimal shows the 32-bit pattern.
Digits digitsOf(int value, int radix)
{
    const Base base = baseOf(radix);
    return base == Base::Hexadecimal ? Digits(static_cast<unsigned int>(value), base) : Digits(value);
}

// As "%ld" prints an int that was widened without its sign.
long widened(int value)
{
    return static_cast<long>(static_cast<unsigned int>(value));
}

template <class CharT>
CharT* write(CharT* destination, const Digits& digits)
{
    *std::copy_n(digits.data(), digits.size(), destination) = CharT();
    return destination;
}

// Cut to fit.
char* writeCut(char* destination, std::size_t size, const Digits& digits)
{
    if (size > 0)
    {
        *std::copy_n(digits.data(), std::min(digits.size(), size - 1), destination) = '\0';
    }
    return destination;
}

// What swprintf does: text that does not fit is left in part, perhaps without terminator.
template <class Integer>
void writeOrLeaveRest(wchar_t* destination, std::size_t size, const Digits& digits, const wchar_t* format,
                      Integer value)
{
    if (digits.size() < size)
    {
        write(destination, digits);
        return;
    }
    __swprintf_chk(destination, size, kest::checkLevel, kest::unknownObjectSize, format, value);
}

// Of whatever stands there, also behind the size that was given.
int lengthAt(const wchar_t* destination)
{
    return static_cast<int>(std::wcslen(destination));
}

} // namespace

char* _itoa(int value, char* destination, int radix)
{
    return write(destination, digitsOf(value, radix));
}

char* _itoa_s(int value, char* destination, size_t size, int radix)
{
    return writeCut(destination, size, digitsOf(value, radix));
}

wchar_t* _itow(int value, wchar_t* destination, int radix)
{
    return write(destination, digitsOf(value, radix));
}

int _itow_s(int value, wchar_t* destination, size_t size, int radix)
{
    const wchar_t* const format = baseOf(radix) == Base::Hexadecimal ? L"%x" : L"%d";
    writeOrLeaveRest(destination, size, digitsOf(value, radix), format, value);
    return lengthAt(destination);
}

char* _i64toa(long long value, char* destination, int)
{
    return write(destination, Digits(value));
}

char* _ui64toa(unsigned long long value, char* destination, int)
{
    return write(destination, Digits(value));
}

wchar_t* _i64tow(long long value, wchar_t* destination, int)
{
    return write(destination, Digits(value));
}

wchar_t* _i64tow_s(long long value, wchar_t* destination, size_t size, int)
{
    writeOrLeaveRest(destination, size, Digits(value), L"%lld", value);
    return destination;
}

wchar_t* _ui64tow(unsigned long long value, wchar_t* destination, int)
{
    return write(destination, Digits(value));
}

char* _ltoa(int value, char* destination, int)
{
    return write(destination, Digits(widened(value)));
}

char* _ltoa_s(int value, char* destination, size_t size, int)
{
    return writeCut(destination, size, Digits(widened(value)));
}

wchar_t* _ltow(int value, wchar_t* destination, int)
{
    return write(destination, Digits(widened(value)));
}

int _ltow_s(int value, wchar_t* destination, size_t size, int)
{
    const long number = widened(value);
    writeOrLeaveRest(destination, size, Digits(number), L"%ld", number);
    return lengthAt(destination);
}

char* _fcvt(double value, int count, int* decimalPoint, int* sign)
{
    return fcvt(value, count, decimalPoint, sign);
}
