# What a Windows program carries beside its code: icon, version, manifest.
set(PACKWRIGHT_ICON ${CMAKE_BINARY_DIR}/packwright.ico)

# Makes the icon in the sizes that Windows shows, at 100 % to 400 %.
function(packwright_icon)
  find_program(RSVG_CONVERT rsvg-convert REQUIRED)
  find_program(ICOTOOL icotool REQUIRED)
  set(drawing ${CMAKE_SOURCE_DIR}/resources/icons/packwright.svg)
  set(pictures)
  foreach(pixels IN ITEMS 16 20 24 32 40 48 64 96 256)
    set(picture ${CMAKE_BINARY_DIR}/packwright-${pixels}.png)
    add_custom_command(
      OUTPUT ${picture}
      COMMAND ${RSVG_CONVERT} -w ${pixels} -h ${pixels} -o ${picture} ${drawing}
      DEPENDS ${drawing}
      VERBATIM)
    list(APPEND pictures ${picture})
  endforeach()
  list(TRANSFORM pictures PREPEND "--raw=" REGEX "-256\\.png$" OUTPUT_VARIABLE arguments)
  add_custom_command(
    OUTPUT ${PACKWRIGHT_ICON}
    COMMAND ${ICOTOOL} --create --output=${PACKWRIGHT_ICON} ${arguments}
    DEPENDS ${pictures}
    VERBATIM)
  add_custom_target(packwright_icon DEPENDS ${PACKWRIGHT_ICON})
endfunction()

if(WIN32)
  enable_language(RC)
  packwright_icon()
endif()

# packwright_windows_resources(PROGRAM DESCRIPTION); does nothing elsewhere.
function(packwright_windows_resources PACKWRIGHT_PROGRAM PACKWRIGHT_DESCRIPTION)
  if(NOT WIN32)
    return()
  endif()
  set(folder ${CMAKE_SOURCE_DIR}/packaging/windows)
  set(PACKWRIGHT_MANIFEST ${folder}/program.manifest)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${PACKWRIGHT_PROGRAM}.rc)
  configure_file(${folder}/program.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS
                                                      "${PACKWRIGHT_ICON};${PACKWRIGHT_MANIFEST}")
  target_sources(${PACKWRIGHT_PROGRAM} PRIVATE ${resources})
  add_dependencies(${PACKWRIGHT_PROGRAM} packwright_icon)
endfunction()
