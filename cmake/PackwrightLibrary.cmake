# packwright_library(FOLDER [dependencies...]) makes the static library packwright_FOLDER from the
# sources of the current folder. Files named *_win.cpp and *_posix.cpp are chosen by platform.
function(packwright_library name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_win\\.cpp$")
  endif()
  add_library(packwright_${name} STATIC ${sources})
  target_link_libraries(packwright_${name} PUBLIC packwright_options ${ARGN})
endfunction()
