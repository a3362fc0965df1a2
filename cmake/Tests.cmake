option(VANTREL_BUILD_TESTS "Build the tests" ON)
if(VANTREL_BUILD_TESTS)
    enable_testing()
    # What `ctest -LE gl` needs, for a build that runs nothing else.
    add_custom_target(vantrel-plain-tests)
endif()

# vantrel_add_test(NAME file... [LIBRARIES target...] [DEFINITIONS definition...] [ENVIRONMENT VAR=value...]
#                  [GL] [DISPLAY] [SERIAL])
#
# One test executable from GoogleTest sources. GL marks a test that needs a GL context (headless EGL, no display);
# DISPLAY one that opens a window: it runs in a virtual X server of its own. Both get the label "gl", so that
# `ctest -LE gl` runs everything that needs neither.
function(vantrel_add_test name)
    if(NOT VANTREL_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "GL;DISPLAY;SERIAL" "" "LIBRARIES;DEFINITIONS;ENVIRONMENT")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gtest GTest::gmock GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    if(arg_GL OR arg_DISPLAY)
        target_link_libraries(${name} PRIVATE VantrelTestSupport)
    else()
        add_dependencies(vantrel-plain-tests ${name})
    endif()
    set(command $<TARGET_FILE:${name}>)
    if(arg_DISPLAY)
        # Without a reset when the last window of a moment closes: the next client would be turned away meanwhile.
        set(command xvfb-run --auto-servernum "--server-args=-screen 0 1280x1024x24 -noreset" ${command})
    endif()
    add_test(NAME ${name} COMMAND ${command})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    if(arg_GL OR arg_DISPLAY)
        set_tests_properties(${name} PROPERTIES LABELS gl)
        # The software rasteriser, on every machine: pictures are compared.
        list(APPEND arg_ENVIRONMENT LIBGL_ALWAYS_SOFTWARE=1 GALLIUM_DRIVER=llvmpipe)
    endif()
    if(arg_DISPLAY)
        # Two virtual servers that start at the same moment may choose the same number.
        set_tests_properties(${name} PROPERTIES RESOURCE_LOCK display)
    endif()
    if(arg_SERIAL)
        set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
    endif()
    if(arg_ENVIRONMENT)
        set_tests_properties(${name} PROPERTIES ENVIRONMENT "${arg_ENVIRONMENT}")
    endif()
endfunction()
