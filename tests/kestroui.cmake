orvane_add_tests(kestroui
  SOURCES
    ChoiceControlsTest.cpp
    ContainerTest.cpp
    ControlGesturesTest.cpp
    ControlTypeTest.cpp
    DisplayContainersTest.cpp
    DropDownListTest.cpp
    ShapeKindsTest.cpp
    MidiMapTextTest.cpp
  DEPENDS orvane::kestroui orvane::toolkit orvane::foundation)
