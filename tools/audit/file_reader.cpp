#include "audit/file_reader.h"

#include "audit/import_tables.h"
#include "audit/symbol_names.h"

#include <llvm/BinaryFormat/Magic.h>
#include <llvm/Object/Archive.h>
#include <llvm/Object/COFF.h>
#include <llvm/Object/COFFImportFile.h>
#include <llvm/Object/ELFObjectFile.h>
#include <llvm/Support/MemoryBuffer.h>

namespace kest::audit
{

namespace
{

using llvm::MemoryBufferRef;
using llvm::StringRef;
using llvm::object::Archive;
using llvm::object::COFFObjectFile;
using llvm::object::ELFObjectFile;
using llvm::object::ELFObjectFileBase;
using llvm::object::SymbolRef;

constexpr const char* nothing_known = "not an object file, an archive, a shared object, an executable for Linux or a "
                                      "Windows program";

std::string message(llvm::Error error)
{
    std::string text = llvm::toString(std::move(error));
    if (!text.empty() && text.back() == '\n')
    {
        text.pop_back();
    }
    return text;
}

// A format that is not read, in words; empty for those that are.
std::string foreignFormat(llvm::file_magic magic)
{
    using llvm::file_magic;
    if (magic == file_magic::bitcode)
    {
        return "intermediate code of a compiler (compile without link-time optimisation)";
    }
    if (magic == file_magic::wasm_object)
    {
        return "a WebAssembly file";
    }
    if (magic == file_magic::xcoff_object_32 || magic == file_magic::xcoff_object_64)
    {
        return "an XCOFF file";
    }
    if (magic >= file_magic::macho_object && magic <= file_magic::macho_universal_binary)
    {
        return "a Mach-O file";
    }
    return {};
}

// One file; `name` tells a member of an archive by both names.
class Reader
{
public:
    explicit Reader(FileContents& contents) : contents_(contents) {}

    void read(MemoryBufferRef buffer, const std::string& name)
    {
        if (buffer.getBufferSize() == 0)
        {
            return problem(name, "empty");
        }
        const llvm::file_magic magic = llvm::identify_magic(buffer.getBuffer());
        const std::string foreign = foreignFormat(magic);
        if (!foreign.empty())
        {
            return problem(name, foreign + "; files for Linux and Windows are read");
        }
        switch (magic)
        {
        case llvm::file_magic::archive:
            return readArchive(buffer, name);
        case llvm::file_magic::elf:
        case llvm::file_magic::elf_relocatable:
        case llvm::file_magic::elf_executable:
        case llvm::file_magic::elf_shared_object:
        case llvm::file_magic::elf_core:
            return readElf(buffer, name);
        case llvm::file_magic::coff_import_library:
            return readImportMember(buffer, name);
        case llvm::file_magic::coff_object:
        case llvm::file_magic::pecoff_executable:
            return readCoff(buffer, name);
        default:
            return problem(name, nothing_known);
        }
    }

private:
    void problem(const std::string& name, const std::string& what) { contents_.problems.push_back(name + ": " + what); }

    void problem(const std::string& name, llvm::Error error) { problem(name, "damaged: " + message(std::move(error))); }

    void setFormat(const std::string& format)
    {
        if (contents_.format.empty())
        {
            contents_.format = format;
        }
    }

    void readArchive(MemoryBufferRef buffer, const std::string& name)
    {
        setFormat("archive");
        llvm::Expected<std::unique_ptr<Archive>> archive = Archive::create(buffer);
        if (!archive)
        {
            return problem(name, archive.takeError());
        }
        if ((*archive)->isThin())
        {
            return problem(name, "a thin archive; give its members");
        }
        llvm::Error error = llvm::Error::success();
        for (const Archive::Child& child : (*archive)->children(error))
        {
            llvm::Expected<StringRef> member = child.getName();
            llvm::Expected<MemoryBufferRef> content = child.getMemoryBufferRef();
            if (!member || !content)
            {
                problem(name, llvm::joinErrors(member.takeError(), content.takeError()));
                continue;
            }
            // The archive reader does not look where the last member ends.
            if (content->getBufferSize() > static_cast<std::size_t>(buffer.getBufferEnd() - content->getBufferStart()))
            {
                problem(name, "damaged: " + member->str() + " is cut off");
                continue;
            }
            // What an object reader takes for granted: numbers stand where the processor likes them.
            const auto aligned = llvm::MemoryBuffer::getMemBufferCopy(content->getBuffer());
            read(aligned->getMemBufferRef(), name + "(" + member->str() + ")");
        }
        if (error)
        {
            problem(name, std::move(error));
        }
    }

