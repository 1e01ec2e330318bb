# Makes flaws hard to exploit, in every build that somebody runs: guards behind arrays on the stack, checked copies and
# formats, marked jump targets, relocation tables that are read-only once the program has started, and random addresses.
# Included by the top CMakeLists.txt before any target is made.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

# The checked functions need optimised code, so a build without a chosen type gets one that has them.
get_property(velumora_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT CMAKE_BUILD_TYPE AND NOT velumora_multi_config)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# velumora_harden(TARGET): hardens everything that links the interface library.
function(velumora_harden target)
    target_compile_options(${target} INTERFACE -Wformat -Werror=format-security)
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection) # the last exists on x86 only
        string(MAKE_C_IDENTIFIER "VELUMORA_HAS${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            target_compile_options(${target} INTERFACE ${flag})
        endif()
    endforeach()
    # The sanitizers check the plain functions and do not know the checked ones; coverage is measured without
    # optimisation.
    if(NOT VELUMORA_SANITIZERS AND NOT VELUMORA_COVERAGE)
        target_compile_options(${target} INTERFACE "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    endif()

    target_link_options(${target} INTERFACE -Wl,-z,relro,-z,now)
    # The C library's own start files have no marks for jump targets, so the linker is told to add them.
    if(VELUMORA_HAS_fcf_protection)
        check_linker_flag(CXX -Wl,-z,ibt,-z,shstk VELUMORA_LINKER_MARKS_JUMPS)
        if(VELUMORA_LINKER_MARKS_JUMPS)
            target_link_options(${target} INTERFACE -Wl,-z,ibt,-z,shstk)
        endif()
    endif()
endfunction()

# velumora_hide_folders(TARGET): makes file names in messages and debug information relative to the source folder, so
# that a program does not reveal where it was built. Coverage reports need full names.
function(velumora_hide_folders target)
    if(NOT VELUMORA_COVERAGE)
        target_compile_options(${target} INTERFACE
            -ffile-prefix-map=${CMAKE_BINARY_DIR}=./build -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.) # the last one is tried first
    endif()
endfunction()
