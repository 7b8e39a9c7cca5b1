/* Kest Platform Base: the export macro. It stands on public declarations and nowhere else. */
#ifndef KEST_EXPORT_H
#define KEST_EXPORT_H

/** Marks a function, class or variable that libKestPlatformBase.so exports. */
#define KEST_API __attribute__((visibility("default")))

#ifdef __cplusplus
#define KEST_C_BEGIN                                                                                                   \
    extern "C"                                                                                                         \
    {
#define KEST_C_END }
#else
#define KEST_C_BEGIN
#define KEST_C_END
#endif

#endif
