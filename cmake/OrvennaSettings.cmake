# One target carries the compile settings every part of the program shares.
add_library(orvenna_settings INTERFACE)
target_compile_features(orvenna_settings INTERFACE cxx_std_20)
target_compile_options(orvenna_settings INTERFACE -Wall -Wextra -Wpedantic)
target_compile_definitions(orvenna_settings INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_KEYWORDS
    QT_USE_QSTRINGBUILDER
    ORVENNA_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
    ORVENNA_VERSION_MINOR=${PROJECT_VERSION_MINOR}
    ORVENNA_VERSION_PATCH=${PROJECT_VERSION_PATCH}
    ORVENNA_VERSION_TWEAK=${PROJECT_VERSION_TWEAK})
if(ORVENNA_FUZZ)
    target_compile_options(orvenna_settings INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
    target_link_options(orvenna_settings INTERFACE -fsanitize=address,undefined)
endif()

# orvenna_add_library(name DEPENDS ... SOURCES ...): one library per source folder.
function(orvenna_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC orvenna_settings ${ARG_DEPENDS})
endfunction()
