# Warnings and sanitizers, one interface target that every target of ours links.
add_library(qd_options INTERFACE)
target_compile_options(qd_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
if(QD_SANITIZE)
  target_compile_options(qd_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
  target_link_options(qd_options INTERFACE -fsanitize=address,undefined)
  if(QD_WITH_FUZZERS)
    target_compile_options(qd_options INTERFACE -fsanitize=fuzzer-no-link)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # The runtime lies in a folder of the compiler's, where the loader does not look by itself.
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-runtime-dir OUTPUT_VARIABLE runtime
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    target_link_options(qd_options INTERFACE -shared-libasan -Wl,-rpath,${runtime})
  endif()
endif()
