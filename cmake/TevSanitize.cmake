# AddressSanitizer + UndefinedBehaviorSanitizer for the whole tree. CI builds the finite element
# half this way in a second build folder.
if(TEV_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()
