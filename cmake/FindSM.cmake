# libSM and libICE, the X11 session management. Debian has no CMake package for them.
# Defines the target SM::SM.
find_path(SM_INCLUDE_DIR X11/SM/SMlib.h)
find_library(SM_LIBRARY SM)
find_library(SM_ICE_LIBRARY ICE)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(SM REQUIRED_VARS SM_LIBRARY SM_ICE_LIBRARY SM_INCLUDE_DIR)
mark_as_advanced(SM_INCLUDE_DIR SM_LIBRARY SM_ICE_LIBRARY)

if(SM_FOUND AND NOT TARGET SM::SM)
  add_library(SM::SM UNKNOWN IMPORTED)
  set_target_properties(SM::SM PROPERTIES
    IMPORTED_LOCATION "${SM_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${SM_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES "${SM_ICE_LIBRARY}")
endif()
