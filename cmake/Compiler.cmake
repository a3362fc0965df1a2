# One optimised build with assertions on: NDEBUG is never defined, so C assertions and the debug checks of the
# libraries' headers stay active in what is tested and in what is run.
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O2" CACHE STRING "Flags of an optimised build" FORCE)
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g" CACHE STRING "Flags of a debug build" FORCE)

option(VANTREL_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
if(VANTREL_SANITIZE)
    # Checks after each access are slow to optimise, and hide behind what is optimised away.
    set(CMAKE_CXX_FLAGS_RELEASE "-O1")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# A library that refers to a symbol nobody provides fails when it is linked, not when it is loaded.
add_link_options(LINKER:--no-undefined)

option(VANTREL_CCACHE "Compile through ccache where it is installed" ON)
if(VANTREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(VANTREL_CCACHE_PROGRAM ccache)
    mark_as_advanced(VANTREL_CCACHE_PROGRAM)
    if(VANTREL_CCACHE_PROGRAM)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${VANTREL_CCACHE_PROGRAM})
    endif()
endif()

# For a library that is loaded and unloaded while the program runs: unique symbols would pin it in memory for ever.
function(vantrel_unloadable target)
    target_compile_options(${target} PRIVATE -fno-gnu-unique)
endfunction()
