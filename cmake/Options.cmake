# Options of every target of the project.
add_library(ko_options INTERFACE)
# Generated headers are in a directory of their own.
target_include_directories(ko_options INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/names)
target_compile_options(ko_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual)
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # It also reports a name that another source of the unity build has in an anonymous namespace.
  target_compile_options(ko_options INTERFACE -Wno-shadow)
endif()
if(KO_WARNINGS_AS_ERRORS)
  target_compile_options(ko_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Without it the compiler spends a tenth of its time on collecting its garbage.
  target_compile_options(ko_options INTERFACE "SHELL:--param ggc-min-heapsize=524288")
endif()
# Keeps `signals` and `slots` free for names.
target_compile_definitions(ko_options INTERFACE QT_NO_KEYWORDS)
# Containers check their indices.
target_compile_definitions(ko_options INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
if(KO_SANITIZE)
  target_compile_options(ko_options INTERFACE -fsanitize=${KO_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(ko_options INTERFACE -fsanitize=${KO_SANITIZE})
  if(KO_SANITIZE MATCHES address)
    target_compile_definitions(ko_options INTERFACE KO_ADDRESS_SANITIZER) # each compiler has another macro
  endif()
endif()

# ko_apart(FILES...): excludes sources of this folder from unity builds, because a name in them clashes with another
# file of the folder.
function(ko_apart)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# ko_folder(NAME SOURCES... LINKS targets...): builds one folder of src/ as a static library.
function(ko_folder name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(ko_${name} STATIC ${arg_SOURCES})
  target_link_libraries(ko_${name} PUBLIC $<BUILD_INTERFACE:ko_options> ${arg_LINKS})
endfunction()
