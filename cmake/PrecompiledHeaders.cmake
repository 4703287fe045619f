# Compiling every source for each platform in one test run has to be cheap: the libraries' headers are read once for all
# tests, and for Windows once for all rooms. On Linux the linter reads the rooms, for which less is more.
function(precompile_for_room name)
  if(name STREQUAL runtime)
    target_precompile_headers(
      runtime PRIVATE <algorithm> <array> <charconv> <cstdint> <filesystem> <fmt/format.h> <functional> <map> <memory>
      <optional> <string> <string_view> <unordered_map> <utility> <vector>)
  else()
    target_precompile_headers(${name} REUSE_FROM runtime)
  endif()
endfunction()

function(precompile_for_tests name)
  if(UNIX)
    # Some tests link what wants threads, and the text must mean the same to all of them.
    target_compile_options(${name} PRIVATE -pthread)
  endif()
  if(name STREQUAL test_support)
    target_precompile_headers(
      test_support PRIVATE <algorithm> <array> <filesystem> <fmt/format.h> <functional> <gmock/gmock.h> <gtest/gtest.h>
      <memory> <optional> <string> <string_view> <unordered_map> <vector>)
  else()
    target_precompile_headers(${name} REUSE_FROM test_support)
  endif()
endfunction()
