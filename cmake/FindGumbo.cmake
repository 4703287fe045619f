# The HTML parser of the system.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GUMBO REQUIRED IMPORTED_TARGET gumbo)
if(NOT TARGET Gumbo::Gumbo)
  add_library(Gumbo::Gumbo ALIAS PkgConfig::GUMBO)
endif()
set(Gumbo_FOUND TRUE)
