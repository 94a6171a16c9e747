include_guard()

# fenvis_tests(NAME <folder> SOURCES <file>...  [LIBRARIES <target>...] [XVFB])
#
# Sources are sorted by their names into at most three programs, each one ctest
# test with a label: `XGlTest.cpp` draws or picks offscreen (gl), `XFuzz.cpp` is
# a seeded loop (fuzz), any other `XTest.cpp` needs no GL (unit). Sources with
# other names belong to each of the programs. XVFB: a window is needed, so the
# program runs under its own X server.
function(fenvis_tests)
    cmake_parse_arguments(PARSE_ARGV 0 arg "XVFB" "NAME" "SOURCES;LIBRARIES")
    set(gl_sources ${arg_SOURCES})
    list(FILTER gl_sources INCLUDE REGEX "GlTest\\.cpp$")
    set(fuzz_sources ${arg_SOURCES})
    list(FILTER fuzz_sources INCLUDE REGEX "Fuzz\\.cpp$")
    set(unit_sources ${arg_SOURCES})
    list(FILTER unit_sources INCLUDE REGEX "Test\\.cpp$")
    list(FILTER unit_sources EXCLUDE REGEX "GlTest\\.cpp$")
    set(shared_sources ${arg_SOURCES})
    list(FILTER shared_sources EXCLUDE REGEX "(Test|Fuzz)\\.cpp$")
    foreach(label IN ITEMS unit gl fuzz)
        if(NOT ${label}_sources)
            continue()
        endif()
        set(target ${arg_NAME}_${label}_test)
        add_executable(${target} ${${label}_sources} ${shared_sources})
        target_link_libraries(${target} PRIVATE fenvis_test_support ${arg_LIBRARIES} fenvis_warnings)
        set(command ${target})
        set(environment "QT_QPA_PLATFORM=offscreen;LP_NUM_THREADS=1")
        if(arg_XVFB)
            set(command xvfb-run -a -s "-screen 0 1600x1200x24" $<TARGET_FILE:${target}>)
            set(environment "QT_QPA_PLATFORM=xcb;LP_NUM_THREADS=1")
        endif()
        if(FENVIS_SANITIZE)
            list(APPEND environment
                "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp"
                "UBSAN_OPTIONS=print_stacktrace=1")
        endif()
        add_test(NAME ${arg_NAME}.${label} COMMAND ${command})
        set_tests_properties(${arg_NAME}.${label} PROPERTIES
            LABELS ${label} TIMEOUT 300 ENVIRONMENT "${environment}")
    endforeach()
endfunction()
