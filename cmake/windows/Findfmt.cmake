include(HostHeaders)
if(NOT TARGET fmt::fmt)
  # The hash tables of the profile engine are headers too, and need no package file of their own.
  host_headers(fmt_headers fmt tsl)
  add_library(fmt STATIC ${CMAKE_SOURCE_DIR}/cmake/windows/FormatLibrary.cpp)
  target_link_libraries(fmt PUBLIC fmt_headers)
  add_library(fmt::fmt ALIAS fmt)
endif()
set(fmt_FOUND TRUE)
