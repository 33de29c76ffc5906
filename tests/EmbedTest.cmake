# Follows the README with a project of someone else's: Gain's one source and the README's CMake lines
# beside a copy of this repository, which they take in by add_subdirectory.
#
#   cmake -DROOT=<repository> -DBUILD=<build tree> -DGENERATOR=<generator> -DC=<compiler>
#     -DCXX=<compiler> -P tests/EmbedTest.cmake
#
# It stops short of the build, which would compile the whole library once more: what the build
# would do is listed, so that a source or rule that is missing is told all the same.
cmake_minimum_required(VERSION 3.22)

set(work "${BUILD}/embed-test")
file(REMOVE_RECURSE "${work}")
file(MAKE_DIRECTORY "${work}")
file(READ "${ROOT}/README.md" readme)
if(NOT readme MATCHES "```cmake\n(cmake_minimum_required[^`]+)```")
  message(FATAL_ERROR "README.md shows no CMakeLists.txt")
endif()
file(WRITE "${work}/CMakeLists.txt" "${CMAKE_MATCH_1}")
file(COPY "${ROOT}/examples/Gain/Gain.cpp" DESTINATION "${work}")
file(CREATE_LINK "${ROOT}" "${work}/orvane" SYMBOLIC)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} -S "${work}" -B "${work}/build" -G "${GENERATOR}"
  "-DCMAKE_C_COMPILER=${C}" "-DCMAKE_CXX_COMPILER=${CXX}")
run(${CMAKE_COMMAND} --build "${work}/build" -- -n)
foreach(file IN ITEMS "share/Gain" "plugins/Gain.vst3/Contents")
  file(READ "${work}/build/${file}/Info.plist" information)
  if(NOT information MATCHES "<string>org.orvane.gain</string>")
    message(FATAL_ERROR "${file}/Info.plist does not say what Gain is")
  endif()
endforeach()
# What is installed is Gain, and nothing of the library that it stands on.
file(GLOB_RECURSE scripts "${work}/build/*cmake_install.cmake")
foreach(script IN LISTS scripts)
  file(READ "${script}" text)
  if(text MATCHES "include/orvane|liborvane|cmake/Orvane")
    message(FATAL_ERROR "${script} installs Orvane itself")
  endif()
endforeach()
