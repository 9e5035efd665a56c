# One interface target carries the standard, the warnings and the sanitizers of every target.
add_library(packwright_options INTERFACE)
target_compile_features(packwright_options INTERFACE cxx_std_20)
target_include_directories(packwright_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(
  packwright_options
  INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
            -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wunused -Wpedantic
            -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(packwright_options INTERFACE -Wduplicated-cond -Wlogical-op -Wuseless-cast)
endif()
if(CMAKE_UNITY_BUILD)
  # Sources read as one see each other's names; builds that read them one by one have this warning.
  target_compile_options(packwright_options INTERFACE -Wno-shadow)
endif()
if(PACKWRIGHT_WERROR)
  target_compile_options(packwright_options INTERFACE -Werror)
endif()
if(PACKWRIGHT_SANITIZE)
  # A finding ends the program, so that no test passes over one.
  set(sanitizers -fsanitize=${PACKWRIGHT_SANITIZE} -fno-sanitize-recover=all)
  target_compile_options(packwright_options INTERFACE ${sanitizers} -fno-omit-frame-pointer)
  target_link_options(packwright_options INTERFACE ${sanitizers})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Sanitizers' own code makes GCC suspect standard headers; the release build has this warning.
    target_compile_options(packwright_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
if(WIN32)
  target_compile_definitions(
    packwright_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()
