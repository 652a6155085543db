# vexel_layer(<folder> [LINKS <layer>...] [PRIVATE <library>...])
#
# One folder is one target, named after the folder: public headers below <folder>/include, sources
# and private headers beside them. All layers go whole into the shared library; tests link single
# layers, and so see what the library hides.
set(VEXEL_LAYERS "")

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

function(vexel_layer folder)
  cmake_parse_arguments(ARG "" "" "LINKS;PRIVATE" ${ARGN})
  get_filename_component(name ${folder} NAME)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/include
                                     PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE})
  vexel_hide_symbols(${name})
  vexel_warnings(${name})
  if(VEXEL_DEVELOPER)
    vexel_lone_headers(${name} ${folder})
  endif()
  list(APPEND VEXEL_LAYERS ${name})
  set(VEXEL_LAYERS ${VEXEL_LAYERS} PARENT_SCOPE)
endfunction()
