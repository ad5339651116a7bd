# How targets are made: their flags, and the rooms.

# Gives a target its language level, warnings and floating-point rules.
# Results must be the same bytes on every compiler and build type, hence no contraction.
function(wayfell_flags target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror
    -ffp-contract=off)
  if(WAYFELL_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${WAYFELL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${WAYFELL_SANITIZE})
  endif()
endfunction()

# wayfell_headers(NAME DEPENDS target... HEADERS header...): headers that are read once for all targets
# with target_precompile_headers(TARGET REUSE_FROM NAME), which spares each source from reading them.
function(wayfell_headers name)
  cmake_parse_arguments(THESE "" "" "DEPENDS;HEADERS" ${ARGN})
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${THESE_DEPENDS})
  target_precompile_headers(${name} PRIVATE ${THESE_HEADERS})
  wayfell_flags(${name})
endfunction()

# wayfell_room(NAME [TARGET target] [HEADERS headers] DEPENDS target...)
# A room is the folder NAME and the target of the same name, unless it is to have another. Its headers
# are reached as "NAME/File.h", and only by targets that depend on it: each room has an include folder
# of its own that holds nothing but a link to it, so an include against the arrows does not build.
# HEADERS are the precompiled ones, standard_headers unless others are named. Sources include what they
# use all the same: builds without WAYFELL_PRECOMPILE tell when one does not.
function(wayfell_room name)
  cmake_parse_arguments(ROOM "" "TARGET;HEADERS" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${name}/*.cpp)
  get_filename_component(leaf ${name} NAME)
  if(ROOM_TARGET)
    set(leaf ${ROOM_TARGET})
  endif()
  add_library(${leaf} STATIC ${sources})
  set(door ${PROJECT_BINARY_DIR}/doors/${leaf})
  get_filename_component(parent ${door}/${name} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${door}/${name} SYMBOLIC)
  target_include_directories(${leaf} PUBLIC ${door})
  target_link_libraries(${leaf} PUBLIC ${ROOM_DEPENDS})
  wayfell_flags(${leaf})
  set_property(GLOBAL APPEND PROPERTY WAYFELL_ROOMS ${leaf})
  set_property(TARGET ${leaf} PROPERTY WAYFELL_FOLDER ${name})
  if(NOT ROOM_HEADERS)
    set(ROOM_HEADERS standard_headers)
  endif()
  if(WAYFELL_PRECOMPILE)
    target_precompile_headers(${leaf} REUSE_FROM ${ROOM_HEADERS})
  endif()
  if(WAYFELL_LIBCXX_ROOMS)
    add_library(${leaf}_libcxx OBJECT ${sources})
    target_link_libraries(${leaf}_libcxx PRIVATE ${leaf})
    target_compile_options(${leaf}_libcxx PRIVATE -stdlib=libc++)
    wayfell_flags(${leaf}_libcxx)
    add_dependencies(libcxx_rooms ${leaf}_libcxx)
  endif()
endfunction()

# Writes which rooms stand on which, as they are linked, for tools/rooms_picture: a line for each room,
# its folder and those of the rooms that it stands on.
function(wayfell_list_rooms file)
  get_property(rooms GLOBAL PROPERTY WAYFELL_ROOMS)
  set(lines "")
  foreach(room ${rooms})
    get_target_property(line ${room} WAYFELL_FOLDER)
    get_target_property(below ${room} LINK_LIBRARIES)
    foreach(target ${below})
      if(target IN_LIST rooms)
        get_target_property(folder ${target} WAYFELL_FOLDER)
        string(APPEND line " ${folder}")
      endif()
    endforeach()
    string(APPEND lines "${line}\n")
  endforeach()
  file(WRITE ${file} "${lines}")
endfunction()
