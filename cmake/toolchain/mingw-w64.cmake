# Cross-build for 64-bit Windows with Debian's MinGW; packaging/windows makes the folders of the
# libraries that Debian does not package for Windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The -posix compilers: std::thread needs them.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

get_filename_component(packwright_out "${CMAKE_CURRENT_LIST_DIR}/../../out/windows" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${packwright_out}/prefix /usr/x86_64-w64-mingw32)
# The folder of Qt for Windows, where the desktop program is built too.
if(PACKWRIGHT_QT)
  list(APPEND CMAKE_FIND_ROOT_PATH ${PACKWRIGHT_QT})
  set(QT_HOST_PATH /usr)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PACKWRIGHT_QT)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(ZLIB_USE_STATIC_LIBS ON)

set(CMAKE_CROSSCOMPILING_EMULATOR /usr/lib/wine/wine64)
