// kest-reg: looks at and changes the reference host's registry.
#include "common/utf8.h"
#include "failure.h"
#include "text.h"
#include "verbs.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <iterator>
#include <utility>

using namespace kest::host;

namespace
{

constexpr std::wstring_view usage =
    LR"(usage: kest-reg query KEY [/v NAME | /ve] [/t TYPE] [/s] [/f TEXT [/k] [/d] [/c] [/e]]
       kest-reg add KEY [/v NAME | /ve] [/t TYPE] [/d DATA] [/s SEPARATOR] [/f]
       kest-reg delete KEY [/v NAME | /ve | /va] [/f]
       kest-reg import FILE
       kest-reg export KEY FILE [/y] [/utf8]
Looks at and changes the registry that programs on the reference host use.

KEY begins with HKLM, HKCU, HKCR, HKU or HKCC, or their full names; backslashes separate names, so quote it for the
shell: 'HKCU\Software\Name'. Upper and lower case do not matter.

  query   shows a key's values and the keys below it
    /v NAME      this value only              /ve  the default value only
    /t TYPE      values of this type only     /s   of all keys below, too
    /f TEXT      what contains a text: keys' names, values' names and data; finding nothing is status 1
      /k /d      keys' names only, data only  /c   minding upper and lower case   /e  the whole text only
  add     makes a key, or writes a value
    /v NAME      the value's name             /ve  the default value
    /t TYPE      REG_SZ (this if none is given), REG_EXPAND_SZ, REG_MULTI_SZ, REG_DWORD, REG_QWORD, REG_BINARY,
                 REG_NONE, another type's name, or a number
    /d DATA      text; a number such as 42 or 0x2a; bytes such as 00ff
    /s SEPARATOR what stands between the texts of a REG_MULTI_SZ, \0 if none is given
    /f           overwrites without asking
  delete  removes a key with all below it, or values
    /v NAME      this value                   /ve  the default value    /va  all values
    /f           deletes without asking
  import  makes the changes in a registry file (version 5.00, UTF-16 or UTF-8): all of them or, if it is malformed, none
  export  writes a key with all below it to a registry file
    /y           overwrites the file without asking
    /utf8        in UTF-8, not in UTF-16 as Windows writes it

The registry is the file $KEST_REGISTRY, else kest/registry.db below $XDG_DATA_HOME or ~/.local/share.
Exit status: 0 done, 1 not done or not found, 2 bad command line.
)";

constexpr std::wstring_view keyOperand[] = {L"KEY"};
constexpr std::wstring_view fileOperand[] = {L"FILE"};
constexpr std::wstring_view keyAndFileOperands[] = {L"KEY", L"FILE"};

// There is one view of the registry: the options that choose between Windows's two are taken and change nothing.
constexpr Option queryOptions[] = {{L"/v", true},  {L"/ve", false},     {L"/t", true},      {L"/s", false},
                                   {L"/f", true},  {L"/k", false},      {L"/d", false},     {L"/c", false},
                                   {L"/e", false}, {L"/reg:32", false}, {L"/reg:64", false}};
constexpr Option addOptions[] = {{L"/v", true}, {L"/ve", false}, {L"/t", true},       {L"/d", true},
                                 {L"/s", true}, {L"/f", false},  {L"/reg:32", false}, {L"/reg:64", false}};
constexpr Option deleteOptions[] = {{L"/v", true},  {L"/ve", false},     {L"/va", false},
                                    {L"/f", false}, {L"/reg:32", false}, {L"/reg:64", false}};
constexpr Option importOptions[] = {{L"/reg:32", false}, {L"/reg:64", false}};
constexpr Option exportOptions[] = {{L"/y", false}, {L"/utf8", false}, {L"/reg:32", false}, {L"/reg:64", false}};

struct Verb
{
    std::wstring_view name; // in upper case
    std::span<const std::wstring_view> operands;
    std::span<const Option> options;
    int (*run)(RegistryStore&, const Arguments&);
};

constexpr Verb verbs[] = {
    {L"QUERY", keyOperand, queryOptions, query},
    {L"ADD", keyOperand, addOptions, add},
    {L"DELETE", keyOperand, deleteOptions, remove},
    {L"IMPORT", fileOperand, importOptions, importFile},
    {L"EXPORT", keyAndFileOperands, exportOptions, exportKey},
};

std::vector<std::wstring> wideArguments(int count, char** arguments)
{
    std::vector<std::wstring> words;
    for (int index = 1; index < count; ++index)
    {
        kest::common::DecodedText word = kest::common::decodeUtf8(arguments[index], kest::common::Malformed::byte);
        if (!word.valid())
        {
            throw Failure(L"argument " + std::to_wstring(index) + L" is no UTF-8 text", statusBadCommandLine);
        }
        words.push_back(std::move(word.text));
    }
    return words;
}

bool asksForHelp(const std::wstring& word)
{
    return word == L"/?" || word == L"--help" || word == L"help";
}

int run(const std::vector<std::wstring>& words)
{
    if (words.empty())
    {
        throw Failure(L"a verb is missing", statusBadCommandLine);
    }
    if (asksForHelp(words.front()) || (words.size() == 2 && asksForHelp(words.back())))
    {
        print(usage);
        return statusDone;
    }
    for (const Verb& verb : verbs)
    {
        if (verb.name == folded(words.front()))
        {
            const Arguments arguments(std::span<const std::wstring>(words).subspan(1), verb.operands, verb.options);
            RegistryStore store(defaultRegistryFile());
            store.open();
            return verb.run(store, arguments);
        }
    }
    throw Failure(L"unknown verb \"" + words.front() + L"\"", statusBadCommandLine);
}

void complain(const std::string& message)
{
    std::fprintf(stderr, "kest-reg: %s\n", message.c_str());
}

} // namespace

void print(std::wstring_view text)
{
    std::cout << toUtf8(text);
}

void warn(std::wstring_view text)
{
    complain(toUtf8(text));
}

void ask(const std::wstring& question, std::wstring_view option)
{
    std::fprintf(stderr, "kest-reg: %s (yes or no) ", toUtf8(question).c_str());
    std::string line;
    std::getline(std::cin, line);
    const std::wstring answer = folded(trimmed(fromUtf8(line)));
    if (answer != L"Y" && answer != L"YES")
    {
        throw Failure(L"nothing is changed; " + std::wstring(option) + L" answers yes");
    }
}

int main(int count, char** arguments)
{
    int status = statusFailed;
    try
    {
        status = run(wideArguments(count, arguments));
    }
    catch (const Failure& failure)
    {
        complain(failure.what());
        status = failure.status();
        if (status == statusBadCommandLine)
        {
            std::fputs("kest-reg /? shows how it is used\n", stderr);
        }
    }
    catch (const DatabaseError& error)
    {
        complain("registry \"" + defaultRegistryFile() + "\": " + error.what());
    }
    catch (const std::exception& error)
    {
        complain(error.what());
    }
    if (!std::cout.flush())
    {
        complain("standard output cannot be written to");
        status = statusFailed;
    }
    return status;
}
