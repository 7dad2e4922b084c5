# Compiler settings shared by every target of the project.
function(pell_set_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
    # Fuzzers see the coverage of the code they drive, not only of their own file.
    if(PELL_BUILD_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    if(PELL_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(PELL_SANITIZE_THREAD)
        target_compile_options(${target} PRIVATE -fsanitize=thread -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=thread)
    endif()
endfunction()

# pell_add_library(NAME [SHARED|STATIC] SOURCES ... LIBS ...)
function(pell_add_library name)
    cmake_parse_arguments(ARG "SHARED;STATIC" "" "SOURCES;LIBS;PRIVATE_LIBS" ${ARGN})
    if(ARG_SHARED)
        add_library(${name} SHARED ${ARG_SOURCES})
    else()
        add_library(${name} STATIC ${ARG_SOURCES})
        set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endif()
    add_library(Pell::${name} ALIAS ${name})
    pell_set_warnings(${name})
    target_link_libraries(${name} PUBLIC ${ARG_LIBS} PRIVATE ${ARG_PRIVATE_LIBS})
endfunction()

# The environment of every test: offscreen, and a German locale, so that a decimal comma or a
# translated text that leaks into a command or a file shows. LANGUAGE would choose the translation
# on its own. A test that assumes a language sets it itself.
set(PELL_TEST_ENVIRONMENT QT_QPA_PLATFORM=offscreen LANG=de_DE.UTF-8 LC_ALL=de_DE.UTF-8 LANGUAGE=)

# pell_add_test(NAME SOURCES ... LIBS ...): one GoogleTest executable per module.
function(pell_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    pell_set_warnings(${name})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} pell_test_main GTest::gtest GTest::gmock)
    target_compile_definitions(${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
    # gtest_discover_tests passes its properties through several list expansions, each of which
    # eats a level of escaping: with CMake 3.25 the separators of one property's own list need
    # seven backslashes to arrive as a list. TestEnvironment.IsGerman fails when they do not.
    list(JOIN PELL_TEST_ENVIRONMENT [[\\\\\\\;]] environment)
    gtest_discover_tests(${name}
        DISCOVERY_TIMEOUT 60
        PROPERTIES ENVIRONMENT "${environment}"
        DISCOVERY_MODE PRE_TEST)
endfunction()
