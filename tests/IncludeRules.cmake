# Fails when a room includes what its place in the house does not allow. The rooms and what each
# may include are the table of docs/architecture.md, which is read here: it cannot differ.
#
#   cmake -DROOT=<repository> -P tests/IncludeRules.cmake
#
# The compiler cannot say this: every room is reached from the same include root.

cmake_minimum_required(VERSION 3.22)

# A row is | `room/` ... | its job | what it may include |. The rooms before the first that lies in
# another folder are the library. A room may always include itself; the arrows are not transitive.
set(rooms)
set(library)
file(STRINGS "${ROOT}/docs/architecture.md" rows REGEX "^\\| *`[A-Za-z0-9/]+/`")
foreach(row IN LISTS rows)
  if(NOT row MATCHES "^\\|([^|]+)\\|[^|]+\\|([^|]+)\\|$")
    message(FATAL_ERROR "docs/architecture.md: a row has three cells: ${row}")
  endif()
  set(names "${CMAKE_MATCH_1}")
  set(may "${CMAKE_MATCH_2}")
  string(REGEX MATCHALL "[A-Za-z0-9/]+[A-Za-z0-9]" names "${names}")
  set(above ${rooms})
  list(APPEND rooms ${names})
  if(NOT rooms MATCHES "/")
    set(library ${rooms})
  endif()
  string(REGEX MATCHALL "`[A-Za-z0-9/]+`" arrows "${may}")
  string(REPLACE "`" "" arrows "${arrows}")
  foreach(arrow IN LISTS arrows)
    if(NOT arrow IN_LIST above)
      message(FATAL_ERROR "docs/architecture.md: no room ${arrow} is above ${names}")
    endif()
  endforeach()
  string(REGEX REPLACE "`[A-Za-z0-9/]+`" "" may "${may}")
  string(REGEX REPLACE "[, ]+" " " may "${may}")
  string(STRIP "${may}" may)
  if(may STREQUAL "the library")
    list(APPEND arrows ${library})
  elseif(may STREQUAL "everything above")
    list(APPEND arrows ${above} ${names})
  elseif(may AND NOT may STREQUAL "the standard library")
    message(FATAL_ERROR "docs/architecture.md: what do ${names} include by '${may}'?")
  endif()
  foreach(room IN LISTS names)
    set(arrows_${room} ${arrows})
  endforeach()
endforeach()

file(GLOB built RELATIVE "${ROOT}" "${ROOT}/*/CMakeLists.txt" "${ROOT}/backends/*/CMakeLists.txt"
  "${ROOT}/tools/*/CMakeLists.txt")
list(TRANSFORM built REPLACE "/CMakeLists.txt$" "")
foreach(room IN LISTS built rooms)
  if(NOT room IN_LIST rooms OR NOT room IN_LIST built)
    message(FATAL_ERROR "${room} is in the table of docs/architecture.md or in the tree, not in both")
  endif()
endforeach()

# These stand on the standard library alone: whatever else they need of the world comes through
# platform/.
set(standard_only platform toolkit KestroUI Quillon Orvane)
set(standard_headers
  algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts
  condition_variable coroutine deque exception execution filesystem format forward_list fstream
  functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list
  locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges
  ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack
  stdexcept stop_token streambuf string string_view syncstream system_error thread tuple type_traits
  typeindex typeinfo unordered_map unordered_set utility valarray variant vector version
  cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef
  cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype)
# The compiler's own intrinsics: a DSP has to switch denormals off.
set(also_allowed_Quillon xmmintrin.h pmmintrin.h)

# The benchmarks measure against a stock JUCE editor, and the tests of the desktop backend look at
# what it did to JUCE.
set(juce_allowed "^(backends/juce|benchmarks|tests/Juce)")

# Sets <result> to the room that the path from the top lies in, or to the empty string.
function(find_room path result)
  set(found "")
  foreach(room IN LISTS rooms)
    string(FIND "${path}" "${room}/" position)
    if(position EQUAL 0)
      set(found "${room}")
    endif()
  endforeach()
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

set(wrong "")
set(seen 0)
foreach(room IN LISTS rooms)
  set(patterns)
  foreach(suffix IN ITEMS h hpp inl c cpp mm)
    list(APPEND patterns "${ROOT}/${room}/*.${suffix}")
  endforeach()
  file(GLOB_RECURSE files RELATIVE "${ROOT}" ${patterns})
  foreach(file IN LISTS files)
    # Only what matched goes into the list: a bracket in a comment would join its elements.
    file(READ "${ROOT}/${file}" text)
    string(REGEX MATCHALL "(^|\n)[ \t]*#[ \t]*include[ \t]*[<\"][^>\"\n]+[>\"]" lines "${text}")
    foreach(line IN LISTS lines)
      string(REGEX MATCH "([<\"])(.+)[>\"]$" line "${line}")
      set(bracket "${CMAKE_MATCH_1}")
      set(path "${CMAKE_MATCH_2}")
      math(EXPR seen "${seen} + 1")
      find_room("${path}" target)
      set(why "")
      get_filename_component(stem "${file}" NAME_WE)
      get_filename_component(folder "${file}" DIRECTORY)
      if(file MATCHES "\\.cpp$" AND path MATCHES "^(.+)/${stem}\\.h$"
          AND NOT CMAKE_MATCH_1 STREQUAL folder AND target)
        set(why "a header lies beside its source")
      elseif(path MATCHES "^juce_|^Juce(Header|PluginDefines)")
        if(NOT file MATCHES "${juce_allowed}")
          set(why "only backends/juce includes JUCE")
        endif()
      elseif(target AND bracket STREQUAL "<")
        set(why "our own headers are included with quotes")
      elseif(target AND NOT target STREQUAL room)
        if(NOT target IN_LIST arrows_${room})
          set(why "${room} may not include ${target}")
        endif()
      elseif(NOT target AND bracket STREQUAL "\"")
        set(why "our own headers are named from the top of the repository")
      elseif(NOT target AND room IN_LIST standard_only AND NOT path IN_LIST standard_headers
          AND NOT path IN_LIST also_allowed_${room})
        set(why "${room} stands on the standard library alone")
      endif()
      if(why)
        string(APPEND wrong "  ${file}: ${path}: ${why}\n")
      endif()
    endforeach()
  endforeach()
endforeach()

if(wrong)
  message(FATAL_ERROR "Includes against the rules:\n${wrong}")
endif()
# A check that looked at nothing proves nothing.
if(seen EQUAL 0)
  message(FATAL_ERROR "No include was found below '${ROOT}'")
endif()
message(STATUS "${seen} includes follow the rules")
