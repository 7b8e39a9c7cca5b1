#include "audit/import_tables.h"

#include "audit/symbol_names.h"

#include <llvm/Support/Endian.h>

#include <optional>

namespace kest::audit
{

namespace
{

using llvm::Expected;
using llvm::StringRef;
using llvm::object::COFFObjectFile;

llvm::Error damaged(const std::string& what)
{
    return llvm::createStringError(llvm::inconvertibleErrorCode(), what);
}

std::string inHexadecimal(std::uint64_t number)
{
    return "0x" + llvm::utohexstr(number, true);
}

// The file seen by the addresses that its parts have once loaded. The object reader trusts these addresses; here
// nothing is read that does not lie in the file.
class Image
{
public:
    explicit Image(const COFFObjectFile& file) : data_(file.getData()), is_64_bit_(file.is64())
    {
        if (const auto* header = file.getPE32Header())
        {
            headers_size_ = header->SizeOfHeaders;
        }
        else if (const auto* plus_header = file.getPE32PlusHeader())
        {
            headers_size_ = plus_header->SizeOfHeaders;
        }
        for (const llvm::object::SectionRef& section : file.sections())
        {
            sections_.push_back(file.getCOFFSection(section));
        }
        base_ = file.getImageBase();
    }

    std::size_t size() const { return data_.size(); }
    std::uint64_t base() const { return base_; }
    std::size_t addressSize() const { return is_64_bit_ ? 8 : 4; }

    // What stands at an address, to the end of its part of the file.
    Expected<StringRef> from(std::uint64_t address) const
    {
        for (const llvm::object::coff_section* section : sections_)
        {
            const std::uint64_t begin = section->VirtualAddress;
            if (address >= begin && address - begin < section->SizeOfRawData)
            {
                return part(section->PointerToRawData, section->SizeOfRawData, address - begin);
            }
        }
        if (address < headers_size_)
        {
            return part(0, headers_size_, address);
        }
        return damaged("its import tables lead to address " + inHexadecimal(address) + ", where it has nothing");
    }

    Expected<StringRef> bytes(std::uint64_t address, std::size_t count) const
    {
        Expected<StringRef> rest = from(address);
        if (rest && rest->size() < count)
        {
            return damaged("its import tables are cut off at address " + inHexadecimal(address));
        }
        return rest ? Expected<StringRef>(rest->take_front(count)) : std::move(rest);
    }

    Expected<std::string> text(std::uint64_t address) const
    {
        Expected<StringRef> rest = from(address);
        if (!rest)
        {
            return rest.takeError();
        }
        const std::size_t end = rest->find('\0');
        if (end == StringRef::npos)
        {
            return damaged("a name in its import tables, at address " + inHexadecimal(address) + ", has no end");
        }
        return rest->take_front(end).str();
    }

private:
    Expected<StringRef> part(std::uint64_t begin, std::uint64_t size, std::uint64_t offset) const
    {
        if (begin > data_.size() || size > data_.size() - begin)
        {
            return damaged("the file ends before the part with its import tables does");
        }
        return data_.substr(begin, size).drop_front(offset);
    }

    StringRef data_;
    bool is_64_bit_;
    std::uint64_t base_ = 0;
    std::uint64_t headers_size_ = 0;
    std::vector<const llvm::object::coff_section*> sections_;
};

std::uint32_t number32(StringRef bytes, std::size_t index)
{
    return llvm::support::endian::read32le(bytes.data() + index * sizeof(std::uint32_t));
}

class Reader
{
public:
    explicit Reader(const COFFObjectFile& file) : file_(file), image_(file) {}

    Expected<std::vector<Need>> read()
    {
        if (llvm::Error error = readDirectory(llvm::COFF::IMPORT_TABLE, import_words, &Reader::readImport))
        {
            return error;
        }
        if (llvm::Error error =
                readDirectory(llvm::COFF::DELAY_IMPORT_DESCRIPTOR, delayed_words, &Reader::readDelayedImport))
        {
            return error;
        }
        return std::move(needs_);
    }

private:
    static constexpr std::size_t import_words = 5;
    static constexpr std::size_t delayed_words = 8;

