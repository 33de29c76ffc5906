orvane_add_tests(presets
  SOURCES
    CloudPresetsTest.cpp
    HostPresetsTest.cpp
    PresetLibraryTest.cpp
    PresetListTest.cpp
    PresetManagerTest.cpp
    PresetMishapsTest.cpp
    PresetProcessesTest.cpp
    PresetSessionTest.cpp
    PresetTransferTest.cpp
    PresetTrashTest.cpp
  DEPENDS orvane::headless orvane::orvane orvane::quillon orvane::toolkit orvane::foundation)
# What the tests run several times at once, and kill.
orvane_add_executable(preset_saver
  SOURCES support/PresetSaver.cpp
  DEPENDS orvane::headless orvane::orvane orvane::quillon orvane::toolkit orvane::foundation
    GTest::gtest)
add_dependencies(test_presets preset_saver)
