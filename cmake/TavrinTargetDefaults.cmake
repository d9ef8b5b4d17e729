# Flags for every target of the project; sanitizers and hardening come from the presets.
add_library(tavrin_defaults INTERFACE)
target_compile_features(tavrin_defaults INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
target_compile_options(tavrin_defaults INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2)
target_compile_definitions(tavrin_defaults INTERFACE
  QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_NO_FOREACH QT_NO_KEYWORDS QT_STRICT_ITERATORS)

# For the program's own targets: no narrow literal becomes a QString by accident.
add_library(tavrin_program_defaults INTERFACE)
target_link_libraries(tavrin_program_defaults INTERFACE tavrin_defaults)
target_compile_definitions(tavrin_program_defaults INTERFACE QT_NO_CAST_FROM_ASCII)
