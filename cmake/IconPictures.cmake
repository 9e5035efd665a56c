# Turns the drawings in resources/icons into the pictures that the desktop program carries. Each is
# drawn twice, with black and with white ink for its parts of colour "currentColor": from the two
# the program makes a picture for any ink.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# Twice what the toolbar shows at 200 %, so that scaling down loses nothing; more would take longer to
# read at the start.
set(PACKWRIGHT_ICON_PIXELS 96)

# packwright_icon_pictures(TARGET) adds them to the target as the resources ":/icons/INK/NAME.png".
function(packwright_icon_pictures target)
  file(GLOB drawings CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/icons/*.svg)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
  set(pictures)
  foreach(ink IN ITEMS black white)
    set(style ${folder}/${ink}.css)
    file(CONFIGURE OUTPUT ${style} CONTENT "svg { color: ${ink} }\n")
    file(MAKE_DIRECTORY ${folder}/${ink})
    foreach(drawing IN LISTS drawings)
      cmake_path(GET drawing STEM name)
      set(picture ${folder}/${ink}/${name}.png)
      add_custom_command(
        OUTPUT ${picture}
        COMMAND ${RSVG_CONVERT} -w ${PACKWRIGHT_ICON_PIXELS} -h ${PACKWRIGHT_ICON_PIXELS}
                -s ${style} -o ${picture} ${drawing}
        DEPENDS ${drawing} ${style}
        VERBATIM)
      list(APPEND pictures ${picture})
    endforeach()
  endforeach()
  qt_add_resources(${target} icons PREFIX /icons BASE ${folder} FILES ${pictures})
endfunction()
