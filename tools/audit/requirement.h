// What the audited files need, and what they define themselves.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace kest::audit
{

// A function or variable that a file leaves to others.
struct Need
{
    std::string symbol;    // without the decorations of imports and calling conventions
    std::string module;    // of an import: the DLL it is taken from, as the file spells it
    bool optional = false; // may stay undefined
};

struct FileContents
{
    std::string path;
    std::string format; // in words
    std::vector<Need> needs;
    std::unordered_set<std::string> defines;
    std::string soname;
    std::vector<std::string> libraries;       // that the loader loads with it
    std::vector<std::string> library_folders; // its own search path
    std::uint16_t machine = 0;                // an ELF machine; 0 for Windows files
    std::vector<std::string> problems;        // each a sentence that names the file
};

} // namespace kest::audit
