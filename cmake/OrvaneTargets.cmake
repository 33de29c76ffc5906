# The verbs of this project's CMakeLists.txt files.
#
#   orvane_add_room(<room> [INTERFACE] [SOURCES ...] [HEADERS ...] [DEPENDS ...] [PRIVATE_DEPENDS ...])
#   orvane_add_executable(<name> [INSTALL] SOURCES ... [DEPENDS ...])
#   orvane_add_tests(<area> SOURCES ... [DEPENDS ...])
#   orvane_add_fuzzer(<name> SOURCES ... [DEPENDS ...])
#   orvane_write_information(<file> NAME <name> IDENTIFIER <reverse domain> VERSION <a.b.c>
#     [BUILD <number>] [STORE_IDENTIFIER <text>])
#   orvane_configure_target(<target>)      for a target made by someone else's function

include(GNUInstallDirs)

# Headers keep their room in an installed tree too, so that "toolkit/View.h" reads the same there.
set(ORVANE_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/orvane")

# JUCE's modules are compiled into the rooms that stand on it; a package of ours cannot carry them.
set(ORVANE_ROOMS_NOT_INSTALLED juce lv2)

# Adds directories below the top.
function(orvane_add_directories)
  foreach(directory IN LISTS ARGN)
    add_subdirectory("${Orvane_SOURCE_DIR}/${directory}" "${Orvane_BINARY_DIR}/${directory}")
  endforeach()
endfunction()

# How our own sources are compiled. Nothing here reaches the targets that link this one.
function(orvane_configure_target target)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 20
    CXX_STANDARD_REQUIRED ON
    CXX_EXTENSIONS OFF
    # A host loads many plug-ins into one process; each keeps its copy of these symbols to itself.
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(ORVANE_WARNINGS)
    target_compile_options(${target} PRIVATE
      $<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Werror>
      # GCC 12 sees overlaps in std::string's operator+ that cannot be (its bug 105651).
      $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  endif()
endfunction()

# One room: the static library orvane_<room> and its alias orvane::<room>. DEPENDS is what the
# room's headers include, PRIVATE_DEPENDS what only its sources do.
function(orvane_add_room room)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERFACE" "" "SOURCES;HEADERS;DEPENDS;PRIVATE_DEPENDS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "orvane_add_room(${room}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  if(arg_INTERFACE AND (arg_SOURCES OR arg_PRIVATE_DEPENDS))
    message(FATAL_ERROR "orvane_add_room(${room}): a room of headers has no sources of its own")
  endif()

  set(target orvane_${room})
  if(arg_INTERFACE)
    set(scope INTERFACE)
    add_library(${target} INTERFACE ${arg_HEADERS})
  else()
    set(scope PUBLIC)
    add_library(${target} STATIC ${arg_SOURCES} ${arg_HEADERS})
    orvane_configure_target(${target})
    target_link_libraries(${target} PRIVATE ${arg_PRIVATE_DEPENDS})
  endif()
  add_library(orvane::${room} ALIAS ${target})

  target_compile_features(${target} ${scope} cxx_std_20)
  target_include_directories(${target} ${scope}
    "$<BUILD_INTERFACE:${Orvane_SOURCE_DIR}>"
    "$<INSTALL_INTERFACE:${ORVANE_INSTALL_INCLUDEDIR}>")
  target_link_libraries(${target} ${scope} ${arg_DEPENDS})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${room})
  if(room STREQUAL "orvane")
    set_target_properties(${target} PROPERTIES OUTPUT_NAME Orvane)
  endif()

  if(NOT ORVANE_INSTALL OR room IN_LIST ORVANE_ROOMS_NOT_INSTALLED)
    return()
  endif()
  install(TARGETS ${target} EXPORT OrvaneTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  foreach(header IN LISTS arg_HEADERS)
    file(REAL_PATH "${header}" path BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
    file(RELATIVE_PATH path "${Orvane_SOURCE_DIR}" "${path}")
    get_filename_component(folder "${path}" DIRECTORY)
    install(FILES "${header}" DESTINATION "${ORVANE_INSTALL_INCLUDEDIR}/${folder}")
  endforeach()
endfunction()

# The property list in which a plug-in or program says what it is; see foundation/Bundle.h for where it
# is looked for.
function(orvane_write_information file)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME;IDENTIFIER;VERSION;BUILD;STORE_IDENTIFIER" "")
  if(arg_UNPARSED_ARGUMENTS OR NOT arg_NAME OR NOT arg_VERSION)
    message(FATAL_ERROR "orvane_write_information(${file}) needs NAME and VERSION; what is "
      "'${arg_UNPARSED_ARGUMENTS}'?")
  endif()
  if(NOT arg_BUILD)
    set(arg_BUILD 1)
  endif()
  foreach(text IN ITEMS NAME IDENTIFIER VERSION BUILD STORE_IDENTIFIER)
    string(REPLACE "&" "&amp;" arg_${text} "${arg_${text}}")
    string(REPLACE "<" "&lt;" arg_${text} "${arg_${text}}")
  endforeach()
  configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Info.plist.in" "${file}" @ONLY)
endfunction()

# A program that lands in <build>/bin.
function(orvane_add_executable name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INSTALL" "" "SOURCES;DEPENDS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "orvane_add_executable(${name}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  add_executable(${name} ${arg_SOURCES})
  orvane_configure_target(${name})
  target_include_directories(${name} PRIVATE "${Orvane_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS})
  if(arg_INSTALL)
    install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endfunction()

# The tests of one area: one binary test_<area>, since linking costs more here than compiling, with
# each case an entry of CTest named <area>.<Suite>.<case>. A test finds the files of the repository
# below ORVANE_SOURCE_DIR and the built programs in ORVANE_BIN_DIR.
# ON_DISPLAY: all cases are one entry, run in a virtual display where xvfb-run is found.
function(orvane_add_tests area)
  cmake_parse_arguments(PARSE_ARGV 1 arg "ON_DISPLAY" "" "SOURCES;DEPENDS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "orvane_add_tests(${area}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()

  set(target test_${area})
  orvane_write_information("${CMAKE_BINARY_DIR}/share/${target}/Info.plist"
    NAME "Test" VERSION 1.2.3 BUILD 45 STORE_IDENTIFIER 6789)
  orvane_add_executable(${target}
    SOURCES ${arg_SOURCES} support/TemporaryHome.cpp
    DEPENDS ${arg_DEPENDS} GTest::gmock_main)
  target_compile_definitions(${target} PRIVATE
    ORVANE_SOURCE_DIR="${Orvane_SOURCE_DIR}"
    ORVANE_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  if(arg_ON_DISPLAY)
    find_program(ORVANE_XVFB_RUN xvfb-run)
    mark_as_advanced(ORVANE_XVFB_RUN)
    set(display)
    if(ORVANE_XVFB_RUN)
      set(display ${ORVANE_XVFB_RUN} -a -s "-screen 0 1280x1024x24 -noreset")
    endif()
    add_test(NAME ${area} COMMAND ${display} $<TARGET_FILE:${target}>)
    set_tests_properties(${area} PROPERTIES TIMEOUT 120)
    return()
  endif()
  gtest_discover_tests(${target}
    TEST_PREFIX "${area}."
    # Asked when ctest starts rather than after each link, so that a build runs nothing.
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120)
endfunction()

# A libFuzzer program.
function(orvane_add_fuzzer name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
  orvane_add_executable(${name} SOURCES ${arg_SOURCES} DEPENDS ${arg_DEPENDS})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
