# Every outside package is looked up here, at the top: an imported target is visible only in the
# directory that found it and below, and a static library hands its private ones to whoever links it.

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(EXPAT 2.4 REQUIRED)
find_package(CURL 7.87 REQUIRED)
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(nlohmann_json 3.11 REQUIRED)

# Both desktop formats are on where their package is installed; -DORVANE_WITH_JUCE=OFF does not
# even look. JUCE's version file accepts only the exact version, so none is asked for.
if(NOT DEFINED ORVANE_WITH_JUCE OR ORVANE_WITH_JUCE)
  find_package(JUCE CONFIG QUIET)
endif()
option(ORVANE_WITH_JUCE "Build the desktop backend: windows, stand-alone and VST3" ${JUCE_FOUND})
if(ORVANE_WITH_JUCE AND NOT JUCE_FOUND)
  message(FATAL_ERROR "ORVANE_WITH_JUCE is on, but no JUCEConfig.cmake was found; on Debian, "
    "install juce-modules-source and juce-tools")
endif()

if(NOT DEFINED ORVANE_WITH_LV2 OR ORVANE_WITH_LV2)
  pkg_check_modules(lv2 QUIET IMPORTED_TARGET GLOBAL lv2)
endif()
option(ORVANE_WITH_LV2 "Build the LV2 format" ${lv2_FOUND})
if(ORVANE_WITH_LV2 AND NOT lv2_FOUND)
  message(FATAL_ERROR "ORVANE_WITH_LV2 is on, but pkg-config knows no lv2; on Debian, install lv2-dev")
endif()

# Only the tests of the LV2 format read a bundle back as a host would.
if(ORVANE_WITH_LV2 AND ORVANE_BUILD_TESTS)
  pkg_check_modules(lilv QUIET IMPORTED_TARGET GLOBAL lilv-0)
endif()

if(ORVANE_BUILD_TESTS)
  find_package(GTest REQUIRED)
endif()
