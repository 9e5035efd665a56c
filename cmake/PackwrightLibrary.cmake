# packwright_sources(VARIABLE FOLDER...) sets VARIABLE to the C++ sources of the folders. Files named
# *_win.cpp and *_posix.cpp are chosen by platform.
function(packwright_sources variable)
  set(sources)
  foreach(folder IN LISTS ARGN)
    file(GLOB found CONFIGURE_DEPENDS ${folder}/*.cpp)
    list(APPEND sources ${found})
  endforeach()
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_win\\.cpp$")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# packwright_library(NAME [ROOMS subfolders...] [USES libraries...]) makes the static library
# packwright_NAME from the sources of the current folder and of those subfolders.
function(packwright_library name)
  cmake_parse_arguments(PARSE_ARGV 1 library "" "" "ROOMS;USES")
  packwright_sources(sources ${CMAKE_CURRENT_SOURCE_DIR} ${library_ROOMS})
  add_library(packwright_${name} STATIC ${sources})
  target_link_libraries(packwright_${name} PUBLIC packwright_options ${library_USES})
endfunction()
