// Text that ends at the end of readable memory: reading one character too many ends the process.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace kest::test
{

template <class CharT>
class GuardedText
{
public:
    // No terminator is added: spell it out where one is wanted.
    explicit GuardedText(std::basic_string_view<CharT> text)
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t bytes = text.size() * sizeof(CharT);
        const std::size_t readable = (bytes / page + 1) * page;
        mapped_ = readable + page;
        memory_ =
            static_cast<char*>(mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        if (memory_ == MAP_FAILED || mprotect(memory_ + readable, page, PROT_NONE) != 0)
        {
            throw std::system_error(errno, std::generic_category(), "guard page");
        }
        text_ = reinterpret_cast<CharT*>(memory_ + readable - bytes);
        std::memcpy(text_, text.data(), bytes);
    }
    ~GuardedText() { munmap(memory_, mapped_); }
    GuardedText(const GuardedText&) = delete;
    GuardedText& operator=(const GuardedText&) = delete;

    CharT* data() { return text_; }

private:
    std::size_t mapped_;
    char* memory_;
    CharT* text_;
};

} // namespace kest::test
