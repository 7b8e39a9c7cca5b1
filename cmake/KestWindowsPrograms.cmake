# Programs and modules written for Windows, as CMake targets.
#
#   kest_add_windows_executable(target source...
#       [UNICODE]                      defines UNICODE and _UNICODE
#       [WIN32_SOURCES source...]      sources that are also compiled with _WIN32 and _WIN64 defined: for those that
#                                      choose their Windows branch by it. They may not include <filesystem>.
#       [HOST_FACTORY function]        IPlatformServices* function(), compiled into the program: makes the hub, which
#                                      lives as long as the process. Without it the reference host is the hub.
#       [LOCALE name])                 the process's locale, all categories. Without it the environment's character
#                                      type where that is UTF-8, else that of C.UTF-8, and the "C" locale otherwise,
#                                      as on Windows.
#
# The sources define main, wmain, WinMain or wWinMain, written as for Windows. Before it runs, the locale is set and the
# hub installed; wmain receives its arguments wide, WinMain and wWinMain the command line, quoted as on Windows. An
# argument that is not text in the locale's encoding ends the program with a message.
#
#   kest_add_windows_module(target source...
#       [FILE name]                    the name that code loads it by, "Plugin.qlx"; without it "<target>.dll"
#       [UNICODE] [WIN32_SOURCES source...])
#
# Makes the file that LoadLibraryW finds by that name. Its DllMain is exported, and every module has one: where the
# sources define none, one that answers TRUE. An undefined symbol is an error of the link.
#
# Programs and modules export what is marked __declspec(dllexport) and nothing else. A program's modules are looked for
# beside it, as on Windows, before the loader's other folders; modules are therefore built where programs are.

set(KEST_WINDOWS_TARGETS_FOLDER "${CMAKE_CURRENT_LIST_DIR}")

function(kest_add_windows_executable target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "UNICODE" "HOST_FACTORY;LOCALE" "WIN32_SOURCES")
    _kest_check_arguments(kest_add_windows_executable "${target}")

    if(arg_HOST_FACTORY)
        _kest_factory_code("${target}" "${arg_HOST_FACTORY}")
    elseif(TARGET Kest::ReferenceHost)
        set(factory_declaration "#include <kest/reference_host.h>")
        set(factory_call "new KestReferenceHost")
    else()
        message(FATAL_ERROR "kest_add_windows_executable(${target}): the reference host was not built; "
                            "name a function that makes the program's host: HOST_FACTORY function")
    endif()
    set(locale "${arg_LOCALE}")
    set(entry "${CMAKE_CURRENT_BINARY_DIR}/kest/${target}_entry.cpp")
    configure_file("${KEST_WINDOWS_TARGETS_FOLDER}/windows_program_entry.cpp.in" "${entry}" @ONLY)

    add_executable(${target} ${arg_UNPARSED_ARGUMENTS} "${entry}")
    _kest_set_up_target(${target})
    if(NOT arg_HOST_FACTORY)
        target_link_libraries(${target} PRIVATE Kest::ReferenceHost)
    endif()
    # The C library's start-up code calls main: that call goes to the entry above, which calls the program's own. The
    # program's folder is searched for the modules that the library loads only when it stands in the older tag.
    target_link_options(${target} PRIVATE LINKER:--wrap=main LINKER:--disable-new-dtags)
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
    set_property(TARGET ${target} APPEND PROPERTY BUILD_RPATH "$ORIGIN")
    set_property(TARGET ${target} APPEND PROPERTY INSTALL_RPATH "$ORIGIN")
endfunction()

