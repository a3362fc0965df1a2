# The only place that knows where a library comes from. One function a library: the installed one where find_package
# finds it, else the API-compatible subset under embedded/ (for the libraries that have one). Each prints one line that
# says which. The names of the targets are the same either way, so nothing else in the build asks.
#
# VANTREL_DEPENDENCIES forces the choice for all of them, VANTREL_CORRADE and VANTREL_MAGNUM for one:
#   auto       installed if found, else embedded
#   installed  installed, or stop
#   embedded   never look

set(VANTREL_DEPENDENCIES auto CACHE STRING "Where libraries with an embedded subset come from: auto, installed, embedded")
set_property(CACHE VANTREL_DEPENDENCIES PROPERTY STRINGS auto installed embedded)
foreach(library CORRADE MAGNUM)
    set(VANTREL_${library} "" CACHE STRING "Overrides VANTREL_DEPENDENCIES for this library: auto, installed, embedded")
    set_property(CACHE VANTREL_${library} PROPERTY STRINGS "" auto installed embedded)
endforeach()

function(_vantrel_origin library result)
    set(origin ${VANTREL_DEPENDENCIES})
    if(VANTREL_${library})
        set(origin ${VANTREL_${library}})
    endif()
    if(NOT origin MATCHES "^(auto|installed|embedded)$")
        message(FATAL_ERROR "Dependencies: '${origin}' for ${library} is none of auto, installed, embedded")
    endif()
    set(${result} ${origin} PARENT_SCOPE)
endfunction()

# Functions have a scope of their own, and find_package defines variables that corrade_add_resource and
# corrade_add_plugin read later: hence macros for the two libraries that come with such functions.
macro(vantrel_use_corrade)
    _vantrel_origin(CORRADE _vantrel_corrade_origin)
    set(VANTREL_CORRADE_EMBEDDED ON)
    if(NOT _vantrel_corrade_origin STREQUAL embedded)
        find_package(Corrade QUIET COMPONENTS Containers Main PluginManager Utility rc)
        if(Corrade_FOUND)
            set(VANTREL_CORRADE_EMBEDDED OFF)
            message(STATUS "Corrade: installed")
        elseif(_vantrel_corrade_origin STREQUAL installed)
            message(FATAL_ERROR "Corrade: not installed, and the embedded subset was ruled out")
        endif()
    endif()
    if(VANTREL_CORRADE_EMBEDDED)
        message(STATUS "Corrade: embedded subset")
        add_subdirectory(embedded/Corrade)
        include(${PROJECT_SOURCE_DIR}/embedded/Corrade/cmake/UseCorrade.cmake)
    endif()
endmacro()

macro(vantrel_use_magnum)
    _vantrel_origin(MAGNUM _vantrel_magnum_origin)
    set(VANTREL_MAGNUM_EMBEDDED ON)
    if(NOT _vantrel_magnum_origin STREQUAL embedded)
        # An installed Magnum is built on the installed Corrade and would bring a second copy into the process.
        if(NOT VANTREL_CORRADE_EMBEDDED)
            find_package(Magnum QUIET COMPONENTS EglContext GL GlfwApplication MeshTools Primitives Shaders Trade)
        endif()
        if(Magnum_FOUND)
            set(VANTREL_MAGNUM_EMBEDDED OFF)
            message(STATUS "Magnum: installed")
        elseif(_vantrel_magnum_origin STREQUAL installed)
            message(FATAL_ERROR "Magnum: not installed (or Corrade is embedded), and the embedded subset was ruled out")
        endif()
    endif()
    if(VANTREL_MAGNUM_EMBEDDED)
        message(STATUS "Magnum: embedded subset")
        add_subdirectory(embedded/Magnum)
    endif()
endmacro()

function(vantrel_use_threads)
    set(THREADS_PREFER_PTHREAD_FLAG ON)
    find_package(Threads REQUIRED GLOBAL)
endfunction()

function(vantrel_use_glfw)
    find_package(glfw3 3.3 REQUIRED GLOBAL)
    message(STATUS "GLFW: installed (${glfw3_VERSION})")
endfunction()

function(vantrel_use_epoxy)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(Epoxy REQUIRED QUIET IMPORTED_TARGET GLOBAL epoxy)
    add_library(Epoxy::Epoxy ALIAS PkgConfig::Epoxy)
    message(STATUS "libepoxy: installed (${Epoxy_VERSION})")
endfunction()

function(vantrel_use_googletest)
    if(VANTREL_BUILD_TESTS)
        find_package(GTest REQUIRED GLOBAL)
        message(STATUS "GoogleTest: installed (${GTest_VERSION})")
    endif()
