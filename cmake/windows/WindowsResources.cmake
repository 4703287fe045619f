# add_windows_resources(<target> <file name> <description>)  Icon, version and manifest of a program.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)
set(WINDOWS_RESOURCES ${CMAKE_CURRENT_LIST_DIR})

function(add_windows_resources target file_name description)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/resources)
  set(drawing ${CMAKE_SOURCE_DIR}/resources/icons/ICON_QBT.svg)
  set(pictures)
  set(commands)
  foreach(size 16 20 24 32 40 48 64 256)
    set(picture ${folder}/${size}.png)
    list(APPEND commands COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${drawing})
    list(APPEND pictures ${picture})
  endforeach()
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(
    OUTPUT ${folder}/program.ico
    ${commands}
    COMMAND ${ICOTOOL} --create --output ${folder}/program.ico ${pictures}
    DEPENDS ${drawing}
    COMMENT "Icon of ${file_name}"
    VERBATIM)
  configure_file(${WINDOWS_RESOURCES}/Program.manifest ${folder}/program.manifest COPYONLY)
  configure_file(${WINDOWS_RESOURCES}/Program.rc.in ${folder}/program.rc @ONLY)
  set_source_files_properties(${folder}/program.rc PROPERTIES OBJECT_DEPENDS
                                                              "${folder}/program.ico;${folder}/program.manifest")
  # Named as a source, so that it is made.
  target_sources(${target} PRIVATE ${folder}/program.rc ${folder}/program.ico)
endfunction()
