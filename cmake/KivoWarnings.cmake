# Warnings are errors everywhere in the project.
add_compile_options(-Wall -Wextra -Werror)

# Settings for a shared library that exports only what it marks: hidden symbols by default, and
# calls between the library's own exported functions bound inside the library.
function(kivo_hidden_shared_library target)
  # Installed side by side, the libraries find one another beside themselves.
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    INSTALL_RPATH "$ORIGIN")
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  target_link_options(${target} PRIVATE -Wl,--no-undefined -Wl,-Bsymbolic-functions)
endfunction()
