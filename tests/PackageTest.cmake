# Installs the build into a folder of its own, and builds and runs a foreign project against it.
#
#   cmake -DBUILD=<build tree> -DGENERATOR=<generator> -DCXX=<compiler> -P tests/PackageTest.cmake
cmake_minimum_required(VERSION 3.22)

set(work "${BUILD}/package-test")
file(REMOVE_RECURSE "${work}")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${work}/prefix")
run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}/package" -B "${work}/build" -G "${GENERATOR}"
  "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_PREFIX_PATH=${work}/prefix"
  # A package elsewhere on this machine must not answer in its place.
  -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
run(${CMAKE_COMMAND} --build "${work}/build")
run("${work}/build/consumer")
