# Most of what a linter does to a file is done to the headers it includes. With TAVRIN_LINT each
# folder gets one more target, whose only source includes all sources of the folder, so that their
# common headers are gone through once.
option(TAVRIN_LINT "Add the targets that a linter reads instead of the single files" OFF)
set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ${TAVRIN_LINT}) # these targets link what the folders found

# Sources that name something of their own as another one of their folder does: these stay single.
set(kTavrinLintedAlone
  bench/growth_bench.cpp bench/memory_bench.cpp bench/service_bench.cpp
  bench/weather_parse_bench.cpp bench/zone_list_bench.cpp
  tests/demo_host/text_replies_test.cpp tests/demo_host/zone_product_test.cpp
  tests/demo_host/zone_rows_test.cpp
  tests/desktop/session_manager.cpp tests/desktop/small_session_manager.cpp
  tests/e2e/tst_end_to_end.cpp tests/e2e/tst_tls_stays_on.cpp
  tests/gui/network_faults.cpp tests/gui/tst_network_faults.cpp
  tests/gui/tst_network_security.cpp tests/gui/tst_settings_recovery.cpp
  tests/gui/tst_start_up.cpp tests/gui/tst_weather_graph_painting.cpp
  tests/gui/tst_zone_finder_search.cpp tests/gui/window_states.cpp
  tests/profile_check/run_check_test.cpp
  tests/soak/soak_sessions.cpp
  tests/unit/graph/graph_scale_test.cpp
  tests/unit/profiles/shipped_nws_api_test.cpp tests/unit/profiles/shipped_place_test.cpp
  tests/unit/profiles/shipped_position_test.cpp
  tests/unit/store/settings_recovery_test.cpp tests/unit/store/write_error_test.cpp
  tests/unit/weather/node_value_test.cpp tests/unit/weather/weather_reading_test.cpp)

function(tavrin_targets_below directory result)
  get_property(targets DIRECTORY "${directory}" PROPERTY BUILDSYSTEM_TARGETS)
  get_property(subdirectories DIRECTORY "${directory}" PROPERTY SUBDIRECTORIES)
  foreach(subdirectory IN LISTS subdirectories)
    tavrin_targets_below("${subdirectory}" more)
    list(APPEND targets ${more})
  endforeach()
  set(${result} ${targets} PARENT_SCOPE)
endfunction()

# Sets lint_folders, and for each of them lint_<folder>_sources and lint_<folder>_targets.
function(tavrin_sources_by_folder)
  tavrin_targets_below("${PROJECT_SOURCE_DIR}" targets)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(NOT type MATCHES "^(EXECUTABLE|(STATIC|OBJECT)_LIBRARY)$")
      continue()
    endif()
    get_target_property(sources ${target} SOURCES)
    get_target_property(base ${target} SOURCE_DIR)
    foreach(source IN LISTS sources)
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${base}" NORMALIZE)
      cmake_path(IS_PREFIX PROJECT_BINARY_DIR "${source}" NORMALIZE generated)
      if(generated OR NOT source MATCHES "\\.cpp$")
        continue()
      endif()
      cmake_path(RELATIVE_PATH source BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE name)
      cmake_path(GET name PARENT_PATH folder)
      if(name IN_LIST kTavrinLintedAlone)
        cmake_path(REMOVE_EXTENSION name OUTPUT_VARIABLE folder)
      endif()
      string(REPLACE "/" "_" folder "${folder}")
      list(APPEND lint_folders ${folder})
      list(APPEND lint_${folder}_sources "${source}")
      list(APPEND lint_${folder}_targets ${target})
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES lint_folders)
  foreach(folder IN LISTS lint_folders)
    foreach(kind IN ITEMS sources targets)
      list(REMOVE_DUPLICATES lint_${folder}_${kind})
      set(lint_${folder}_${kind} ${lint_${folder}_${kind}} PARENT_SCOPE)
    endforeach()
  endforeach()
  set(lint_folders ${lint_folders} PARENT_SCOPE)
endfunction()

# The target compiles with what all targets of its sources compile with.
function(tavrin_add_lint_target folder)
  set(text "")
  set(number 0)
  set(lint_dir "${PROJECT_BINARY_DIR}/lint")
  foreach(source IN LISTS lint_${folder}_sources)
    math(EXPR number "${number} + 1")
    string(APPEND text
      "#undef main\n#define main main${number}\n"
      "#undef LLVMFuzzerTestOneInput\n"
      "#define LLVMFuzzerTestOneInput LLVMFuzzerTestOneInput${number}\n"
      "#include \"${source}\"\n")
    cmake_path(GET source STEM name)
    file(WRITE "${lint_dir}/${name}.moc" "") # what moc would add is not linted
  endforeach()
  file(CONFIGURE OUTPUT "${lint_dir}/${folder}.cpp" CONTENT "${text}" @ONLY)
  add_library(lint_${folder} OBJECT EXCLUDE_FROM_ALL "${lint_dir}/${folder}.cpp")
  target_include_directories(lint_${folder} PRIVATE "${lint_dir}")
  foreach(target IN LISTS lint_${folder}_targets)
    foreach(property IN ITEMS LINK_LIBRARIES INCLUDE_DIRECTORIES COMPILE_DEFINITIONS)
      get_target_property(values ${target} ${property})
      if(values)
        set_property(TARGET lint_${folder} APPEND PROPERTY ${property} ${values})
      endif()
    endforeach()
  endforeach()
endfunction()

function(tavrin_add_lint_targets)
  tavrin_sources_by_folder()
  foreach(folder IN LISTS lint_folders)
    tavrin_add_lint_target(${folder})
  endforeach()
endfunction()
