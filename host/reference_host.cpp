#include "kest/reference_host.h"

#include "kest/host/cursor_service.h"
#include "kest/host/dialog_service.h"
#include "kest/host/file_system_service.h"
#include "kest/host/font_service.h"
#include "kest/host/graphics_service.h"
#include "kest/host/profile_service.h"
#include "kest/host/registry_service.h"
#include "kest/host/system_service.h"
#include "kest/host/window_service.h"

struct KestReferenceHost::Services
{
    kest::host::ConsoleWindowService window;
    kest::host::FileSystemService fileSystem;
    kest::host::ConsoleCursorService cursor;
    kest::host::ConsoleFontService font;
    kest::host::ConsoleGraphicsService graphics;
    kest::host::ProfileService profile;
    kest::host::TerminalDialogService dialog;
    kest::host::RegistryService registry;
    kest::host::SystemService system;
};

KestReferenceHost::KestReferenceHost() : services_(new Services)
{
}

KestReferenceHost::~KestReferenceHost() = default;

IWindowService* KestReferenceHost::windowService()
{
    return &services_->window;
}

IFileSystemService* KestReferenceHost::fileSystemService()
{
    return &services_->fileSystem;
}

ICursorService* KestReferenceHost::cursorService()
{
    return &services_->cursor;
}

IFontService* KestReferenceHost::fontService()
{
    return &services_->font;
}

IGraphicsService* KestReferenceHost::graphicsService()
{
    return &services_->graphics;
}

IProfileService* KestReferenceHost::profileService()
{
    return &services_->profile;
}

IDialogService* KestReferenceHost::dialogService()
{
    return &services_->dialog;
}

IRegistryService* KestReferenceHost::registryService()
{
    return &services_->registry;
}

ISystemService* KestReferenceHost::systemService()
{
    return &services_->system;
}
