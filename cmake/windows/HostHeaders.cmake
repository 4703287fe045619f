# Libraries that are headers only serve every platform. host_headers(<target> <folder of /usr/include>...) makes them
# known under the target's name, through a folder that holds nothing else, so that no other header of the build
# machine can be found.
function(host_headers target)
  set(folder ${CMAKE_BINARY_DIR}/headers)
  file(MAKE_DIRECTORY ${folder})
  foreach(name IN LISTS ARGN)
    if(NOT EXISTS /usr/include/${name})
      message(FATAL_ERROR "/usr/include/${name} is missing: packaging/install-packages build")
    endif()
    file(CREATE_LINK /usr/include/${name} ${folder}/${name} SYMBOLIC)
  endforeach()
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${folder})
endfunction()
