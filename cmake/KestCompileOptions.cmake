# How everything in this project is compiled and linked: language, warnings, hardening, sanitizers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug or Release" FORCE)
endif()

# In place of CMake's -O3.
set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

find_program(KEST_CCACHE ccache)
if(KEST_CCACHE)
    set(CMAKE_C_COMPILER_LAUNCHER "${KEST_CCACHE}")
    set(CMAKE_CXX_COMPILER_LAUNCHER "${KEST_CCACHE}")
endif()

add_library(kest_compile_options INTERFACE)
target_compile_options(kest_compile_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Werror
    -fstack-protector-strong -fstack-clash-protection)
target_link_options(kest_compile_options INTERFACE
    -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    target_compile_options(kest_compile_options INTERFACE -fcf-protection)
elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
    target_compile_options(kest_compile_options INTERFACE -mbranch-protection=standard)
endif()

if(KEST_SANITIZERS)
    add_compile_options(-fsanitize=${KEST_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${KEST_SANITIZERS})
else()
    # Hardening of our own code; the answers that depend on checked entry points name them and do not rely on this.
    string(APPEND CMAKE_C_FLAGS_RELEASE " -D_FORTIFY_SOURCE=2")
    string(APPEND CMAKE_CXX_FLAGS_RELEASE " -D_FORTIFY_SOURCE=2")
    # A module with undefined symbols fails at link time, not at load time (sanitizers leave theirs to the program).
    add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,-z,defs>)
endif()
