// What the program can do. Each verb returns the exit status, or throws Failure.
#pragma once

#include "command_line.h"
#include "registry_store.h"

#include <string_view>

int query(kest::host::RegistryStore& store, const Arguments& arguments);
int add(kest::host::RegistryStore& store, const Arguments& arguments);
int remove(kest::host::RegistryStore& store, const Arguments& arguments);
int importFile(kest::host::RegistryStore& store, const Arguments& arguments);
int exportKey(kest::host::RegistryStore& store, const Arguments& arguments);

// Text on standard output and, for what is no result, on standard error.
void print(std::wstring_view text);
void warn(std::wstring_view text);

// Throws Failure, with the option that makes asking needless, unless the user answers yes.
void ask(const std::wstring& question, std::wstring_view option);