function(kest_add_windows_module target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "UNICODE" "FILE" "WIN32_SOURCES")
    _kest_check_arguments(kest_add_windows_module "${target}")
    if(NOT DEFINED arg_FILE)
        set(arg_FILE "${target}.dll")
    endif()
    if(arg_FILE MATCHES "[/\\]" OR arg_FILE STREQUAL "")
        message(FATAL_ERROR "kest_add_windows_module(${target}): FILE \"${arg_FILE}\" is not a file name")
    endif()

    # The library's own translation: "lib" in front unless it is there and goes on, ".so" for ".dll" and for nothing.
    if(arg_FILE MATCHES "^(.*)(\\.[^.]*)$")
        set(stem "${CMAKE_MATCH_1}")
        set(extension "${CMAKE_MATCH_2}")
    else()
        set(stem "${arg_FILE}")
        set(extension "")
    endif()
    if(extension MATCHES "^(\\.[Dd][Ll][Ll])?$")
        set(extension ".so")
    endif()
    if(stem MATCHES "^[Ll][Ii][Bb].")
        set(prefix "")
    else()
        set(prefix "lib")
    endif()

    add_library(${target} SHARED ${arg_UNPARSED_ARGUMENTS} "${KEST_WINDOWS_TARGETS_FOLDER}/windows_module_entry.cpp")
    _kest_set_up_target(${target})
    set_target_properties(${target} PROPERTIES PREFIX "${prefix}" OUTPUT_NAME "${stem}" SUFFIX "${extension}")
    if(CMAKE_RUNTIME_OUTPUT_DIRECTORY)
        set_target_properties(${target} PROPERTIES LIBRARY_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    endif()
    # Sanitizers leave the symbols of their runtime to the program.
    get_directory_property(directory_options COMPILE_OPTIONS)
    if(NOT "${CMAKE_CXX_FLAGS};${directory_options}" MATCHES "-fsanitize")
        target_link_options(${target} PRIVATE LINKER:-z,defs)
    endif()
endfunction()

# What stops a call before it makes a target.
macro(_kest_check_arguments function target)
    if(NOT arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${function}(${target}): names no sources")
    endif()
    if(arg_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "${function}(${target}): no value after ${arg_KEYWORDS_MISSING_VALUES}")
    endif()
    foreach(source IN LISTS arg_WIN32_SOURCES)
        if(NOT source IN_LIST arg_UNPARSED_ARGUMENTS)
            message(FATAL_ERROR "${function}(${target}): \"${source}\" of WIN32_SOURCES is none of the sources")
        endif()
    endforeach()
endmacro()

# What programs and modules share.
macro(_kest_set_up_target target)
    # The companions come in a package of their own; where they are, the headers declare them.
    target_link_libraries(${target} PRIVATE Kest::WindowsHeaders $<TARGET_NAME_IF_EXISTS:Kest::Companions>)
    set_target_properties(${target} PROPERTIES
        C_VISIBILITY_PRESET hidden CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    if(arg_UNICODE)
        target_compile_definitions(${target} PRIVATE UNICODE _UNICODE)
    endif()
    if(arg_WIN32_SOURCES)
        # For this target alone, should another one have the same source.
        set_property(SOURCE ${arg_WIN32_SOURCES} APPEND PROPERTY COMPILE_DEFINITIONS
            "$<$<STREQUAL:$<TARGET_PROPERTY:NAME>,${target}>:_WIN32=1>"
            "$<$<STREQUAL:$<TARGET_PROPERTY:NAME>,${target}>:_WIN64=1>")
    endif()
endmacro()

# The declaration and the call of a host factory, which may stand in a namespace.
function(_kest_factory_code target factory)
    if(NOT factory MATCHES "^[A-Za-z_][A-Za-z0-9_]*(::[A-Za-z_][A-Za-z0-9_]*)*$")
        message(FATAL_ERROR
                "kest_add_windows_executable(${target}): HOST_FACTORY \"${factory}\" is not the name of a function")
    endif()
    string(REPLACE "::" ";" parts "${factory}")
    list(POP_BACK parts name)
    set(code "IPlatformServices* ${name}();")
    list(REVERSE parts)
    foreach(part IN LISTS parts)
        string(PREPEND code "namespace ${part} { ")
        string(APPEND code " }")
    endforeach()
    set(factory_declaration "#include <kest/platform_services.h>\n\n${code}" PARENT_SCOPE)
    set(factory_call "::${factory}()" PARENT_SCOPE)
endfunction()
