# The icon is one drawing, packaging/calvora.svg, rendered in the sizes that desktops ask for.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(CALVORA_ICON_SIZES 16 24 32 48 64 128 256)
set(CALVORA_ICONS ${CMAKE_BINARY_DIR}/icons)
file(MAKE_DIRECTORY ${CALVORA_ICONS})

# Renders the sizes and compiles them into a target, as :/icons/SIZE.png.
function(calvora_add_icons target)
  set(drawing ${CMAKE_SOURCE_DIR}/packaging/calvora.svg)
  foreach(size IN LISTS CALVORA_ICON_SIZES)
    set(picture ${CALVORA_ICONS}/${size}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing} VERBATIM
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} ${drawing} -o ${picture})
    list(APPEND pictures ${picture})
  endforeach()
  qt_add_resources(${target} icons PREFIX /icons BASE ${CALVORA_ICONS} FILES ${pictures})
endfunction()
