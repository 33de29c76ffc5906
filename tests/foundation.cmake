orvane_add_tests(foundation
  SOURCES
    ArchiveOracleTest.cpp
    DispatchQueueTest.cpp
    FuzzCorpusTest.cpp
    KeyedArchiveTest.cpp
    LocalFileManagerTest.cpp
    NetworkSessionTest.cpp
    PropertyListCodingTest.cpp
    RealtimePortTest.cpp
    RunLoopTest.cpp
    UnicodeTextTest.cpp
    UserDefaultsTest.cpp
    ${Orvane_SOURCE_DIR}/fuzz/PropertyListTargets.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::foundation Threads::Threads)

# An independent implementation of keyed archives, for files that are exchanged both ways. Debian
# has it for GCC's Objective-C runtime; the program is built with clang, beside and not within this
# project's own compiler.
find_program(ORVANE_GNUSTEP_CONFIG gnustep-config)
find_program(ORVANE_OBJC_COMPILER clang)
mark_as_advanced(ORVANE_GNUSTEP_CONFIG ORVANE_OBJC_COMPILER)
file(GLOB objc_headers /usr/lib/gcc/*/*/include/objc/objc.h)
if(ORVANE_GNUSTEP_CONFIG AND ORVANE_OBJC_COMPILER AND objc_headers)
  list(GET objc_headers -1 objc_header)
  get_filename_component(objc_include "${objc_header}/../.." ABSOLUTE)
  get_filename_component(objc_library "${objc_include}/.." ABSOLUTE)
  execute_process(COMMAND ${ORVANE_GNUSTEP_CONFIG} --objc-flags
    OUTPUT_VARIABLE objc_flags OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND ${ORVANE_GNUSTEP_CONFIG} --base-libs
    OUTPUT_VARIABLE objc_libraries OUTPUT_STRIP_TRAILING_WHITESPACE)
  separate_arguments(objc_flags UNIX_COMMAND "${objc_flags}")
  separate_arguments(objc_libraries UNIX_COMMAND "${objc_libraries}")
  list(REMOVE_ITEM objc_flags -MMD -MP -g)
  set(oracle "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/archive_oracle")
  set(oracle_source "${CMAKE_CURRENT_SOURCE_DIR}/oracle/ArchiveOracle.m")
  add_custom_command(OUTPUT "${oracle}"
    COMMAND ${ORVANE_OBJC_COMPILER} -fobjc-runtime=gcc -isystem "${objc_include}" ${objc_flags}
      "${oracle_source}" -o "${oracle}" "-L${objc_library}" ${objc_libraries}
    DEPENDS "${oracle_source}"
    VERBATIM)
  add_custom_target(archive_oracle ALL DEPENDS "${oracle}")
  add_dependencies(test_foundation archive_oracle)
endif()
