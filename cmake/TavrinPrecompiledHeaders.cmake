# The large headers, parsed once for each kind of target instead of once for each file. Meant for
# builds that are made whole and thrown away; elsewhere each file must show that it includes what it
# uses.
option(TAVRIN_PRECOMPILED_HEADERS "Parse large headers once for each kind of target" OFF)

# Every file of the target starts with these headers.
function(tavrin_precompile target)
  if(TAVRIN_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# The target reuses the headers that another one has parsed with the same flags.
function(tavrin_precompile_as target other)
  if(TAVRIN_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
