# What `cmake --install` copies, besides the headers: the libraries, and what makes them found by
# find_package(Vexel [COMPONENTS Qt]) and by pkg-config.
include(CMakePackageConfigHelpers)
set(VEXEL_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Vexel)
set(VEXEL_INSTALL_PCDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
get_target_property(VEXEL_TYPE vexel TYPE)

# vexel_install_library(<target> <component> <export>)
function(vexel_install_library target component export)
  install(TARGETS ${target} EXPORT ${export}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}
            NAMELINK_COMPONENT ${component}-dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}-dev
    INCLUDES DESTINATION ${VEXEL_INSTALL_INCLUDEDIR})
  install(EXPORT ${export} NAMESPACE Vexel:: DESTINATION ${VEXEL_INSTALL_CMAKEDIR}
          COMPONENT ${component}-dev)
endfunction()

# vexel_install_pkg_config(<name> <component>): the prefix is found from where the file lies, so that
# an installation can be moved. A shared library asks its users for none of its own libraries.
function(vexel_install_pkg_config name component)
  if(VEXEL_TYPE STREQUAL "STATIC_LIBRARY")
    set(private "cairo, pangocairo, fontconfig, libisal, fmt")
  endif()
  file(RELATIVE_PATH up /${VEXEL_INSTALL_PCDIR} /)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${VEXEL_INSTALL_PCDIR}
          COMPONENT ${component})
endfunction()

vexel_install_library(vexel vexel VexelTargets)
vexel_install_pkg_config(vexel vexel-dev)
if(TARGET VexelQt)
  vexel_install_library(VexelQt vexel-qt VexelQtTargets)
  vexel_install_headers(vexel-qt-dev ${CMAKE_CURRENT_SOURCE_DIR}/hosts/Qt/include/VexelQt)
  vexel_install_pkg_config(vexel-qt vexel-qt-dev)
endif()

configure_package_config_file(cmake/VexelConfig.cmake.in VexelConfig.cmake
  INSTALL_DESTINATION ${VEXEL_INSTALL_CMAKEDIR} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(VexelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VexelConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/VexelConfigVersion.cmake
        DESTINATION ${VEXEL_INSTALL_CMAKEDIR} COMPONENT vexel-dev)
