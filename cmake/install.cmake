# The installable kit: headers, both DLLs, icons, import and static libraries, the CMake package Galdren_Tools,
# pkg-config files, the gallery, the examples and the manual, where scripts/manual has made it. As a zip:
#     cpack -G ZIP --config <build folder>/CPackConfig.cmake
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
if(GALDREN_GALLERY)
  install(TARGETS galdren_gallery RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/icons/star.tga DESTINATION ${CMAKE_INSTALL_BINDIR}/Icons)
endif()

install(CODE "set(source_dir [[${PROJECT_SOURCE_DIR}]])\nset(include_dir [[${CMAKE_INSTALL_INCLUDEDIR}]])")
install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/install-headers.cmake)

# galdren_pc(NAME [REQUIRES NAME] [FLAGS flag...] LIBRARIES flag...): the file for pkg-config.
function(galdren_pc name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "REQUIRES" "FLAGS;LIBRARIES")
  set(description "Custom-drawn controls for Windows applications")
  set(requires ${arg_REQUIRES})
  list(JOIN arg_FLAGS " " flags)
  list(JOIN arg_LIBRARIES " " libraries)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/Galdren.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

if(MINGW)
  get_target_property(system_libraries Galdren_Tools_Static INTERFACE_LINK_LIBRARIES)
  get_target_property(util_libraries Galdren_Util_Static INTERFACE_LINK_LIBRARIES)
  list(APPEND system_libraries ${util_libraries})
  list(FILTER system_libraries INCLUDE REGEX "^[a-z0-9]+$")
  list(TRANSFORM system_libraries PREPEND -l)
  # Written out, for -l takes the static library where both have the name.
  galdren_pc(Galdren_Tools LIBRARIES -l:libGaldren_Tools.dll.a -l:libGaldren_Util.dll.a)
  galdren_pc(Galdren_Tools_Static
    FLAGS -DGALDREN_STATIC LIBRARIES -l:libGaldren_Tools.a -l:libGaldren_Util.a ${system_libraries})
  galdren_pc(Galdren_Host REQUIRES Galdren_Tools LIBRARIES -lGaldren_Host)
  galdren_pc(Galdren_Host_Static REQUIRES Galdren_Tools_Static LIBRARIES -lGaldren_Host_Static)
endif()

set(kit_compiler "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
if(MINGW)
  string(APPEND kit_compiler " of MinGW-w64")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/kit/README.md.in ${PROJECT_BINARY_DIR}/README.md @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/LICENCE
        DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/docs/html DESTINATION doc OPTIONAL)

if(PROJECT_IS_TOP_LEVEL)
  math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME Galdren_Tools-${PROJECT_VERSION}-win${bits})
  set(CPACK_VERBATIM_VARIABLES ON)
  include(CPack)
endif()
