# `cpack` makes Debian packages: each library, and what is needed to develop with it. Configure with
# CMAKE_INSTALL_PREFIX=/usr, so that everything lies where Debian looks for it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_PACKAGE_CONTACT "The Vexel authors")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_CURRENT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR})
set(CPACK_DEBIAN_VEXEL_PACKAGE_RECOMMENDS fonts-liberation) # has the metrics of Helvetica
set(CPACK_COMPONENTS_ALL "")

# vexel_package(<component> <package> <section> <description> [<depends>...])
function(vexel_package component package section description)
  string(TOUPPER ${component} name)
  list(JOIN ARGN ", " depends)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
  set(CPACK_COMPONENT_${name}_DESCRIPTION ${description} PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_PACKAGE_DEPENDS ${depends} PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_PACKAGE_SHLIBDEPS ON PARENT_SCOPE)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} RENAME copyright
          COMPONENT ${component})
endfunction()

get_target_property(soversion vexel SOVERSION)
set(same "(= ${PROJECT_VERSION})")
vexel_package(vexel libvexel${soversion} libs "Scientific two-dimensional plots (library)")
vexel_package(vexel-dev libvexel-dev libdevel "Scientific two-dimensional plots (development files)"
              "libvexel${soversion} ${same}")
if(TARGET VexelQt)
  vexel_package(vexel-qt libvexel-qt${soversion} libs "Plots in windows of Qt 6 (library)"
                "libvexel${soversion} ${same}")
  vexel_package(vexel-qt-dev libvexel-qt-dev libdevel "Plots in windows of Qt 6 (development files)"
                "libvexel-qt${soversion} ${same}" "libvexel-dev ${same}" "qt6-base-dev (>= 6.4)")
endif()
include(CPack)
