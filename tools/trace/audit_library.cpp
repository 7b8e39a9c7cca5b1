// What the loader runs inside a traced program, through its audit interface (rtld-audit(7)): it binds the exports that
// the program's modules call to counting slots. It lives in a namespace with a C library of its own, on every thread of
// the program and also where the program may not be interrupted: no allocation, no locks, no formatted output.
#include "tables/export_table.h"
#include "trace/call_table.h"
#include "trace/module_scan.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

// Defined in slots.S.
extern "C" const unsigned char kestTraceSlots[];
extern "C" void* kestTraceCount(std::uint32_t index);

namespace
{

using kest::tools::Export;
using kest::trace::CallTable;
using kest::trace::Entry;
using kest::trace::ModuleScan;
using kest::trace::Reach;

constexpr std::size_t slot_size = 16;

CallTable* table = nullptr;

// Where a process's slots lead. Other processes that share an entry have the function at another address.
std::array<std::atomic<std::uintptr_t>, CallTable::entry_capacity> targets;

int calls_output = -1;

std::array<char, 4096> program_path;

std::string_view fileName(std::string_view path)
{
    path.remove_prefix(path.rfind('/') + 1);
    return path;
}

// The loader's identifier of a module is its place in the loader's list, until an audit library sets another.
const link_map& loadedModule(std::uintptr_t identifier)
{
    return *reinterpret_cast<const link_map*>(identifier);
}

// The main program has no name in the loader's list.
std::string_view moduleName(const link_map& module)
{
    return module.l_name != nullptr && *module.l_name != '\0' ? module.l_name : program_path.data();
}

bool sameCaller(const Entry& entry, std::string_view symbol, std::string_view module, Reach reach)
{
    const std::uint32_t offset = entry.symbol.load(std::memory_order_acquire);
    return offset != 0 && entry.reach == reach && table->textAt(offset) == symbol &&
           table->textAt(entry.module) == module;
}

// The entry for a pair, claimed for this process's target: a pair whose entry leads elsewhere already (the library was
// loaded twice) gets another one.
std::optional<std::uint32_t> entryFor(std::string_view symbol, std::string_view module, Reach reach,
                                      std::uintptr_t target)
{
    const auto claim = [target](std::uint32_t index)
    {
        std::uintptr_t current = 0;
        return targets[index].compare_exchange_strong(current, target) || current == target;
    };
    for (std::uint32_t index = 0, count = table->entryCount(); index < count; ++index)
    {
        if (sameCaller(table->entries[index], symbol, module, reach) && claim(index))
        {
            return index;
        }
    }
    const std::optional<std::uint32_t> added = table->add(symbol, module, reach);
    if (!added || !claim(*added))
    {
        table->lost.fetch_add(1);
        return std::nullopt;
    }
    return added;
}

// One line, built by hand and written at once.
class Line
{
public:
    void add(std::string_view text)
    {
        const std::size_t length = std::min(text.size(), text_.size() - 1 - used_);
        std::memcpy(text_.data() + used_, text.data(), length);
        used_ += length;
    }

    void add(long number)
    {
        std::array<char, 24> digits{};
        const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
        add({digits.data(), static_cast<std::size_t>(end - digits.data())});
    }

