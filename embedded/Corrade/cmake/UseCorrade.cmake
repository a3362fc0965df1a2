# What the installed library brings along for those who use it.

# corrade_add_resource(NAME in.conf)
#
# Compiles the files that in.conf lists into a unit and sets the variable NAME to it, to be added to the sources of a
# target in this directory. CORRADE_RESOURCE_INITIALIZE(NAME) registers the group if the unit is in a static library.
function(corrade_add_resource name conf)
    get_filename_component(conf ${conf} ABSOLUTE)
    get_filename_component(directory ${conf} DIRECTORY)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/resource_${name}.cpp)

    # A changed list of files is a changed list of dependencies.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${conf})
    file(STRINGS ${conf} assignments REGEX "^[ \t]*filename[ \t]*=" ENCODING UTF-8)
    set(files)
    foreach(assignment ${assignments})
        string(REGEX REPLACE "^[^=]*=[ \t]*\"?([^\"]*[^\" \t\r])\"?[ \t\r]*$" "\\1" file ${assignment})
        get_filename_component(file ${file} ABSOLUTE BASE_DIR ${directory})
        list(APPEND files ${file})
    endforeach()

    add_custom_command(OUTPUT ${output}
        COMMAND Corrade::rc ${name} ${conf} ${output}
        DEPENDS Corrade::rc ${conf} ${files}
        COMMENT "Compiling resources ${name}"
        VERBATIM)
    set(${name} ${output} PARENT_SCOPE)
endfunction()

# corrade_add_plugin(name debugInstallDirs releaseInstallDirs metadataFile sources...)
#
# A module that a plugin manager can load: name.so, with name.conf next to it unless metadataFile is empty. The
# directories are those of the library, or of binaries and of the library; only the latter is used here.
function(corrade_add_plugin name debugInstallDirs releaseInstallDirs metadataFile)
    add_library(${name} MODULE ${ARGN})
    set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX .so DEBUG_POSTFIX "")
    target_compile_definitions(${name} PRIVATE CORRADE_DYNAMIC_PLUGIN)
    target_include_directories(${name} PRIVATE $<TARGET_PROPERTY:Corrade::PluginManager,INTERFACE_INCLUDE_DIRECTORIES>)

    if(metadataFile)
        get_filename_component(metadataFile ${metadataFile} ABSOLUTE)
        add_custom_command(TARGET ${name} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy ${metadataFile} $<TARGET_FILE_DIR:${name}>/${name}.conf
            VERBATIM)
    endif()

    foreach(type debug release)
        set(configurations Debug)
        if(type STREQUAL release)
            set(configurations "" None Release RelWithDebInfo MinSizeRel)
        endif()
        if(NOT ${type}InstallDirs)
            message(FATAL_ERROR "corrade_add_plugin(): ${name} needs ${type} install directories")
        endif()
        list(GET ${type}InstallDirs -1 directory)
        install(TARGETS ${name} DESTINATION ${directory} CONFIGURATIONS ${configurations})
        if(metadataFile)
            install(FILES ${metadataFile} DESTINATION ${directory} RENAME ${name}.conf CONFIGURATIONS ${configurations})
        endif()
    endforeach()
endfunction()
