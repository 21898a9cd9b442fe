# Where "cmake --install" puts the library, its headers, its CMake package, its pkg-config file and the licence.
include(CMakePackageConfigHelpers)

install(TARGETS klepur EXPORT klepur-targets FILE_SET HEADERS)
install(EXPORT klepur-targets NAMESPACE klepur::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/klepur)

write_basic_package_version_file(${PROJECT_BINARY_DIR}/klepur-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/klepur-config.cmake
              ${PROJECT_BINARY_DIR}/klepur-config-version.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/klepur)

file(RELATIVE_PATH KLEPUR_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/klepur.pc.in ${PROJECT_BINARY_DIR}/klepur.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/klepur.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
