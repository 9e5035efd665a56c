# Makes the user guide's HTML from docs/handbuch.md, with the pictures and a small file for each
# chapter, which leads to it. The desktop program finds the guide beside itself, in the build tree as
# where it is installed.
find_program(CMARK_GFM cmark-gfm REQUIRED)

if(WIN32)
  set(PACKWRIGHT_GUIDE_FOLDER docs)  # as seen from the programs
else()
  set(PACKWRIGHT_GUIDE_FOLDER ../share/doc/packwright)
endif()
cmake_path(APPEND CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PACKWRIGHT_GUIDE_FOLDER} OUTPUT_VARIABLE guide)
cmake_path(NORMAL_PATH guide)
set(PACKWRIGHT_GUIDE ${guide}/handbuch.html)

file(GLOB pictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/*.png)
set(script ${CMAKE_SOURCE_DIR}/cmake/WriteUserGuide.cmake)
add_custom_command(
  OUTPUT ${PACKWRIGHT_GUIDE}
  COMMAND ${CMAKE_COMMAND} -DCMARK=${CMARK_GFM} -DSOURCE=${CMAKE_SOURCE_DIR}/docs/handbuch.md
          -DTARGET=${guide} -P ${script}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${pictures} ${guide}
  DEPENDS ${CMAKE_SOURCE_DIR}/docs/handbuch.md ${script} ${pictures}
  VERBATIM)
add_custom_target(guide ALL DEPENDS ${PACKWRIGHT_GUIDE})