    // A short member of an import library: a header, then the symbol's and the DLL's name. It defines the symbol.
    void readImportMember(MemoryBufferRef buffer, const std::string& name)
    {
        setFormat("Windows import library");
        const std::size_t header = sizeof(llvm::object::coff_import_header);
        if (buffer.getBufferSize() <= header || buffer.getBuffer().find('\0', header) == StringRef::npos)
        {
            return problem(name, "damaged: the import is cut off");
        }
        const llvm::object::COFFImportFile file(buffer);
        const bool is_x86 = file.getCOFFImportHeader()->Machine == llvm::COFF::IMAGE_FILE_MACHINE_I386;
        contents_.defines.insert(plainName(buffer.getBuffer().drop_front(header).split('\0').first.str(), is_x86));
    }

    void readCoff(MemoryBufferRef buffer, const std::string& name)
    {
        llvm::Expected<std::unique_ptr<COFFObjectFile>> file = COFFObjectFile::create(buffer);
        if (!file)
        {
            return problem(name, file.takeError());
        }
        const bool is_x86 = (*file)->getMachine() == llvm::COFF::IMAGE_FILE_MACHINE_I386;
        if (!(*file)->getPE32Header() && !(*file)->getPE32PlusHeader())
        {
            setFormat("Windows object file");
            return readSymbols((*file)->symbols(), name,
                               [is_x86](StringRef symbol) {
                                   return plainName({symbol.data(), symbol.size()}, is_x86);
                               });
        }
        setFormat(((*file)->getCharacteristics() & llvm::COFF::IMAGE_FILE_DLL) != 0 ? "Windows DLL"
                                                                                    : "Windows program");
        llvm::Expected<std::vector<Need>> imports = readImports(**file);
        if (!imports)
        {
            return problem(name, imports.takeError());
        }
        contents_.needs.insert(contents_.needs.end(), imports->begin(), imports->end());
    }

    void readElf(MemoryBufferRef buffer, const std::string& name)
    {
        llvm::Expected<std::unique_ptr<llvm::object::ObjectFile>> file =
            llvm::object::ObjectFile::createELFObjectFile(buffer);
        if (!file)
        {
            return problem(name, file.takeError());
        }
        const auto& elf = llvm::cast<ELFObjectFileBase>(**file);
        contents_.machine = elf.getEMachine();
        const auto same = [](StringRef symbol) { return symbol.str(); };
        if (elf.getEType() == llvm::ELF::ET_REL)
        {
            setFormat("object file");
            return readSymbols(elf.symbols(), name, same);
        }
        if (elf.getEType() != llvm::ELF::ET_EXEC && elf.getEType() != llvm::ELF::ET_DYN)
        {
            return problem(name, nothing_known);
        }
        llvm::Error error = readDynamicSection(elf);
        setFormat(contents_.soname.empty() ? "executable" : "shared object");
        if (error)
        {
            return problem(name, std::move(error));
        }
        readSymbols(elf.getDynamicSymbolIterators(), name, same);
    }

    template <typename Symbols, typename PlainName>
    void readSymbols(const Symbols& symbols, const std::string& name, const PlainName& plain)
    {
        for (const auto& symbol : symbols)
        {
            llvm::Expected<std::uint32_t> flags = symbol.getFlags();
            if (!flags)
            {
                return problem(name, flags.takeError());
            }
            const bool undefined = (*flags & SymbolRef::SF_Undefined) != 0;
            if ((*flags & SymbolRef::SF_FormatSpecific) != 0 || (!undefined && (*flags & SymbolRef::SF_Global) == 0))
            {
                continue;
            }
            llvm::Expected<StringRef> text = symbol.getName();
            if (!text)
            {
                return problem(name, text.takeError());
            }
            std::string symbol_name = plain(*text);
            if (symbol_name.empty())
            {
                continue;
            }
            if (undefined)
            {
                contents_.needs.push_back({std::move(symbol_name), {}, (*flags & SymbolRef::SF_Weak) != 0});
            }
            else
            {
                contents_.defines.insert(std::move(symbol_name));
            }
        }
    }

