// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/console.h"

using namespace kest::test;

static_assert(hasSignature<HANDLE(DWORD), GetStdHandle>);
