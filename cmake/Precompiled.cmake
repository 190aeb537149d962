# The headers of the widgets, read once for all sources that use them. Not in builds for development, which notice that a
# source lacks an include.
# What is tested is optimized: with sanitizers it runs in half the time. The tests themselves are not, nor what uses the
# headers of the widgets: those take two to three times as long to compile then.

# ko_uses_widgets(TARGET RESULT): whether a target is linked with the toolkit's widgets, itself or by what it is linked with.
function(ko_uses_widgets target result)
  get_target_property(links ${target} LINK_LIBRARIES)
  get_target_property(interface ${target} INTERFACE_LINK_LIBRARIES)
  set(uses FALSE)
  foreach(link IN LISTS links interface)
    if(link STREQUAL "Qt6::Widgets")
      set(uses TRUE)
    elseif(link MATCHES "^ko_" AND NOT uses)
      ko_uses_widgets(${link} uses)
    endif()
  endforeach()
  set(${result} ${uses} PARENT_SCOPE)
endfunction()

# ko_precompile(OPTIONS FOLDERS...): lets the targets of these folders and of those below use the headers, and compiles
# the others with the options.
function(ko_precompile options)
  foreach(folder IN LISTS ARGN)
    get_directory_property(targets DIRECTORY ${folder} BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
      get_target_property(type ${target} TYPE)
      if(type MATCHES "EXECUTABLE|STATIC_LIBRARY")
        ko_uses_widgets(${target} uses)
        if(uses)
          target_precompile_headers(${target} REUSE_FROM ko_widgets_headers)
        else()
          target_compile_options(${target} PRIVATE ${options})
        endif()
      endif()
    endforeach()
    get_directory_property(below DIRECTORY ${folder} SUBDIRECTORIES)
    ko_precompile("${options}" ${below})
  endforeach()
endfunction()

file(CONFIGURE OUTPUT precompiled.cpp CONTENT "")
add_library(ko_widgets_headers STATIC ${PROJECT_BINARY_DIR}/precompiled.cpp)
target_link_libraries(ko_widgets_headers PRIVATE ko_options Qt6::Widgets Qt6::PrintSupport)
# Compiler caches need a file that is the same each time.
target_compile_options(ko_widgets_headers PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
target_precompile_headers(ko_widgets_headers PRIVATE <algorithm> <cmath> <filesystem> <functional> <map> <memory>
  <optional> <sstream> <string> <vector> <QtWidgets>)
ko_precompile(-O1 src host)
ko_precompile("" tests)
