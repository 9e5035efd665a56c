# Libraries of the layers below Qt, all from the system's packages.
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)

# Debian 12's libdeflate and utf8proc ship no CMake package: find header and library.
function(packwright_find target header library)
  find_path(${target}_INCLUDE ${header} REQUIRED)
  find_library(${target}_LIBRARY ${library} REQUIRED)
  mark_as_advanced(${target}_INCLUDE ${target}_LIBRARY)
  add_library(${target} UNKNOWN IMPORTED GLOBAL)
  set_target_properties(${target} PROPERTIES IMPORTED_LOCATION "${${target}_LIBRARY}"
                                             INTERFACE_INCLUDE_DIRECTORIES "${${target}_INCLUDE}")
endfunction()

# Header-only libraries; their headers are not held to this program's warnings.
function(packwright_header_only target header)
  find_path(${target}_INCLUDE ${header} REQUIRED)
  mark_as_advanced(${target}_INCLUDE)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE "${${target}_INCLUDE}")
endfunction()

packwright_find(libdeflate libdeflate.h deflate)
packwright_find(libzip zip.h zip)
packwright_find(utf8proc utf8proc.h utf8proc)
if(WIN32)
  # The cross-build links them statically; without this their headers would import from a DLL.
  target_compile_definitions(utf8proc INTERFACE UTF8PROC_STATIC)
  target_compile_definitions(libzip INTERFACE ZIP_STATIC)
endif()
