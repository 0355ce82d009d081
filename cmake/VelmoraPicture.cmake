# An include against the picture (docs/architecture.md) fails the build: a room includes headers of its own folder and
# of the rooms that it links, directly or through others. All rooms share one include root, so the compiler alone
# would let any include pass.

# velmora_picture_target(): the target that checks all includes. Call it before the first room is made.
function(velmora_picture_target)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/velmora/*.h" "${PROJECT_SOURCE_DIR}/src/velmora/*.cpp")
  set(stamp "${PROJECT_BINARY_DIR}/picture.stamp")
  set(table "${PROJECT_BINARY_DIR}/picture.cmake")
  add_custom_command(OUTPUT "${stamp}"
    COMMAND "${CMAKE_COMMAND}" "-DTABLE=${table}" "-DROOT=${PROJECT_SOURCE_DIR}/src/velmora"
            -P "${PROJECT_SOURCE_DIR}/cmake/check_picture.cmake"
    COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
    DEPENDS ${files} "${table}" "${PROJECT_SOURCE_DIR}/cmake/check_picture.cmake"
    COMMENT "Includes against the picture of the rooms"
    VERBATIM)
  add_custom_target(velmora_picture DEPENDS "${stamp}")
endfunction()

# The folders of the rooms that a folder reaches through its links.
function(velmora_reached_from folder result)
  set(reached "")
  get_property(waiting GLOBAL PROPERTY "VELMORA_LINKS_OF_${folder}")
  while(waiting)
    list(POP_FRONT waiting room)
    get_property(other GLOBAL PROPERTY "VELMORA_FOLDER_OF_${room}")
    if(other AND NOT other IN_LIST reached)
      list(APPEND reached "${other}")
      get_property(further GLOBAL PROPERTY "VELMORA_LINKS_OF_${other}")
      list(APPEND waiting ${further})
    endif()
  endwhile()
  list(SORT reached)
  set(${result} "${reached}" PARENT_SCOPE)
endfunction()

# velmora_write_picture(): writes the table that the check reads. Call it after the last room.
function(velmora_write_picture)
  get_property(folders GLOBAL PROPERTY VELMORA_FOLDERS)
  get_property(layers GLOBAL PROPERTY VELMORA_LAYERS)
  list(REMOVE_DUPLICATES folders)
  set(table "")
  foreach(folder IN LISTS folders)
    velmora_reached_from("${folder}" reached)
    string(APPEND table "list(APPEND folders \"${folder}\")\nset(\"allowed ${folder}\" ${reached})\n")
  endforeach()
  foreach(layer IN LISTS layers)
    get_property(uses GLOBAL PROPERTY "VELMORA_LAYER_USES_${layer}")
    string(APPEND table "list(APPEND layers \"${layer}\")\nset(\"allowed ${layer}\" ${uses})\n")
  endforeach()
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/picture.cmake" CONTENT "${table}" @ONLY)
endfunction()
