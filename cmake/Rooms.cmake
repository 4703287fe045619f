include(PrecompiledHeaders)

# Sets `output` to every source of the calling folder and of the folders named below it.
function(room_sources output)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  foreach(folder IN LISTS ARGN)
    file(GLOB more CONFIGURE_DEPENDS ${folder}/*.cpp)
    list(APPEND sources ${more})
  endforeach()
  set(${output} ${sources} PARENT_SCOPE)
endfunction()

# A room is one static library. It links the rooms it is given and nothing else, so that the linker enforces
# their order: runtime, platform, foundation, ui, model, editors, workflow, wx, apps.
function(add_room name)
  cmake_parse_arguments(ROOM "" "" "LINKS;EXTRA" ${ARGN})
  room_sources(sources ${ROOM_EXTRA})
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ROOM_LINKS})
  if(name STREQUAL test_support)
    quick_to_compile(test_support)
    precompile_for_tests(test_support)
  elseif(WIN32 AND NOT name STREQUAL wx)
    precompile_for_room(${name})
  endif()
endfunction()

option(QB_ROOM_TESTS "Build and run the rooms' own test programs, beside those of the programs and windows" ON)

# The tests of one room: every source of the folder in one program, each test known to CTest.
function(add_room_tests name)
  cmake_parse_arguments(ROOM "" "" "LINKS;EXTRA" ${ARGN})
  room_sources(sources ${ROOM_EXTRA})
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  if(NOT QB_ROOM_TESTS)
    set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL TRUE)
  endif()
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ROOM_LINKS} GTest::gmock GTest::gtest_main)
  if(test_support IN_LIST ROOM_LINKS)
    quick_to_compile(${name})
    precompile_for_tests(${name})
  endif()
  if(CMAKE_CROSSCOMPILING)
    # Wine takes longer to start than most tests: one start for all of them.
    add_test(NAME windows_${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(windows_${name} PROPERTIES LABELS windows)
  elseif(QB_ROOM_TESTS)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# Sources of tests are mostly templates of the test library: not optimising them halves the time of a build. What the
# measurements link stays optimised.
function(quick_to_compile name)
  if(QB_ROOM_TESTS)
    target_compile_options(${name} PRIVATE -O0)
  endif()
endfunction()
