# Every target of the project compiles warning-clean with these.
add_compile_options(-Wall -Wextra)
