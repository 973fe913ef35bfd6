# Finds the civil-time library, which Debian ships without a package file of its own.
# Defines the target Cctz::cctz.

find_path(Cctz_INCLUDE_DIR cctz/time_zone.h)
find_library(Cctz_LIBRARY cctz)
mark_as_advanced(Cctz_INCLUDE_DIR Cctz_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Cctz REQUIRED_VARS Cctz_LIBRARY Cctz_INCLUDE_DIR)

if(Cctz_FOUND AND NOT TARGET Cctz::cctz)
    add_library(Cctz::cctz UNKNOWN IMPORTED)
    set_target_properties(Cctz::cctz PROPERTIES
        IMPORTED_LOCATION "${Cctz_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Cctz_INCLUDE_DIR}")
endif()
