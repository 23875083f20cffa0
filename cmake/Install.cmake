# cmake --install BUILD --prefix PLACE: the engine for other programs, as headers, libraries and a CMake package.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quillfen)
# An author links Quillfen::engine, which brings the desktops along.
target_link_libraries(quillfen_engine INTERFACE $<INSTALL_INTERFACE:Quillfen::desktops>)
set(libraries engine core scripted desktops sdl native cairo pango clipper image openal sndfile fluidsynth)
foreach(library ${libraries})
    set_target_properties(quillfen_${library} PROPERTIES EXPORT_NAME ${library})
endforeach()
list(TRANSFORM libraries PREPEND quillfen_ OUTPUT_VARIABLE targets)
install(TARGETS ${targets} EXPORT QuillfenTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
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
