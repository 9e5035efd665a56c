# Cross-build for 64-bit Windows with Debian's MinGW. packaging/windows/test-core.sh uses it and
# makes the folder of the libraries that Debian does not package for Windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The -posix compilers: std::thread needs them.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

get_filename_component(packwright_out "${CMAKE_CURRENT_LIST_DIR}/../../out/windows" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${packwright_out}/prefix /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs that need no DLL beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(ZLIB_USE_STATIC_LIBS ON)

set(CMAKE_CROSSCOMPILING_EMULATOR /usr/lib/wine/wine64)
