# cmake --install BUILD --prefix PLACE: the engine for other programs, as headers, libraries and a CMake package.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quillfen)
set_target_properties(quillfen_platform PROPERTIES EXPORT_NAME platform)
set_target_properties(quillfen_engine PROPERTIES EXPORT_NAME engine)
install(TARGETS quillfen_platform quillfen_engine EXPORT QuillfenTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillfen)
install(EXPORT QuillfenTargets NAMESPACE Quillfen:: DESTINATION ${package_dir})

# The headers in the folders below platform/ are about how the layer is built, not about using it.
file(GLOB platform_headers CONFIGURE_DEPENDS platform/*.h)
file(GLOB engine_headers CONFIGURE_DEPENDS engine/*.h)
install(FILES ${platform_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillfen/platform)
install(FILES ${engine_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillfen/engine)

configure_package_config_file(cmake/QuillfenConfig.cmake.in ${PROJECT_BINARY_DIR}/QuillfenConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuillfenConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QuillfenConfig.cmake ${PROJECT_BINARY_DIR}/QuillfenConfigVersion.cmake
              cmake/Libraries.cmake cmake/EmbedResources.cmake cmake/WriteResources.cmake
        DESTINATION ${package_dir})
