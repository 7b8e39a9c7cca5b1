#include "common/windows_errors.h"

#include <cerrno>
#include <kest_kit/system_errors.h>

namespace kest::common
{

int windowsErrorOf(int systemError)
{
    switch (systemError)
    {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ELOOP:
        return ERROR_PATH_NOT_FOUND;
    case EMFILE:
    case ENFILE:
        return ERROR_TOO_MANY_OPEN_FILES;
    case EACCES:
    case EPERM:
    case EISDIR: // Windows refuses to open folders as files with this code
        return ERROR_ACCESS_DENIED;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case EBUSY:
    case ETXTBSY:
        return ERROR_BUSY;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    default:
        return ERROR_GEN_FAILURE;
    }
}

} // namespace kest::common