    // One module's part of a directory; false ends the directory.
    using ReadEntry = Expected<bool> (Reader::*)(StringRef entry);

    llvm::Error readDirectory(std::uint32_t which, std::size_t words, ReadEntry readEntry)
    {
        const llvm::object::data_directory* directory = file_.getDataDirectory(which);
        if (directory == nullptr || directory->RelativeVirtualAddress == 0)
        {
            return llvm::Error::success();
        }
        const std::size_t size = words * sizeof(std::uint32_t);
        for (std::uint64_t address = directory->RelativeVirtualAddress;; address += size)
        {
            Expected<StringRef> entry = image_.bytes(address, size);
            if (!entry)
            {
                return entry.takeError();
            }
            Expected<bool> more = (this->*readEntry)(*entry);
            if (!more)
            {
                return more.takeError();
            }
            if (!*more)
            {
                return llvm::Error::success();
            }
        }
    }

    // Names, time, forwarder, module, addresses. A linker may leave out the table of names: the addresses are the
    // names then, until the loader overwrites them.
    Expected<bool> readImport(StringRef entry)
    {
        const std::uint32_t names = number32(entry, 0);
        const std::uint32_t module = number32(entry, 3);
        const std::uint32_t addresses = number32(entry, 4);
        if (module == 0 || addresses == 0)
        {
            return false;
        }
        return readModule(module, names != 0 ? names : addresses, 0);
    }

    // Attributes, module, handle, addresses, names, ... Old linkers wrote absolute addresses, with attributes of 0.
    Expected<bool> readDelayedImport(StringRef entry)
    {
        const std::uint64_t base = number32(entry, 0) == 0 ? image_.base() : 0;
        const std::uint32_t module = number32(entry, 1);
        const std::uint32_t names = number32(entry, 4);
        if (module == 0 || names == 0)
        {
            return false;
        }
        return readModule(module - base, names - base, base);
    }

    Expected<bool> readModule(std::uint64_t name_address, std::uint64_t table, std::uint64_t base)
    {
        Expected<std::string> module = image_.text(name_address);
        if (!module)
        {
            return module.takeError();
        }
        for (std::uint64_t address = table;; address += image_.addressSize())
        {
            Expected<StringRef> bytes = image_.bytes(address, image_.addressSize());
            if (!bytes)
            {
                return bytes.takeError();
            }
            const std::uint64_t value =
                image_.addressSize() == 8 ? llvm::support::endian::read64le(bytes->data()) : number32(*bytes, 0);
            if (value == 0)
            {
                return true;
            }
            // No table can have more entries than the file has room for: more come from tables that overlap.
            if (needs_.size() > image_.size() / sizeof(std::uint32_t))
            {
                return damaged("its import tables overlap");
            }
            Expected<std::string> symbol = symbolOf(*module, value, base);
            if (!symbol)
            {
                return symbol.takeError();
            }
            needs_.push_back({*symbol, *module});
        }
    }

    // The highest bit marks an import by number; else there is a hint of two bytes, and the name.
    Expected<std::string> symbolOf(const std::string& module, std::uint64_t value, std::uint64_t base) const
    {
        constexpr std::uint64_t ordinal_mask = 0xFFFF;
        constexpr std::uint64_t hint_size = 2;
        if (value >> (image_.addressSize() * 8 - 1) != 0)
        {
            return ordinalName(module, static_cast<std::uint32_t>(value & ordinal_mask));
        }
        return image_.text(value - base + hint_size);
    }

    const COFFObjectFile& file_;
    Image image_;
    std::vector<Need> needs_;
};

} // namespace

Expected<std::vector<Need>> readImports(const COFFObjectFile& image)
{
    return Reader(image).read();
}

} // namespace kest::audit
