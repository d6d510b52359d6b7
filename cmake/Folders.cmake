# Compiler settings shared by every target of ours.
add_library(KerluneBuildSettings INTERFACE)
target_compile_options(KerluneBuildSettings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual
    -Wimplicit-fallthrough
    $<$<BOOL:${KERLUNE_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(KerluneBuildSettings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
if(KERLUNE_SANITIZERS)
    target_compile_options(KerluneBuildSettings INTERFACE
        -fsanitize=${KERLUNE_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer
        $<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>) # clang 14 cannot assemble a coroutine with it
    target_link_options(KerluneBuildSettings INTERFACE -fsanitize=${KERLUNE_SANITIZERS})
endif()

# kerlune_folder(NAME SOURCES … PUBLIC … PRIVATE …)
#
# The static library of one folder of src/. Its headers are offered under a directory that holds nothing but
# that folder, so that `#include "Model/FontRecord.h"` compiles only in targets that link Kerlune::Model.
function(kerlune_folder name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(Kerlune${name} STATIC ${arg_SOURCES})
    add_library(Kerlune::${name} ALIAS Kerlune${name})

    set(headers ${PROJECT_BINARY_DIR}/headers/${name})
    file(MAKE_DIRECTORY ${headers})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${headers}/${name} SYMBOLIC)

    target_include_directories(Kerlune${name} PUBLIC ${headers})
    target_link_libraries(Kerlune${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} KerluneBuildSettings)
endfunction()
