# The toolkit, built once from Debian's source. The first configuration of a machine waits for that.
if(NOT wxWidgets_FOUND)
  execute_process(
    COMMAND ${CMAKE_SOURCE_DIR}/packaging/windows-libraries
    OUTPUT_VARIABLE folder
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # Everything for the compiler stands in these: headers of their own folder only, not to be warned about.
  execute_process(
    COMMAND ${folder}/bin/wx-config --cppflags
    OUTPUT_VARIABLE flags
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(
    COMMAND ${folder}/bin/wx-config --libs core,base
    OUTPUT_VARIABLE libraries
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  separate_arguments(wxWidgets_LIBRARIES UNIX_COMMAND "${libraries}")
  # Whether a program has a console is its own decision.
  list(REMOVE_ITEM wxWidgets_LIBRARIES -Wl,--subsystem,windows -mwindows)
  set(wxWidgets_INCLUDE_DIRS)
  set(wxWidgets_DEFINITIONS)
  foreach(flag IN LISTS flags)
    if(flag MATCHES "^-I(.+)")
      list(APPEND wxWidgets_INCLUDE_DIRS ${CMAKE_MATCH_1})
    elseif(flag MATCHES "^-D(.+)")
      list(APPEND wxWidgets_DEFINITIONS ${CMAKE_MATCH_1})
    endif()
  endforeach()
  set(wxWidgets_CXX_FLAGS)
endif()
set(wxWidgets_FOUND TRUE)
