include(HostHeaders)
if(NOT TARGET fmt::fmt)
  # The hash tables of the profile engine are headers too, and need no package file of their own.
  host_headers(fmt::fmt fmt tsl)
  target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
endif()
set(fmt_FOUND TRUE)
