#include "windows_errors.h"

#include <cerrno>

namespace kest::host
{

int windowsErrorOf(int systemError)
{
    switch (systemError)
    {
    case ENOENT:
        return errorFileNotFound;
    case ENOTDIR:
    case ELOOP:
        return errorPathNotFound;
    case EMFILE:
    case ENFILE:
        return errorTooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EISDIR: // Windows refuses to open folders as files with this code
        return errorAccessDenied;
    case ENOMEM:
        return errorNotEnoughMemory;
    case EROFS:
        return errorWriteProtect;
    case EINVAL:
        return errorInvalidParameter;
    case ENOSPC:
    case EDQUOT:
        return errorDiskFull;
    case EBUSY:
    case ETXTBSY:
        return errorBusy;
    case ENAMETOOLONG:
        return errorFileNameTooLong;
    default:
        return errorGeneralFailure;
    }
}

} // namespace kest::host
