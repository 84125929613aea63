# Icons are drawings, packaging/*.svg, rendered in the sizes that desktops ask for: calvora is the
# program's, analysis and project are those of its files.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(CALVORA_ICON_SIZES 16 24 32 48 64 128 256)
set(CALVORA_ICONS ${CMAKE_BINARY_DIR}/icons)

# Renders a drawing to CALVORA_ICONS/name/SIZE.png and names these files in `out`.
function(calvora_render name out)
  set(drawing ${CMAKE_SOURCE_DIR}/packaging/${name}.svg)
  file(MAKE_DIRECTORY ${CALVORA_ICONS}/${name})
  foreach(size IN LISTS CALVORA_ICON_SIZES)
    set(picture ${CALVORA_ICONS}/${name}/${size}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing} VERBATIM
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} ${drawing} -o ${picture})
    list(APPEND pictures ${picture})
  endforeach()
  set(${out} ${pictures} PARENT_SCOPE)
endfunction()

# Renders the program's icon and compiles it into a target, as :/icons/SIZE.png.
function(calvora_add_icons target)
  calvora_render(calvora pictures)
  qt_add_resources(${target} icons PREFIX /icons BASE ${CALVORA_ICONS}/calvora FILES ${pictures})
endfunction()

# Installs a drawing and its pictures as an icon of the desktop; `kind` is apps or mimetypes.
function(calvora_install_icon name kind icon)
  set(folder share/icons/hicolor)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/${name}.svg
          DESTINATION ${folder}/scalable/${kind} RENAME ${icon}.svg)
  foreach(size IN LISTS CALVORA_ICON_SIZES)
    install(FILES ${CALVORA_ICONS}/${name}/${size}.png
            DESTINATION ${folder}/${size}x${size}/${kind} RENAME ${icon}.png)
  endforeach()
endfunction()