    void write(int output)
    {
        text_[used_++] = '\n';
        // A program whose error output is gone is traced all the same.
        if (::write(output, text_.data(), used_) < 0)
        {
            calls_output = -1;
        }
    }

private:
    std::array<char, 1024> text_{};
    std::size_t used_ = 0;
};

void printCall(const Entry& entry)
{
    const std::string_view symbol = table->textAt(entry.symbol.load());
    const Export* row = kest::tools::findExport(symbol);
    Line line;
    line.add("[");
    line.add(static_cast<long>(getpid()));
    line.add("] ");
    line.add(row != nullptr && !row->name.empty() ? row->name : symbol);
    if (row != nullptr)
    {
        line.add(" (");
        line.add(kest::tools::kindName(row->kind));
        line.add(row->kind == kest::tools::Kind::fixed_result ? ": " : "");
        line.add(row->kind == kest::tools::Kind::fixed_result ? row->answer : "");
        line.add(")");
    }
    line.add(" from ");
    line.add(fileName(table->textAt(entry.module)));
    line.write(calls_output);
}

void openCallsOutput()
{
    const char* path = std::getenv(kest::trace::calls_variable);
    if (path == nullptr)
    {
        return;
    }
    calls_output = *path == '\0' ? STDERR_FILENO : open(path, O_WRONLY | O_APPEND | O_CLOEXEC);
}

bool mapTable()
{
    const char* path = std::getenv(kest::trace::table_variable);
    const int file = path != nullptr ? open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file == -1)
    {
        return false;
    }
    void* memory = mmap(nullptr, sizeof(CallTable), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    if (memory == MAP_FAILED)
    {
        return false;
    }
    table = static_cast<CallTable*>(memory);
    return true;
}

} // namespace

// Called by the slots, with the index of the entry; returns the function.
void* kestTraceCount(std::uint32_t index)
{
    Entry& entry = table->entries[index];
    entry.calls.fetch_add(1, std::memory_order_relaxed);
    if (calls_output != -1)
    {
        printCall(entry);
    }
    return reinterpret_cast<void*>(targets[index].load(std::memory_order_relaxed));
}

// Without a table the program runs as if this library were not there: the loader of glibc 2.36 cannot always unload it.
extern "C" [[gnu::visibility("default")]] unsigned int la_version(unsigned int version)
{
    if (version < LAV_CURRENT)
    {
        return 0;
    }
    if (!mapTable())
    {
        return LAV_CURRENT;
    }
    if (readlink("/proc/self/exe", program_path.data(), program_path.size() - 1) == -1)
    {
        program_path[0] = '?';
    }
    openCallsOutput();
    table->programs.fetch_add(1);
    return LAV_CURRENT;
}

extern "C" [[gnu::visibility("default")]] unsigned int la_objopen(link_map* module, Lmid_t, std::uintptr_t*)
{
    if (table == nullptr)
    {
        return 0;
    }
    const ModuleScan scan(*module);
    if (scan.isExportingLibrary())
    {
        table->libraries.fetch_add(1);
        return LA_FLG_BINDTO | LA_FLG_BINDFROM;
    }
    scan.forEachAddressHeld(
        [module](std::string_view symbol)
        {
            for (std::uint32_t index = 0, count = table->entryCount(); index < count; ++index)
            {
                if (sameCaller(table->entries[index], symbol, moduleName(*module), Reach::address))
                {
                    return;
                }
            }
            if (!table->add(symbol, moduleName(*module), Reach::address))
            {
                table->lost.fetch_add(1);
            }
        });
    return LA_FLG_BINDFROM;
}

// A binding, also of those made at once (-z now) and of dlsym's: the caller gets a slot in place of the function.
extern "C" [[gnu::visibility("default")]] std::uintptr_t la_symbind64(Elf64_Sym* symbol, unsigned int,
                                                                      std::uintptr_t* caller, std::uintptr_t* definer,
                                                                      unsigned int* flags, const char* name)
{
    *flags |= LA_SYMB_NOPLTENTER | LA_SYMB_NOPLTEXIT;
    if (ELF64_ST_TYPE(symbol->st_info) != STT_FUNC || !ModuleScan(loadedModule(*definer)).isExportingLibrary())
    {
        return symbol->st_value;
    }
    const Reach reach = (*flags & LA_SYMB_DLSYM) != 0 ? Reach::looked_up : Reach::linked;
    const auto entry = entryFor(name, moduleName(loadedModule(*caller)), reach, symbol->st_value);
    return entry ? reinterpret_cast<std::uintptr_t>(kestTraceSlots + *entry * slot_size) : symbol->st_value;
}
