# The outside libraries, the compiler's settings and the compiler cache.

set(VESPERINE_QT 5 CACHE STRING "Major version of Qt: 5, which users get, or 6")
set_property(CACHE VESPERINE_QT PROPERTY STRINGS 5 6)
set(qt_modules Core Gui Widgets Xml Concurrent Network Svg LinguistTools)
if(VESPERINE_BUILD_TESTS)
    list(APPEND qt_modules Test)
endif()
if(VESPERINE_QT EQUAL 6)
    find_package(Qt6 6.4 REQUIRED COMPONENTS ${qt_modules} OpenGL OpenGLWidgets)
else()
    find_package(Qt5 5.15 REQUIRED COMPONENTS ${qt_modules})
endif()
find_package(ZLIB REQUIRED)

# Version-neutral targets for a release of the toolkit that has none, or has the classes elsewhere.
foreach(module Core Gui GuiPrivate Widgets Xml Concurrent Network Svg Test)
    if(TARGET Qt5::${module} AND NOT TARGET Qt::${module})
        add_library(Qt::${module} ALIAS Qt5::${module})
    endif()
endforeach()
if(NOT TARGET Qt::OpenGLWidgets)
    add_library(Qt::OpenGL ALIAS Qt5::Gui)
    add_library(Qt::OpenGLWidgets ALIAS Qt5::Widgets)
endif()
foreach(program rcc lrelease lupdate)
    if(TARGET Qt5::${program} AND NOT TARGET Qt::${program})
        add_executable(Qt::${program} ALIAS Qt5::${program})
    endif()
endforeach()

# The two small OpenCV packages ship no CMake configuration of their own.
find_path(OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
foreach(module core imgproc)
    find_library(OPENCV_${module}_LIBRARY opencv_${module} REQUIRED)
    add_library(OpenCV::${module} UNKNOWN IMPORTED)
    # IMPORTED includes are system headers: they warn under C++20.
    set_target_properties(OpenCV::${module} PROPERTIES
        IMPORTED_LOCATION ${OPENCV_${module}_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${OPENCV_INCLUDE_DIR})
endforeach()

# Tells whether an X display answers before the toolkit would abort for want of one.
if(UNIX AND NOT APPLE)
    find_library(XCB_LIBRARY xcb REQUIRED)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(vesperine_settings INTERFACE)
target_include_directories(vesperine_settings INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(vesperine_settings INTERFACE -Wall -Wextra -Wpedantic
    $<$<BOOL:${VESPERINE_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(vesperine_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
    QT_DEPRECATED_WARNINGS QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
if(VESPERINE_SANITIZERS)
    target_compile_options(vesperine_settings INTERFACE
        -fsanitize=${VESPERINE_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vesperine_settings INTERFACE -fsanitize=${VESPERINE_SANITIZERS})
endif()
