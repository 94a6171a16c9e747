# One INTERFACE target carries the warnings, so that every target of ours is
# compiled alike and generated code is left alone.
add_library(fenvis_warnings INTERFACE)
target_compile_options(fenvis_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${FENVIS_WERROR}>:-Werror>)
