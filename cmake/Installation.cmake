set(CMAKE_INSTALL_DOCDIR share/doc/quillbank-translator)
include(GNUInstallDirs)

# The programs find wording and help in their own directory. So all of that lies together in a folder of its own, and
# the folder of commands holds links.
set(QB_PROGRAM_FOLDER lib/quillbank-translator)

# install_program(<target>)  A program that users call by name.
function(install_program target)
  if(WIN32)
    return() # a Windows user unpacks one folder
  endif()
  install(TARGETS ${target} RUNTIME DESTINATION ${QB_PROGRAM_FOLDER})
  cmake_path(ABSOLUTE_PATH QB_PROGRAM_FOLDER BASE_DIRECTORY / OUTPUT_VARIABLE folder)
  cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_BINDIR BASE_DIRECTORY / OUTPUT_VARIABLE commands)
  cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${commands})
  set(link ${CMAKE_BINARY_DIR}/links/${target})
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
  file(CREATE_LINK ${folder}/${target} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()
