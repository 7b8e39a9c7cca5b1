// Windows programs as the tests need them: headers and import tables, nothing that could run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kest::test
{

struct ModuleImports
{
    std::string module;
    std::vector<std::string> names; // "#12" is an import by number
};

class WindowsImage
{
public:
    enum class Width
    {
        bits32,
        bits64
    };

    WindowsImage(Width width, std::vector<ModuleImports> imports, std::vector<ModuleImports> delayed = {});

    const std::string& bytes() const { return bytes_; }

    static constexpr std::uint32_t section_address = 0x1000;
    static constexpr std::size_t section_offset = 0x200; // in the file
    static constexpr std::uint64_t image_base = 0x400000;

private:
    std::size_t addressSize() const { return width_ == Width::bits64 ? 8 : 4; }
    void number(std::string& to, std::uint64_t value, std::size_t size) const;
    std::uint32_t append(const std::string& part);
    std::uint32_t appendTable(const ModuleImports& imports);
    std::string headers(std::uint32_t imports, std::uint32_t delayed) const;

    Width width_;
    std::string section_;
    std::string bytes_;
};

} // namespace kest::test
