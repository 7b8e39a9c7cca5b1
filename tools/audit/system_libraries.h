// What the C and C++ libraries of Linux, and the libraries that audited files are linked with, define.
#pragma once

#include "audit/requirement.h"

#include <map>
#include <string>
#include <unordered_set>
#include <vector>

namespace kest::audit
{

class SystemLibraries
{
public:
    // Adds the C and C++ libraries for a machine (an ELF number; 0: this one), or this machine's where they are not
    // installed.
    void addStandard(std::uint16_t machine);

    // Adds the libraries that the loader would load with a file, and those that they need. Those that are not found
    // stand in missing().
    void addNeeded(const FileContents& file);

    bool define(const std::string& symbol) const { return symbols_.contains(symbol) || standardDefine(symbol); }

    // The C and C++ libraries alone.
    bool standardDefine(const std::string& symbol) const { return standard_.contains(symbol); }

    // Name of a library -> the file that needs it.
    const std::map<std::string, std::string>& missing() const { return missing_; }

private:
    std::unordered_set<std::string> symbols_;
    std::unordered_set<std::string> standard_;
    std::unordered_set<std::string> seen_;  // libraries, each for its machine
    std::unordered_set<unsigned> machines_; // whose C and C++ libraries are known
    std::map<std::string, std::string> missing_;
};

} // namespace kest::audit
