#include "program/problems.h"

#include "support/text.h"

#include <cstdio>

void Problems::add(const std::wstring& message)
{
    std::fprintf(stderr, "FolderAnalyser: %s\n", text::toUtf8(message).c_str());
    all_.push_back(message);
}
