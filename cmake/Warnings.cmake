# Every target of the project links this one: the warnings it must compile without.
# The two that are off: g++ 12 sees overlapping and endless copies in std::string's own operator+
# (GCC bugs 105329 and 105651).
add_library(quillmark_warnings INTERFACE)
target_compile_options(quillmark_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  "$<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-stringop-overflow>")
