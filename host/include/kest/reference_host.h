/*
 * Kest reference host: IPlatformServices over Linux components.
 *
 * A program that has no host of its own installs this one whole:
 *
 *     static KestReferenceHost host;
 *     setPlatformServices(&host);
 *
 * One that brings, say, its own windows derives from it and replaces that getter:
 *
 *     class Host : public KestReferenceHost { IWindowService* windowService() override { return &windows; } ... };
 *
 * Every service is a class of its own with a header of its own, to be used or derived from alone. Their
 * operations may be called from any thread. Without memory they fail, with ERROR_NOT_ENOUGH_MEMORY or what their own
 * results have for it. The host must outlive every call into the library.
 */
#ifndef KEST_REFERENCE_HOST_H
#define KEST_REFERENCE_HOST_H

#include "kest/platform_services.h"

#include <memory>

class KEST_API KestReferenceHost : public IPlatformServices
{
public:
    /** std::bad_alloc without memory. */
    KestReferenceHost();
    virtual ~KestReferenceHost();
    KestReferenceHost(const KestReferenceHost&) = delete;
    KestReferenceHost& operator=(const KestReferenceHost&) = delete;

    IWindowService* windowService() override;
    IFileSystemService* fileSystemService() override;
    ICursorService* cursorService() override;
    IFontService* fontService() override;
    IGraphicsService* graphicsService() override;
    IProfileService* profileService() override;
    IDialogService* dialogService() override;
    IRegistryService* registryService() override;
    ISystemService* systemService() override;

private:
    struct Services;
    std::unique_ptr<Services> services_;
};

#endif
