# The relocatable package: find_package(fenvis) gives fenvis::fenvis and
# fenvis::host.
install(TARGETS fenvis fenvis_host
    EXPORT fenvisTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT fenvisTargets NAMESPACE fenvis::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/fenvis)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/fenvisConfig.cmake.in
    ${PROJECT_BINARY_DIR}/fenvisConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/fenvis)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/fenvisConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/fenvisConfig.cmake
    ${PROJECT_BINARY_DIR}/fenvisConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/fenvis)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/samples DESTINATION ${CMAKE_INSTALL_DATADIR}/fenvis)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
