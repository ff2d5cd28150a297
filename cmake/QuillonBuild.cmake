# What every target of the project is built with: warnings as errors, ccache, mold, sanitizers.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # A precompiled header carries time stamps; pch_defines and time_macros make ccache accept it.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=true ${CCACHE_PROGRAM})
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()

add_library(quillon_options INTERFACE)
target_compile_options(
  quillon_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wno-missing-field-initializers
                            -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # -fpch-preprocess lets ccache see through the precompiled header.
  # GCC 12 sees overflows in std::string's own inlined copies at -O3 where there are none (GCC bug 105651 and kin).
  target_compile_options(quillon_options INTERFACE -fpch-preprocess -Wno-restrict -Wno-stringop-overflow
                                                   -Wno-stringop-overread -Wno-array-bounds)
endif()
if(QUILLON_SANITIZE)
  target_compile_options(quillon_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(quillon_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUILLON_FUZZ)
  target_compile_options(quillon_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                   -fno-sanitize-recover=all)
  target_link_options(quillon_options INTERFACE -fsanitize=address,undefined)
endif()
