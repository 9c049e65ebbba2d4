# Warnings and sanitizers, one interface target that every target of ours links.
add_library(qd_options INTERFACE)
target_compile_options(qd_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
if(QD_SANITIZE)
  target_compile_options(qd_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
  target_link_options(qd_options INTERFACE -fsanitize=address,undefined)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # The runtime lies in a folder of the compiler's, where the loader does not look by itself.
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-runtime-dir OUTPUT_VARIABLE runtime
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    target_link_options(qd_options INTERFACE -shared-libasan -Wl,-rpath,${runtime})
  endif()
endif()

# What the fuzz targets steer by: coverage of the code that they reach.
add_library(qd_coverage INTERFACE)
if(QD_WITH_FUZZERS)
  target_compile_options(qd_coverage INTERFACE -fsanitize=fuzzer-no-link)
endif()
# Glue over large header-only libraries: to be built quickly matters more than its speed, and the sanitizers
# need not watch those libraries.
add_library(qd_glue INTERFACE)
if(QD_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(qd_glue INTERFACE -O0 -fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizer_ignorelist.txt)
elseif(NOT QD_SANITIZE)
  target_compile_options(qd_glue INTERFACE $<$<CONFIG:Release>:-O1>)
endif()
