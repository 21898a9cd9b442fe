# The warnings that all of this project's own code is built with.
option(KLEPUR_WERROR "Treat warnings as errors" OFF)

add_library(klepur_warnings INTERFACE)
target_compile_options(klepur_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${KLEPUR_WERROR}>:-Werror>)