endfunction()

function(vantrel_use_egl)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(Egl REQUIRED QUIET IMPORTED_TARGET GLOBAL egl)
    if(NOT TARGET Vantrel::Egl)
        add_library(Vantrel::Egl ALIAS PkgConfig::Egl)
    endif()
    message(STATUS "EGL: installed (${Egl_VERSION})")
endfunction()

function(vantrel_use_cli11)
    find_package(CLI11 REQUIRED GLOBAL)
    message(STATUS "CLI11: installed (${CLI11_VERSION})")
endfunction()

function(vantrel_use_rapidjson)
    find_package(RapidJSON REQUIRED)
    if(NOT TARGET Vantrel::RapidJson)
        add_library(VantrelRapidJson INTERFACE)
        target_include_directories(VantrelRapidJson SYSTEM INTERFACE ${RAPIDJSON_INCLUDE_DIRS})
        add_library(Vantrel::RapidJson ALIAS VantrelRapidJson)
    endif()
    message(STATUS "rapidjson: installed (${RapidJSON_VERSION})")
endfunction()

# Headers without a library of their own: whoever uses one compiles its code.
function(vantrel_use_stb)
    find_path(VANTREL_STB_INCLUDE_DIR stb/stb_image.h REQUIRED)
    mark_as_advanced(VANTREL_STB_INCLUDE_DIR)
    if(NOT TARGET Vantrel::Stb)
        add_library(VantrelStb INTERFACE)
        target_include_directories(VantrelStb SYSTEM INTERFACE ${VANTREL_STB_INCLUDE_DIR})
        add_library(Vantrel::Stb ALIAS VantrelStb)
    endif()
    message(STATUS "stb: installed")
endfunction()

# Readers of model files. The headers say where, so that they are of a piece with the library that is linked.
function(vantrel_use_assimp)
    if(NOT TARGET Vantrel::Assimp)
        find_package(PkgConfig REQUIRED)
        pkg_check_modules(Assimp REQUIRED QUIET IMPORTED_TARGET GLOBAL assimp)
        add_library(Vantrel::Assimp ALIAS PkgConfig::Assimp)
    endif()
    message(STATUS "Assimp: installed (${Assimp_VERSION})")
endfunction()

# Dear ImGui with its OpenGL 3 backend, linked into the editor and once more into each module. Debian's has no docking;
# a checkout of the docking branch takes its place where VANTREL_IMGUI_SOURCE_DIR names one.
set(VANTREL_IMGUI_SOURCE_DIR "" CACHE PATH "Source of Dear ImGui, instead of the installed one")
function(vantrel_use_imgui)
    if(TARGET Vantrel::ImGui)
        return()
    endif()
    if(VANTREL_IMGUI_SOURCE_DIR)
        add_library(VantrelImGui STATIC
            ${VANTREL_IMGUI_SOURCE_DIR}/imgui.cpp
            ${VANTREL_IMGUI_SOURCE_DIR}/imgui_draw.cpp
            ${VANTREL_IMGUI_SOURCE_DIR}/imgui_tables.cpp
            ${VANTREL_IMGUI_SOURCE_DIR}/imgui_widgets.cpp
            ${VANTREL_IMGUI_SOURCE_DIR}/backends/imgui_impl_opengl3.cpp)
        target_include_directories(VantrelImGui SYSTEM PUBLIC
            ${VANTREL_IMGUI_SOURCE_DIR} ${VANTREL_IMGUI_SOURCE_DIR}/backends)
        target_compile_options(VantrelImGui PRIVATE -w)
        target_link_libraries(VantrelImGui PUBLIC ${CMAKE_DL_LIBS})
        message(STATUS "Dear ImGui: ${VANTREL_IMGUI_SOURCE_DIR}")
    else()
        find_package(PkgConfig REQUIRED)
        pkg_check_modules(ImGui REQUIRED QUIET imgui)
        add_library(VantrelImGui INTERFACE)
        target_include_directories(VantrelImGui SYSTEM INTERFACE ${ImGui_INCLUDE_DIRS})
        foreach(folder ${ImGui_INCLUDE_DIRS})
            target_include_directories(VantrelImGui SYSTEM INTERFACE ${folder}/backends)
        endforeach()
        target_link_libraries(VantrelImGui INTERFACE ${ImGui_LDFLAGS} ${CMAKE_DL_LIBS})
        message(STATUS "Dear ImGui: installed (${ImGui_VERSION})")
    endif()
    add_library(Vantrel::ImGui ALIAS VantrelImGui)
endfunction()
