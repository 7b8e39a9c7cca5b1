// The audit itself: each function that the files need, and how it is answered.
#pragma once

#include "audit/requirement.h"
#include "tables/export_table.h"

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kest::audit
{

// How a function is answered, from best to worst.
enum class Answer
{
    compiler,  // the Windows compiler's own: gone when the source is compiled here
    c_library, // a function of the C or C++ library, which Linux has under the same name
    companion, // supplied by the companions
    local,     // supplied by the library
    forwarded, // handed to the host
    fixed_result,
    ends_the_process,
    not_provided
};

inline constexpr std::array answers = {
    Answer::not_provided, Answer::ends_the_process, Answer::fixed_result, Answer::forwarded,
    Answer::local,        Answer::companion,        Answer::c_library,    Answer::compiler};

const char* answerName(Answer answer);

struct Function
{
    std::string symbol;
    std::string name; // for readers
    Answer answer = Answer::not_provided;
    const tools::Export* row = nullptr; // of what the libraries answer
    std::string hint;                   // of what is not provided: what comes near
    std::set<std::string> modules;      // the DLLs from which Windows files import it
    std::set<std::string> needed_by;
};

struct HostOperation
{
    std::string service;
    std::string name;
    unsigned position = 0;
    std::set<std::string> functions; // that call it
};

struct Audit
{
    std::vector<FileContents> files;
    std::vector<Function> functions; // the worst answers first, then by name
    std::vector<HostOperation> operations;
    std::map<std::string, std::string> missing_libraries; // and the files that need them

    bool hasProblems() const;
    std::size_t count(Answer answer) const;
    Answer worst() const; // the best answer where nothing is needed
};

// Audits the files; `definers` are files that are not audited, whose definitions count.
Audit audit(const std::vector<std::string>& paths, const std::vector<std::string>& definers);

} // namespace kest::audit
