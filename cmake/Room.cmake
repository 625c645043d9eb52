# quillmark_room(NAME SOURCES file... USES target...): the static library of one folder of src/.
# What a room may include is what it USES, so that an include against the arrows does not link.
function(quillmark_room NAME)
  quillmark_room_with(standard ${NAME} ${ARGN})
endfunction()

# quillmark_room_with(PRECOMPILED NAME ...): the same with other headers precompiled.
function(quillmark_room_with PRECOMPILED NAME)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  add_library(quillmark_${NAME} STATIC ${ROOM_SOURCES})
  target_include_directories(quillmark_${NAME} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(quillmark_${NAME} PUBLIC ${ROOM_USES} PRIVATE quillmark_warnings)
  quillmark_use_precompiled(quillmark_${NAME} ${PRECOMPILED})
endfunction()
