# cpp-httplib as Debian builds it: a header, and a shared library with TLS and both compressions.
# Whatever includes the header must define the same options, or the classes differ in size.
# Defines the target httplib::httplib.
find_path(Httplib_INCLUDE_DIR httplib.h)
find_library(Httplib_LIBRARY cpp-httplib)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Httplib REQUIRED_VARS Httplib_LIBRARY Httplib_INCLUDE_DIR)
mark_as_advanced(Httplib_INCLUDE_DIR Httplib_LIBRARY)

if(Httplib_FOUND AND NOT TARGET httplib::httplib)
  find_package(OpenSSL REQUIRED)
  find_package(Threads REQUIRED)
  add_library(httplib::httplib UNKNOWN IMPORTED)
  set_target_properties(httplib::httplib PROPERTIES
    IMPORTED_LOCATION "${Httplib_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Httplib_INCLUDE_DIR}"
    INTERFACE_COMPILE_DEFINITIONS
      "CPPHTTPLIB_OPENSSL_SUPPORT;CPPHTTPLIB_ZLIB_SUPPORT;CPPHTTPLIB_BROTLI_SUPPORT"
    INTERFACE_LINK_LIBRARIES "OpenSSL::SSL;OpenSSL::Crypto;Threads::Threads")
endif()
