orvane_add_tests(toolkit
  SOURCES
    ControlTest.cpp
    LayerTest.cpp
    ModalTest.cpp
    TableViewTest.cpp
    TextFieldTest.cpp
    TouchTest.cpp
    ViewTest.cpp
    WindowTest.cpp
  DEPENDS orvane::toolkit orvane::foundation)