    llvm::Error readDynamicSection(const ELFObjectFileBase& elf)
    {
        if (const auto* file = llvm::dyn_cast<llvm::object::ELF64LEObjectFile>(&elf))
        {
            return readDynamicSection(*file);
        }
        if (const auto* file = llvm::dyn_cast<llvm::object::ELF32LEObjectFile>(&elf))
        {
            return readDynamicSection(*file);
        }
        if (const auto* file = llvm::dyn_cast<llvm::object::ELF64BEObjectFile>(&elf))
        {
            return readDynamicSection(*file);
        }
        return readDynamicSection(llvm::cast<llvm::object::ELF32BEObjectFile>(elf));
    }

    // The entries of the dynamic section, which the object reader would not look for in the file's bounds.
    template <typename Elf>
    static llvm::Expected<llvm::ArrayRef<typename Elf::Dyn>> dynamicEntries(const llvm::object::ELFFile<Elf>& file)
    {
        auto headers = file.program_headers();
        if (!headers)
        {
            return headers.takeError();
        }
        for (const auto& header : *headers)
        {
            if (header.p_type != llvm::ELF::PT_DYNAMIC)
            {
                continue;
            }
            const std::uint64_t offset = header.p_offset;
            const std::uint64_t size = header.p_filesz;
            if (offset > file.getBufSize() || size > file.getBufSize() - offset)
            {
                return llvm::createStringError(llvm::inconvertibleErrorCode(),
                                               "the file ends before its dynamic section does");
            }
            return llvm::ArrayRef(reinterpret_cast<const typename Elf::Dyn*>(file.base() + offset),
                                  static_cast<std::size_t>(size / sizeof(typename Elf::Dyn)));
        }
        return llvm::ArrayRef<typename Elf::Dyn>();
    }

    // The libraries that the loader loads with the file, and where it looks for them.
    template <typename Elf>
    llvm::Error readDynamicSection(const ELFObjectFile<Elf>& object)
    {
        const llvm::object::ELFFile<Elf>& file = object.getELFFile();
        auto entries = dynamicEntries(file);
        if (!entries)
        {
            return entries.takeError();
        }
        std::uint64_t strings_address = 0;
        for (const auto& entry : *entries)
        {
            strings_address = entry.getTag() == llvm::ELF::DT_STRTAB ? std::uint64_t{entry.getPtr()} : strings_address;
        }
        if (strings_address == 0)
        {
            return llvm::Error::success();
        }
        const auto symbols = object.getDynamicSymbolIterators();
        if (symbols.begin() == symbols.end())
        {
            return llvm::createStringError(llvm::inconvertibleErrorCode(),
                                           "it has no section that lists its dynamic symbols");
        }
        auto strings = file.toMappedAddr(strings_address);
        if (!strings)
        {
            return strings.takeError();
        }
        const std::uint8_t* end = file.base() + file.getBufSize();
        if (*strings < file.base() || *strings >= end)
        {
            return llvm::createStringError(llvm::inconvertibleErrorCode(), "its dynamic names lie outside the file");
        }
        const StringRef all(reinterpret_cast<const char*>(*strings), static_cast<std::size_t>(end - *strings));
        for (const auto& entry : *entries)
        {
            if (entry.getTag() == llvm::ELF::DT_NULL)
            {
                break;
            }
            addDynamicText(entry.getTag(), all.substr(entry.getVal()).split('\0').first);
        }
        return llvm::Error::success();
    }

    void addDynamicText(std::int64_t tag, StringRef text)
    {
        switch (tag)
        {
        case llvm::ELF::DT_NEEDED:
            contents_.libraries.push_back(text.str());
            break;
        case llvm::ELF::DT_SONAME:
            contents_.soname = text.str();
            break;
        case llvm::ELF::DT_RPATH:
        case llvm::ELF::DT_RUNPATH:
        {
            llvm::SmallVector<StringRef> folders;
            text.split(folders, ':', -1, false);
            for (const StringRef folder : folders)
            {
                contents_.library_folders.push_back(folder.str());
            }
            break;
        }
        default:
            break;
        }
    }

    FileContents& contents_;
};

} // namespace

FileContents readFile(const std::string& path)
{
    FileContents contents;
    contents.path = path;
    const auto buffer = llvm::MemoryBuffer::getFile(path, false, false);
    if (!buffer)
    {
        contents.problems.push_back(path + ": " + buffer.getError().message());
        return contents;
    }
    Reader(contents).read((*buffer)->getMemBufferRef(), path);
    return contents;
}

} // namespace kest::audit
