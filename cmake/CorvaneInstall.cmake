# Installation and the package files behind find_package(Corvane).

include(CMakePackageConfigHelpers)

set(corvane_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Corvane)

install(TARGETS corvane_core EXPORT CorvaneTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/corvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h" PATTERN strings EXCLUDE REGEX "/corvane/qt$" EXCLUDE)
install(EXPORT CorvaneTargets NAMESPACE corvane:: DESTINATION ${corvane_package_dir})

# A component of its own, so that the package is found without Qt where only the core is wanted.
if(CORVANE_BUILD_QT)
    install(TARGETS corvane_qt EXPORT CorvaneQtTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/corvane/qt
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/corvane FILES_MATCHING PATTERN "*.h")
    install(EXPORT CorvaneQtTargets NAMESPACE corvane:: DESTINATION ${corvane_package_dir})
endif()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/CorvaneConfig.cmake.in
    ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake INSTALL_DESTINATION ${corvane_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/CorvaneConfig.cmake
    ${PROJECT_BINARY_DIR}/CorvaneConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/FindCctz.cmake
    DESTINATION ${corvane_package_dir})
