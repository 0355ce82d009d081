# velmora_room() makes a library of a room, velmora_program() a program. A room may include what it LINKS: the same list
# gives the linker its libraries and velmora_picture() its table of allowed includes.

set(VELMORA_WARNINGS
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual)

# Flags for our own code only; they are not passed on to projects that link a room.
add_library(velmora_flags INTERFACE)
target_compile_features(velmora_flags INTERFACE cxx_std_20)
target_compile_options(velmora_flags INTERFACE ${VELMORA_WARNINGS})
# False positive before g++ 13: optimised "literal" + std::string is reported as an overlapping copy.
target_compile_options(velmora_flags INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
# Several sources are compiled as one file, which for this warning makes headers of all but one of them.
if(CMAKE_UNITY_BUILD)
  target_compile_options(velmora_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(VELMORA_WERROR)
  target_compile_options(velmora_flags INTERFACE -Werror)
endif()
if(VELMORA_FUZZ)
  # Only instrumented code gives the fuzzer coverage.
  target_compile_options(velmora_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VELMORA_SANITIZE)
  target_compile_options(velmora_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(velmora_flags INTERFACE -fsanitize=address,undefined)
  # False positive of g++ with sanitizers: members of a variant reported as uninitialised; the release build keeps the
  # warning.
  target_compile_options(velmora_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
if(VELMORA_SANITIZE_THREADS)
  target_compile_options(velmora_flags INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(velmora_flags INTERFACE -fsanitize=thread)
endif()

# Linking is faster by half with LLVM's linker; any other does. A cross compiler brings its own.
include(CheckLinkerFlag)
if(NOT CMAKE_CROSSCOMPILING)
  check_linker_flag(CXX "-fuse-ld=lld" VELMORA_LLD)
endif()
if(VELMORA_LLD)
  target_link_options(velmora_flags INTERFACE "-fuse-ld=lld")
endif()

# The table of the picture: for each folder below src/velmora the rooms that it links.
function(velmora_note_links folder)
  set(rooms "${ARGN}")
  list(FILTER rooms INCLUDE REGEX "^velmora_")
  list(TRANSFORM rooms REPLACE "^velmora_" "")
  set_property(GLOBAL APPEND PROPERTY VELMORA_FOLDERS "${folder}")
  set_property(GLOBAL APPEND PROPERTY "VELMORA_LINKS_OF_${folder}" ${rooms})
endfunction()

# velmora_layer(<folder> [<folder> …]): a folder of a room that may include itself and the named folders only.
function(velmora_layer folder)
  set_property(GLOBAL APPEND PROPERTY VELMORA_LAYERS "${folder}")
  set_property(GLOBAL PROPERTY "VELMORA_LAYER_USES_${folder}" "${ARGN}")
endfunction()

# velmora_room(<name> FOLDER <folder below src/velmora> SOURCES … [LINKS …] [PRIVATE_LINKS …])
# FOLDER is also the include prefix: FOLDER adapters/sqlite gives "velmora/adapters/sqlite/…". Third-party libraries
# that no header of the room names are PRIVATE_LINKS.
function(velmora_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "FOLDER" "SOURCES;LINKS;PRIVATE_LINKS")
  set(target "velmora_${name}")
  list(TRANSFORM room_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/src/velmora/${room_FOLDER}/")
  add_library(${target} STATIC ${room_SOURCES})
  add_library(velmora::${name} ALIAS ${target})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  target_link_libraries(${target} PUBLIC ${room_LINKS} PRIVATE ${room_PRIVATE_LINKS} $<BUILD_INTERFACE:velmora_flags>)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} VELMORA_FOLDER "${room_FOLDER}")
  if(TARGET velmora_picture)
    add_dependencies(${target} velmora_picture)
  endif()

  set_property(GLOBAL APPEND PROPERTY VELMORA_ROOMS ${name})
  set_property(GLOBAL PROPERTY "VELMORA_FOLDER_OF_${name}" "${room_FOLDER}")
  velmora_note_links("${room_FOLDER}" ${room_LINKS} ${room_PRIVATE_LINKS})
  install(TARGETS ${target} EXPORT velmora ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/velmora/${room_FOLDER}/"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/velmora/${room_FOLDER}" COMPONENT development FILES_MATCHING PATTERN "*.h")
endfunction()

# velmora_program(<name> FOLDER <folder below src/velmora> SOURCES … LINKS … [INSTALL_FOLDER …] [NOT_INSTALLED])
# NOT_INSTALLED: a program that the build itself runs.
function(velmora_program name)
  cmake_parse_arguments(PARSE_ARGV 1 program "NOT_INSTALLED" "FOLDER;INSTALL_FOLDER" "SOURCES;LINKS")
  list(TRANSFORM program_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/src/velmora/${program_FOLDER}/")
  add_executable(${name} ${program_SOURCES})
  target_link_libraries(${name} PRIVATE ${program_LINKS} velmora_flags)
  if(TARGET velmora_picture)
    add_dependencies(${name} velmora_picture)
  endif()
  velmora_note_links("${program_FOLDER}" ${program_LINKS})
  if(program_NOT_INSTALLED)
    return()
  endif()
  if(NOT program_INSTALL_FOLDER)
    set(program_INSTALL_FOLDER "${CMAKE_INSTALL_BINDIR}")
  endif()
  install(TARGETS ${name} RUNTIME DESTINATION "${program_INSTALL_FOLDER}" COMPONENT program)
endfunction()
