# The program on the first screen of the README is the one that is built.
#
#   cmake -DROOT=<repository> -P tests/ReadmeTest.cmake
cmake_minimum_required(VERSION 3.22)

file(READ "${ROOT}/README.md" readme)
file(READ "${ROOT}/examples/Gain/Gain.cpp" program)
string(FIND "${readme}" "```cpp\n${program}```\n" place)
if(place EQUAL -1)
  message(FATAL_ERROR "README.md does not show examples/Gain/Gain.cpp as it stands")
endif()
