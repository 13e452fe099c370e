# The installable kit: headers, both DLLs, icons, import and static libraries, and the CMake package Galdren_Tools.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Galdren_Tools)

install(
  TARGETS Galdren_Tools Galdren_Util Galdren_Host Galdren_Tools_Static Galdren_Util_Static Galdren_Host_Static
  EXPORT Galdren_Tools
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT Galdren_Tools NAMESPACE Galdren:: FILE Galdren_ToolsTargets.cmake DESTINATION ${package_dir})

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/Galdren_ToolsConfig.cmake.in ${PROJECT_BINARY_DIR}/Galdren_ToolsConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/Galdren_ToolsConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/Galdren_ToolsConfig.cmake
              ${PROJECT_BINARY_DIR}/Galdren_ToolsConfigVersion.cmake DESTINATION ${package_dir})

install(DIRECTORY ${PROJECT_SOURCE_DIR}/icons/ DESTINATION ${CMAKE_INSTALL_BINDIR}/Icons
        FILES_MATCHING PATTERN "*.rgb")

install(CODE "set(source_dir [[${PROJECT_SOURCE_DIR}]])\nset(include_dir [[${CMAKE_INSTALL_INCLUDEDIR}]])")
install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/install-headers.cmake)
