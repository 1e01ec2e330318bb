# What makes a flaw hard to use, in every build that somebody runs: a guard behind each array on the stack, checked copies
# and formats, marked targets of jumps, tables that nobody can write to once the program has started, and a program that
# lies at another place each time. Included by the program's own CMakeLists.txt, before any target is made.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

# The checked functions exist in optimised code alone; who asks for no kind of build gets one that has them.
get_property(velumora_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT CMAKE_BUILD_TYPE AND NOT velumora_multi_config)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# velumora_harden(TARGET): to what links the interface library.
function(velumora_harden target)
    target_compile_options(${target} INTERFACE -Wformat -Werror=format-security)
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection) # the last is of x86 processors
        string(MAKE_C_IDENTIFIER "VELUMORA_HAS${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            target_compile_options(${target} INTERFACE ${flag})
        endif()
    endforeach()
    # The sanitizers watch the functions themselves and do not know the checked ones; coverage is counted unoptimised.
    if(NOT VELUMORA_SANITIZERS AND NOT VELUMORA_COVERAGE)
        target_compile_options(${target} INTERFACE "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    endif()

    target_link_options(${target} INTERFACE -Wl,-z,relro,-z,now)
    # The C library's own start files carry no mark of guarded jumps, so the linker is told.
    if(VELUMORA_HAS_fcf_protection)
        check_linker_flag(CXX -Wl,-z,ibt,-z,shstk VELUMORA_LINKER_MARKS_JUMPS)
        if(VELUMORA_LINKER_MARKS_JUMPS)
            target_link_options(${target} INTERFACE -Wl,-z,ibt,-z,shstk)
        endif()
    endif()
endfunction()

# velumora_hide_folders(TARGET): names of files in messages and in what debuggers read begin at the source folder, so that
# a program does not tell where it was built. Reports of coverage need the whole names.
function(velumora_hide_folders target)
    if(NOT VELUMORA_COVERAGE)
        target_compile_options(${target} INTERFACE
            -ffile-prefix-map=${CMAKE_BINARY_DIR}=./build -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.) # the last is tried first
    endif()
endfunction()
