# A plug-in of the tests' own: its bundle is read back as a host does, and validated.
add_library(odd_plugin STATIC support/OddPlugin.cpp)
add_library(orvane::odd_plugin ALIAS odd_plugin)
orvane_configure_target(odd_plugin)
target_link_libraries(odd_plugin PUBLIC
  orvane::orvane orvane::quillon orvane::toolkit orvane::foundation)
orvane_add_lv2(odd_plugin
  NAME "Odd Plugin"
  NO_INSTALL
  SOURCES support/OddPluginEntry.cpp
  LIBRARIES orvane::odd_plugin)

set(odd_bundle "${CMAKE_CURRENT_BINARY_DIR}/Odd Plugin.lv2")
set(lv2_sources Lv2EditorTest.cpp Lv2SoundTest.cpp support/AllocationCounter.cpp)
set(lv2_depends orvane::lv2 orvane::odd_plugin Threads::Threads)
if(TARGET PkgConfig::lilv)
  list(APPEND lv2_sources Lv2BundleTest.cpp)
  list(APPEND lv2_depends PkgConfig::lilv)
endif()
orvane_add_tests(lv2 SOURCES ${lv2_sources} DEPENDS ${lv2_depends})
target_compile_definitions(test_lv2 PRIVATE ORVANE_ODD_BUNDLE="${odd_bundle}")
add_dependencies(test_lv2 odd_plugin_LV2)

# lv2_validate is a script around sord_validate; Debian has it in lv2-dev and lacks nothing but
# the program that it calls, which is in sordi.
find_program(ORVANE_LV2_VALIDATE lv2_validate)
find_program(ORVANE_SORD_VALIDATE sord_validate)
mark_as_advanced(ORVANE_LV2_VALIDATE ORVANE_SORD_VALIDATE)
if(ORVANE_LV2_VALIDATE AND ORVANE_SORD_VALIDATE)
  # Its script does not quote the names of files, so they are named from within the bundle.
  add_test(NAME lv2-validate
    COMMAND ${ORVANE_LV2_VALIDATE} manifest.ttl plugin.ttl presets.ttl
    WORKING_DIRECTORY "${odd_bundle}")
endif()
