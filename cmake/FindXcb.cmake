# libxcb, the X11 protocol. Debian has no CMake package for it.
# Defines the target Xcb::xcb.
find_path(Xcb_INCLUDE_DIR xcb/xcb.h)
find_library(Xcb_LIBRARY xcb)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Xcb REQUIRED_VARS Xcb_LIBRARY Xcb_INCLUDE_DIR)
mark_as_advanced(Xcb_INCLUDE_DIR Xcb_LIBRARY)

if(Xcb_FOUND AND NOT TARGET Xcb::xcb)
  add_library(Xcb::xcb UNKNOWN IMPORTED)
  set_target_properties(Xcb::xcb PROPERTIES
    IMPORTED_LOCATION "${Xcb_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Xcb_INCLUDE_DIR}")
endif()
