# A room is one library of the house. Its headers are reached as "velmora/<room>/<header>.h", and only
# through the link to the room: each room brings an include path that holds nothing but itself, so that an
# include against the direction of the picture does not compile.

set(VELMORA_WARNINGS -Wall -Wextra -Wconversion -Wshadow)

# Flags of our own code; they never reach whoever embeds a room.
add_library(velmora_flags INTERFACE)
target_compile_features(velmora_flags INTERFACE cxx_std_20)
target_compile_options(velmora_flags INTERFACE ${VELMORA_WARNINGS})
# Before version 13, g++ takes "literal" + std::string, once optimised, for a copy of a text over itself.
target_compile_options(velmora_flags INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(VELMORA_WERROR)
  target_compile_options(velmora_flags INTERFACE -Werror)
endif()
if(VELMORA_FUZZ)
  # The fuzzer sees only what tells it where it has been.
  target_compile_options(velmora_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VELMORA_SANITIZE)
  target_compile_options(velmora_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(velmora_flags INTERFACE -fsanitize=address,undefined)
  # The sanitizers' own branches make g++ see members of a variant that nobody set; the release build keeps this warning.
  target_compile_options(velmora_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

# velmora_room(<name> FOLDER <folder below src> SOURCES … [LINKS …])
# FOLDER is also the include prefix: FOLDER adapters/sqlite gives "velmora/adapters/sqlite/…".
function(velmora_room name)
  cmake_parse_arguments(room "" "FOLDER" "SOURCES;LINKS" ${ARGN})
  set(target "velmora_${name}")
  set(include_root "${CMAKE_BINARY_DIR}/rooms/${name}")
  get_filename_component(parent "${include_root}/velmora/${room_FOLDER}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/${room_FOLDER}" "${include_root}/velmora/${room_FOLDER}" SYMBOLIC)

  list(TRANSFORM room_SOURCES PREPEND "${CMAKE_SOURCE_DIR}/src/${room_FOLDER}/")
  add_library(${target} STATIC ${room_SOURCES})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC "${include_root}")
  target_link_libraries(${target} PUBLIC ${room_LINKS} PRIVATE velmora_flags)
  set_target_properties(${target} PROPERTIES VELMORA_FOLDER "${room_FOLDER}")
  set_property(GLOBAL APPEND PROPERTY VELMORA_ROOMS ${name})
endfunction()
