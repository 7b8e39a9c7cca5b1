// What the cases find: a hub, a scratch folder, texts.
#pragma once

#include "harness/scratch_folder.h"
#include "harness/stub_services.h"

#include <string>

namespace kest::benchmarks
{

// Installed before the first case runs. Its window and dialog services do nothing, so that a forward costs what the
// way to them costs; registry, file system and system services are the reference host's; there is no profile service,
// so that profile files are read by the library itself.
test::StubHub& hub();

// The current directory of the program, removed at its end.
test::ScratchFolder& scratch();

// Absolute names of files and folders in the scratch folder, made when first asked for.
std::string fileOfSize(long size);
std::string folderOfFiles(long count);

std::wstring wide(const std::string& text);

// `length` characters of prose in mixed case.
std::wstring wideText(long length);
std::string narrowText(long length);
// The same outside ASCII.
std::wstring greekText(long length);
// An absolute path of components that do not exist: the kernel answers at once.
std::wstring absentName(long length);

} // namespace kest::benchmarks
