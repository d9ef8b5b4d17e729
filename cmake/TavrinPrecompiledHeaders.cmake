# The large headers, parsed once for each kind of target instead of once for each file: of all
# targets in builds that are made whole and thrown away. Where people work only the tests' are, and
# each file of the program must show that it includes what it uses.
set(TAVRIN_PRECOMPILED_HEADERS NONE CACHE STRING "Parse large headers once: NONE, TESTS or ALL")

# Sets whether the targets of the current folder take part.
function(tavrin_precompiles result)
  set(tests "${PROJECT_SOURCE_DIR}/tests")
  cmake_path(IS_PREFIX tests "${CMAKE_CURRENT_SOURCE_DIR}" is_test)
  if(TAVRIN_PRECOMPILED_HEADERS STREQUAL "ALL"
     OR (TAVRIN_PRECOMPILED_HEADERS STREQUAL "TESTS" AND is_test))
    set(${result} TRUE PARENT_SCOPE)
  else()
    set(${result} FALSE PARENT_SCOPE)
  endif()
endfunction()

# Every file of the target starts with these headers.
function(tavrin_precompile target)
  tavrin_precompiles(precompiled)
  if(precompiled)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# The target reuses the headers that another one has parsed with the same flags.
function(tavrin_precompile_as target other)
  tavrin_precompiles(precompiled)
  if(precompiled)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
