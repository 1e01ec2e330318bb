# The options with which every target is compiled.
add_library(velumora-compile INTERFACE)
target_compile_definitions(velumora-compile INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(velumora-compile INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
target_link_options(velumora-compile INTERFACE -Wl,--as-needed) # every start pays for a library that is linked but not used
velumora_harden(velumora-compile)
velumora_hide_folders(velumora-compile)

if(VELUMORA_WERROR)
    target_compile_options(velumora-compile INTERFACE -Werror)
endif()
if(VELUMORA_COVERAGE)
    target_compile_options(velumora-compile INTERFACE --coverage)
    target_link_options(velumora-compile INTERFACE --coverage)
endif()
if(VELUMORA_FUZZERS) # the code under test reports its coverage to the fuzzer
    target_compile_options(velumora-compile INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VELUMORA_SANITIZERS)
    target_compile_options(velumora-compile INTERFACE -fsanitize=${VELUMORA_SANITIZERS} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    target_link_options(velumora-compile INTERFACE -fsanitize=${VELUMORA_SANITIZERS})
    target_compile_definitions(velumora-compile INTERFACE VELUMORA_SANITIZED _GLIBCXX_ASSERTIONS)
endif()
