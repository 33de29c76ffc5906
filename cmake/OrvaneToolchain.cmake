# What holds for every target built here, ours or not.

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release, RelWithDebInfo or MinSizeRel" FORCE)
endif()

find_program(ORVANE_CCACHE ccache)
mark_as_advanced(ORVANE_CCACHE)
if(ORVANE_CCACHE)
  foreach(language IN ITEMS C CXX)
    if(NOT DEFINED CMAKE_${language}_COMPILER_LAUNCHER)
      # Paths below the source folder count as relative, so that all clones share what is cached.
      set(CMAKE_${language}_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env
        "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${ORVANE_CCACHE}")
    endif()
  endforeach()
endif()

# A sanitizer has to see every translation unit that touches shared memory or frees what another
# one allocated, so these flags cannot be per target.

if(ORVANE_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "ORVANE_FUZZ needs clang: -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++")
  endif()
  # Coverage for libFuzzer without its main, which only the fuzzers themselves link.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(ORVANE_SANITIZE)
  add_compile_options(
    -fsanitize=${ORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ORVANE_SANITIZE})
  # Sanitized programs are large, and this linker takes a third of the time.
  find_program(ORVANE_LLD ld.lld)
  mark_as_advanced(ORVANE_LLD)
  if(ORVANE_LLD)
    add_link_options(-fuse-ld=lld)
  endif()
endif()
