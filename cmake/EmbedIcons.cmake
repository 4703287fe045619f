set(WRITE_EMBEDDED_ICONS ${CMAKE_CURRENT_LIST_DIR}/WriteEmbeddedIcons.cmake)

# Adds a source to `target` that holds every SVG file of `folder` as text, found by its name without the extension.
function(embed_icons target folder)
  file(GLOB icons CONFIGURE_DEPENDS ${folder}/*.svg)
  if(NOT icons)
    message(FATAL_ERROR "No icons in ${folder}")
  endif()
  set(output ${CMAKE_CURRENT_BINARY_DIR}/EmbeddedIcons.cpp)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DFOLDER=${folder} -P ${WRITE_EMBEDDED_ICONS}
    DEPENDS ${icons} ${WRITE_EMBEDDED_ICONS}
    COMMENT "Embedding the icons"
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
  set_source_files_properties(${output} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endfunction()
