# vellox_add_test(NAME name SOURCES a.cpp ... LIBS lib ...)
# Builds one QtTest executable and registers it with CTest. Tests run offscreen with
# a private HOME so they never touch the developer's settings or notebooks.
function(vellox_add_test)
    cmake_parse_arguments(T "" "NAME" "SOURCES;LIBS" ${ARGN})
    add_executable(${T_NAME} ${T_SOURCES})
    target_link_libraries(${T_NAME} PRIVATE Qt6::Test vellox_testsupport ${T_LIBS})
    target_compile_definitions(${T_NAME} PRIVATE VELLOX_SOURCE_RESOURCES="${VELLOX_SOURCE_RESOURCES}"
                               VELLOX_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
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

# vellox_subsystem(NAME name [QT module ...] [DEPS lib ...]
#                  [WIDGET_QT module ...] [WIDGET_DEPS lib ...])
# The folder's *.cpp become vellox_<name> (window-free logic, linking only the Qt modules named
# in QT, Core by default); the files under widgets/ become vellox_<name>_widgets (views and
# window controllers, Widgets plus WIDGET_QT). DEPS may name only lower layers.
function(vellox_subsystem)
    cmake_parse_arguments(S "" "NAME" "QT;DEPS;WIDGET_QT;WIDGET_DEPS" ${ARGN})
    set(qt_logic Qt6::Core)
    foreach(module ${S_QT})
        list(APPEND qt_logic Qt6::${module})
    endforeach()
    set(qt_widgets Qt6::Widgets)
    foreach(module ${S_WIDGET_QT})
        list(APPEND qt_widgets Qt6::${module})
    endforeach()
    file(GLOB logic CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
                                      ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    set(lib vellox_${S_NAME})
    if(logic)
        add_library(${lib} STATIC ${logic})
        target_include_directories(${lib} PUBLIC ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(${lib} PUBLIC ${qt_logic} ${S_DEPS})
    else()
        add_library(${lib} INTERFACE)
        target_include_directories(${lib} INTERFACE ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(${lib} INTERFACE ${qt_logic} ${S_DEPS})
    endif()
    file(GLOB views CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/widgets/*.cpp
                                      ${CMAKE_CURRENT_SOURCE_DIR}/widgets/*.h)
    if(views)
        add_library(${lib}_widgets STATIC ${views})
        target_link_libraries(${lib}_widgets PUBLIC ${lib} vellox_widgets_common ${qt_widgets}
                                                    ${S_WIDGET_DEPS})
    endif()
endfunction()

# vellox_subsystem_tests(LIBS lib ...): every tst_*.cpp in this folder is one test executable.
function(vellox_subsystem_tests)
    cmake_parse_arguments(T "" "" "LIBS" ${ARGN})
    file(GLOB tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tst_*.cpp)
    foreach(source ${tests})
        get_filename_component(name ${source} NAME_WE)
        vellox_add_test(NAME ${name} SOURCES ${source} LIBS ${T_LIBS})
    endforeach()
endfunction()
