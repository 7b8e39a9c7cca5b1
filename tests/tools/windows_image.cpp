#include "tools/windows_image.h"

namespace kest::test
{

WindowsImage::WindowsImage(Width width, std::vector<ModuleImports> imports, std::vector<ModuleImports> delayed)
    : width_(width)
{
    std::string directory;
    for (const ModuleImports& entry : imports)
    {
        const std::uint32_t table = appendTable(entry);
        const std::uint32_t name = append(entry.module + '\0');
        for (const std::uint32_t value : {table, 0U, 0U, name, table})
        {
            number(directory, value, 4);
        }
    }
    directory.append(20, '\0');
    std::string delayed_directory;
    for (const ModuleImports& entry : delayed)
    {
        const std::uint32_t table = appendTable(entry);
        const std::uint32_t name = append(entry.module + '\0');
        for (const std::uint32_t value : {1U, name, 0U, table, table, 0U, 0U, 0U})
        {
            number(delayed_directory, value, 4);
        }
    }
    delayed_directory.append(32, '\0');
    const std::uint32_t imports_address = append(directory);
    const std::uint32_t delayed_address = append(delayed_directory);
    bytes_ = headers(imports_address, delayed.empty() ? 0 : delayed_address);
    bytes_.resize(section_offset, '\0');
    bytes_ += section_;
}

void WindowsImage::number(std::string& to, std::uint64_t value, std::size_t size) const
{
    for (std::size_t byte = 0; byte < size; ++byte)
    {
        to.push_back(static_cast<char>(value >> (8 * byte) & 0xFF));
    }
}

// Returns the address at which the part will stand.
std::uint32_t WindowsImage::append(const std::string& part)
{
    const std::uint32_t address = section_address + static_cast<std::uint32_t>(section_.size());
    section_ += part;
    return address;
}

std::uint32_t WindowsImage::appendTable(const ModuleImports& imports)
{
    std::string table;
    for (const std::string& name : imports.names)
    {
        const bool by_number = name.starts_with('#');
        const std::uint64_t value = by_number ? std::stoul(name.substr(1)) | std::uint64_t{1} << (addressSize() * 8 - 1)
                                              : append(std::string(2, '\0') + name + '\0');
        number(table, value, addressSize());
    }
    table.append(addressSize(), '\0');
    return append(table);
}

std::string WindowsImage::headers(std::uint32_t imports, std::uint32_t delayed) const
{
    constexpr std::size_t directories = 16;
    constexpr std::size_t header_offset = 64;
    const bool wide = width_ == Width::bits64;
    std::string text = "MZ";
    text.resize(header_offset - 4, '\0');
    number(text, header_offset, 4);
    text += std::string("PE\0\0", 4);
    number(text, wide ? 0x8664 : 0x14C, 2);
    number(text, 1, 2); // sections
    text.append(12, '\0');
    number(text, (wide ? 112 : 96) + directories * 8, 2);
    number(text, 0x0022, 2); // can be executed
    // The optional header.
    number(text, wide ? 0x20B : 0x10B, 2);
    text.append(wide ? 22 : 26, '\0');
    number(text, image_base, wide ? 8 : 4);
    number(text, 0x1000, 4); // alignment in memory
    number(text, 0x200, 4);  // alignment in the file
    text.append(16, '\0');
    number(text, 0x3000, 4); // size of the image
    number(text, section_offset, 4);
    number(text, 0, 4);
    number(text, 3, 2); // a console program
    number(text, 0, 2);
    text.append(4 * addressSize() + 4, '\0');
    number(text, directories, 4);
    for (std::size_t directory = 0; directory < directories; ++directory)
    {
        const std::uint32_t address = directory == 1 ? imports : directory == 13 ? delayed : 0;
        number(text, address, 4);
        number(text, address != 0 ? 0x20 : 0, 4);
    }
    text += std::string(".idata\0\0", 8);
    number(text, section_.size(), 4);
    number(text, section_address, 4);
    number(text, section_.size(), 4);
    number(text, section_offset, 4);
    text.append(12, '\0');
    number(text, 0x40000040, 4); // data, readable
    return text;
}

} // namespace kest::test
