set(VEXEL_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                   -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
# GCC 12 sees overlaps in its own std::string that are not there (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  list(APPEND VEXEL_WARNINGS -Wno-restrict)
  # With sanitizers it takes what an absent std::optional holds for something that is read.
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    list(APPEND VEXEL_WARNINGS -Wno-maybe-uninitialized)
  endif()
endif()

function(vexel_warnings target)
  if(VEXEL_DEVELOPER)
    target_compile_options(${target} PRIVATE ${VEXEL_WARNINGS})
  endif()
endfunction()

# What is not marked with VEXEL_API is no symbol of the shared library.
function(vexel_hide_symbols target)
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# vexel_library(<target>): a library to install, shared unless BUILD_SHARED_LIBS is off. Until 1.0
# every minor version has a binary interface of its own.
function(vexel_library target)
  if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
    add_library(${target} STATIC)
  else()
    add_library(${target} SHARED)
  endif()
  vexel_hide_symbols(${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
endfunction()

# vexel_install_headers(<component> <folder> [<header>...]): these headers of the folder, or all.
# The folders have names that others use, so they lie below one of our own.
function(vexel_install_headers component folder)
  if(NOT VEXEL_INSTALL)
    return()
  endif()
  set(headers ${ARGN})
  list(TRANSFORM headers PREPEND ${folder}/)
  if(NOT headers)
    file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  endif()
  get_filename_component(name ${folder} NAME)
  install(FILES ${headers} DESTINATION ${VEXEL_INSTALL_INCLUDEDIR}/${name} COMPONENT ${component})
endfunction()

# vexel_layer(<folder> [LINKS <layer>...] [PRIVATE <library>...] [INSTALLS <header>...])
#
# One folder is one target, named after the folder: public headers below <folder>/include, sources
# and private headers beside them. All layers go whole into the library; tests link single layers,
# and so see what the library hides. INSTALLS names the headers that users of the library need,
# where the others are only for the layers above.
set(VEXEL_LAYERS "")
set(VEXEL_INCLUDE_FOLDERS "")
set(VEXEL_PRIVATE_LIBRARIES "")

function(vexel_layer folder)
  cmake_parse_arguments(ARG "" "" "LINKS;PRIVATE;INSTALLS" ${ARGN})
  get_filename_component(name ${folder} NAME)
  set(include ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/include)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${include} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE})
  vexel_hide_symbols(${name})
  vexel_warnings(${name})
  vexel_install_headers(vexel-dev ${include}/${name} ${ARG_INSTALLS})
  if(VEXEL_DEVELOPER)
    vexel_lone_headers(${name} ${folder})
  endif()
  set(VEXEL_LAYERS ${VEXEL_LAYERS} ${name} PARENT_SCOPE)
  set(VEXEL_INCLUDE_FOLDERS ${VEXEL_INCLUDE_FOLDERS} ${include} PARENT_SCOPE)
  set(VEXEL_PRIVATE_LIBRARIES ${VEXEL_PRIVATE_LIBRARIES} ${ARG_PRIVATE} PARENT_SCOPE)
endfunction()
