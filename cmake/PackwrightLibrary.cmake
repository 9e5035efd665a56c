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

# packwright_library(NAME [QT] [ROOMS subfolders...] [USES libraries...]) makes the static library
# packwright_NAME from the sources of the current folder and of those subfolders.
function(packwright_library name)
  cmake_parse_arguments(PARSE_ARGV 1 library "QT" "" "ROOMS;USES")
  packwright_sources(sources ${CMAKE_CURRENT_SOURCE_DIR} ${library_ROOMS})
  add_library(packwright_${name} STATIC ${sources})
  if(NOT library_QT)
    packwright_precompile(packwright_${name} std ${packwright_std_headers})
  endif()
  target_link_libraries(packwright_${name} PUBLIC packwright_options ${library_USES})
endfunction()

# packwright_precompile(TARGET GROUP HEADERS...) compiles the headers once for all targets of the
# group: the first one makes them, the others take them. Targets of a group share their compile
# options. Sources include what they use all the same: the presets tidy and windows build without.
function(packwright_precompile target group)
  get_property(owner GLOBAL PROPERTY packwright_precompiled_${group})
  if(owner)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    set_property(GLOBAL PROPERTY packwright_precompiled_${group} ${target})
  endif()
endfunction()

# The standard headers that most sources use; other groups add theirs.
set(packwright_std_headers
    <algorithm> <array> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory>
    <optional> <set> <sstream> <string> <string_view> <thread> <unordered_map> <utility> <vector>)
