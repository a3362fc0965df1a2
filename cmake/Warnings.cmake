option(VANTREL_WERROR "Treat warnings as errors" ON)
add_compile_options(-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Wunused)
if(VANTREL_SANITIZE)
    # The compiler takes the sanitizers' own variables for uninitialised ones.
    add_compile_options(-Wno-maybe-uninitialized)
endif()
if(VANTREL_WERROR)
    add_compile_options(-Werror)
endif()
