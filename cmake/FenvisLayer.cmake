include_guard()

# fenvis_layer(NAME <layer> [LIBRARY fenvis|fenvis_host]
#              [DEPENDS <layer>...]            other layers of the same library
#              [PUBLIC <header>...]            installed, relative to this folder
#              [PRIVATE <file>...]             headers that stay here, sources
#              [LIBRARIES <target>...])        what the sources link
#
# A layer is one OBJECT library `layer_<name>`; the shared library and the
# static one that tests use collect the same objects.
function(fenvis_layer)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;LIBRARY" "DEPENDS;PUBLIC;PRIVATE;LIBRARIES")
    if(NOT arg_LIBRARY)
        set(arg_LIBRARY fenvis)
    endif()
    set(target layer_${arg_NAME})
    add_library(${target} OBJECT ${arg_PUBLIC} ${arg_PRIVATE})
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
    target_link_libraries(${target}
        PUBLIC ${arg_LIBRARIES} $<BUILD_INTERFACE:fenvis_options>
        PRIVATE fenvis_warnings)
    foreach(layer IN LISTS arg_DEPENDS)
        target_link_libraries(${target} PUBLIC layer_${layer})
    endforeach()
    set_property(GLOBAL APPEND PROPERTY ${arg_LIBRARY}_layers ${target})
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    foreach(header IN LISTS arg_PUBLIC)
        set_property(GLOBAL APPEND PROPERTY ${arg_LIBRARY}_headers ${folder}/${header})
        cmake_path(GET header PARENT_PATH below)
        install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/fenvis/${folder}/${below}
            COMPONENT Development)
    endforeach()
endfunction()

# fenvis_collect(<library> <umbrella header>): makes the shared library out of
# its layers' objects, a static twin `<library>_testable`, and the header that
# includes every public one.
function(fenvis_collect library umbrella)
    get_property(layers GLOBAL PROPERTY ${library}_layers)
    get_property(headers GLOBAL PROPERTY ${library}_headers)
    list(SORT headers)
    set(places generated installed-headers)
    set(roots ${PROJECT_SOURCE_DIR}/ "")
    # Beside the installed headers paths are relative to the umbrella; in the build tree they are whole.
    # Either way a header of the same path in the user's program cannot come in between.
    foreach(place root IN ZIP_LISTS places roots)
        set(text "#pragma once\n\n")
        foreach(header IN LISTS headers)
            string(APPEND text "#include \"${root}${header}\"\n")
        endforeach()
        file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${place}/fenvis/${umbrella} CONTENT "${text}" @ONLY)
    endforeach()
    install(FILES ${PROJECT_BINARY_DIR}/installed-headers/fenvis/${umbrella}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/fenvis COMPONENT Development)

    add_library(${library} SHARED ${PROJECT_SOURCE_DIR}/cmake/empty.cpp)
    add_library(${library}_testable STATIC EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/cmake/empty.cpp)
    foreach(layer IN LISTS layers)
        target_sources(${library} PRIVATE $<TARGET_OBJECTS:${layer}>)
        target_sources(${library}_testable PRIVATE $<TARGET_OBJECTS:${layer}>)
    endforeach()
    target_include_directories(${library} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/generated>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_include_directories(${library}_testable PUBLIC
        ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
    target_compile_features(${library} PUBLIC cxx_std_20)
    set_target_properties(${library} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        LINKER_LANGUAGE CXX)
    set_target_properties(${library}_testable PROPERTIES LINKER_LANGUAGE CXX)
endfunction()
