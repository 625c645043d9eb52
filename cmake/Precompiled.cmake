# Headers of the libraries that most files include, read once for all targets of a kind. The "package"
# preset does without (CMAKE_DISABLE_PRECOMPILE_HEADERS), so that a missing include shows there.

# quillmark_precompiled_headers(NAME HEADERS <header>... USES target...)
function(quillmark_precompiled_headers NAME)
  cmake_parse_arguments(PRECOMPILED "" "" "HEADERS;USES" ${ARGN})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/precompiled_${NAME}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(quillmark_precompiled_${NAME} OBJECT EXCLUDE_FROM_ALL ${source})
  target_link_libraries(quillmark_precompiled_${NAME} PRIVATE ${PRECOMPILED_USES} quillmark_warnings)
  target_precompile_headers(quillmark_precompiled_${NAME} PRIVATE ${PRECOMPILED_HEADERS})
endfunction()

# quillmark_use_precompiled(TARGET NAME)
function(quillmark_use_precompiled TARGET NAME)
  target_precompile_headers(${TARGET} REUSE_FROM quillmark_precompiled_${NAME})
endfunction()

set(standard_headers <algorithm> <array> <chrono> <filesystem> <fstream> <functional> <map>
  <memory> <optional> <string> <string_view> <utility> <vector>)
quillmark_precompiled_headers(standard HEADERS ${standard_headers})
