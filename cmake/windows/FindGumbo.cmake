# The HTML parser, compiled from Debian's source of the package that carries its maintained continuation.
if(NOT TARGET Gumbo::Gumbo)
  execute_process(
    COMMAND ${CMAKE_SOURCE_DIR}/packaging/fetch-source ruby-nokogiri
    OUTPUT_VARIABLE package
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB sources ${package}/gumbo-parser/src/*.c)
  add_library(gumbo STATIC EXCLUDE_FROM_ALL ${sources})
  target_include_directories(gumbo SYSTEM PUBLIC ${package}/gumbo-parser/src)
  target_compile_options(gumbo PRIVATE -w)
  set_target_properties(gumbo PROPERTIES UNITY_BUILD OFF)
  add_library(Gumbo::Gumbo ALIAS gumbo)
endif()
set(Gumbo_FOUND TRUE)
