# Every target of the project links this one: the warnings it should compile without. They are errors
# in the "check" preset only, so that a newer compiler does not break a user's build.
# -Wno-restrict: g++ 12 sees overlapping copies in std::string's own operator+ (GCC bug 105329).
add_library(quillmark_warnings INTERFACE)
target_compile_options(quillmark_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
