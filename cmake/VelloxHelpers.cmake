# vellox_add_test(NAME name SOURCES a.cpp ... LIBS lib ...)
# Builds one QtTest executable and registers it with CTest. Tests run offscreen with
# a private HOME so they never touch the developer's settings or notebooks.
function(vellox_add_test)
    cmake_parse_arguments(T "" "NAME" "SOURCES;LIBS" ${ARGN})
    add_executable(${T_NAME} ${T_SOURCES})
    target_link_libraries(${T_NAME} PRIVATE Qt6::Test vellox_testsupport ${T_LIBS})
    add_test(NAME ${T_NAME} COMMAND ${T_NAME})
    set_tests_properties(${T_NAME} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTWEBENGINE_DISABLE_SANDBOX=1;QT_LOGGING_RULES=qt.webenginecontext.info=false"
        TIMEOUT 300)
endfunction()

# vellox_add_benchmark(NAME name SOURCES a.cpp ... LIBS lib ...): built, never run by ctest.
function(vellox_add_benchmark)
    cmake_parse_arguments(B "" "NAME" "SOURCES;LIBS" ${ARGN})
    add_executable(${B_NAME} ${B_SOURCES})
    target_link_libraries(${B_NAME} PRIVATE ${B_LIBS})
endfunction()
