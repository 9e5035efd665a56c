# Tests of the layers with Qt: each tests/FOLDER/CLASS.cpp is a Qt Test class with its own main, and
# becomes a program and a ctest test of that name.
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

set(CMAKE_AUTOMOC ON)
packwright_sources(qt_support_sources ${CMAKE_CURRENT_SOURCE_DIR}/support
                   ${CMAKE_CURRENT_SOURCE_DIR}/support/desktop)
list(REMOVE_ITEM qt_support_sources ${CMAKE_CURRENT_SOURCE_DIR}/support/ReportFailure.cpp)
add_library(qt_test_support STATIC ${qt_support_sources})
target_link_libraries(qt_test_support PUBLIC packwright_tools packwright_qt_options Qt6::Test)
# Tests compare with plain literals.
target_compile_options(qt_test_support PUBLIC -UQT_NO_CAST_FROM_ASCII)
packwright_precompile(qt_test_support qt_tests ${packwright_std_headers} ${packwright_qt_headers}
                      <QTest> <QSignalSpy>)

# packwright_qt_tests(FOLDER [libraries...])
function(packwright_qt_tests folder)
  packwright_sources(sources ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  foreach(source IN LISTS sources)
    cmake_path(GET source STEM name)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE ${ARGN} qt_test_support)
    packwright_precompile(${name} qt_tests)
    add_test(NAME ${folder}/${name} COMMAND ${name})
    set_tests_properties(${folder}/${name} PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen
                                                      TIMEOUT 300)
  endforeach()
endfunction()
