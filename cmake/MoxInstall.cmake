# Install rules and the CMake package: a client says find_package(moxmediaui) and links
# moxmediaui::moxmediaui.
get_property(mox_libraries GLOBAL PROPERTY MOX_LIBRARIES)
get_property(mox_include_dirs GLOBAL PROPERTY MOX_INCLUDE_DIRS)
install(TARGETS ${mox_libraries} EXPORT moxmediauiTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
foreach(dir IN LISTS mox_include_dirs)
  install(DIRECTORY ${dir}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
endforeach()
install(EXPORT moxmediauiTargets NAMESPACE moxmediaui::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moxmediaui)
include(CMakePackageConfigHelpers)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/moxmediauiConfig.cmake.in
  ${CMAKE_BINARY_DIR}/moxmediauiConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moxmediaui)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/moxmediauiConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/moxmediauiConfig.cmake ${CMAKE_BINARY_DIR}/moxmediauiConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moxmediaui)
