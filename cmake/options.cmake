# Options of every target of this project, and the two ways a library is built.
add_library(galdren_options INTERFACE)
target_compile_definitions(galdren_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0601
                                                     _WIN32_WINNT=0x0601)
target_include_directories(galdren_options INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
if(MSVC)
  target_compile_options(galdren_options INTERFACE /W4 /permissive- /utf-8)
  # fopen, getenv and strncpy are those of every other compiler.
  target_compile_definitions(galdren_options INTERFACE _CRT_SECURE_NO_WARNINGS _CRT_NONSTDC_NO_WARNINGS)
else()
  target_compile_options(galdren_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow=local)
  # No MinGW runtime DLL is needed by what is built here.
  target_link_options(galdren_options INTERFACE -static)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 takes "text" + std::string for an overlapping copy.
  target_compile_options(galdren_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(galdren_options INTERFACE -Wno-unknown-warning-option)
endif()
option(GALDREN_WERROR "Treat warnings as errors" OFF)
if(GALDREN_WERROR)
  target_compile_options(galdren_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
if(GALDREN_CHECKED)
  target_compile_options(galdren_options INTERFACE -fsanitize=undefined,float-cast-overflow
                                                   -fsanitize-undefined-trap-on-error)
endif()

set(GALDREN_PRECOMPILED OFF CACHE STRING "Precompile the system's headers: three times as fast, but a missing #include \
goes unnoticed. MOST leaves out one library with each source: the DLLs, and the host without parts, which these have.")
set(precompiled_headers <windows.h> <algorithm> <functional> <memory> <string> <vector>)

# galdren_precompile(TARGET [HEADER...]): what has headers of its own has them precompiled by itself, all others together.
function(galdren_precompile target)
  if(NOT GALDREN_PRECOMPILED OR (GALDREN_PRECOMPILED STREQUAL "MOST" AND
                                 target MATCHES "^Galdren_(Util|Tools|Host_Static)$"))
    return()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # With optimization GCC 12 takes what it reads of strings there for overruns.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")  # or compiler caches take the headers for new ones
    target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
  endif()
  if(ARGN OR target STREQUAL "galdren_precompiled")
    target_precompile_headers(${target} PRIVATE ${precompiled_headers} ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM galdren_precompiled)
  endif()
endfunction()

if(GALDREN_PRECOMPILED)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/precompiled.cpp CONTENT "")
  add_library(galdren_precompiled OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
  target_link_libraries(galdren_precompiled PRIVATE galdren_options)
  galdren_precompile(galdren_precompiled)
endif()

# galdren_library(NAME DESCRIPTION text SOURCES... [NEEDS library] [SYSTEM library...]): the DLL NAME and the static library NAME_Static, with the
# aliases Galdren::NAME and Galdren::NAME_Static.
function(galdren_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION" "SOURCES;NEEDS;SYSTEM")
  string(TOUPPER ${name}_BUILD build_macro)
  if(GALDREN_CHECKED)
    list(APPEND arg_SOURCES ${PROJECT_SOURCE_DIR}/tests/support/guard_new.cpp)
  endif()

  set(description ${arg_DESCRIPTION})
  set(dll_sources ${arg_SOURCES} ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  if(MINGW)
    list(APPEND dll_sources ${PROJECT_SOURCE_DIR}/cmake/terminate.cpp)
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc @ONLY)
  add_library(${name} SHARED ${dll_sources})
  add_library(${name}_Static STATIC ${arg_SOURCES})
  # lib is in front of import and static library, and of no DLL. With Visual C++ the import library has the static one's
  # name.
  set_target_properties(${name} PROPERTIES PREFIX "")
  if(NOT MSVC)
    set_target_properties(${name}_Static PROPERTIES OUTPUT_NAME ${name})
  endif()
  target_compile_definitions(${name} PRIVATE ${build_macro})
  target_compile_definitions(${name}_Static PUBLIC GALDREN_STATIC)
  foreach(library ${name} ${name}_Static)
    target_compile_features(${library} INTERFACE cxx_std_17)
    target_include_directories(${library} INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                                    $<INSTALL_INTERFACE:include>)
    target_link_libraries(${library} PRIVATE $<BUILD_INTERFACE:galdren_options>)
    add_library(Galdren::${library} ALIAS ${library})
    galdren_precompile(${library})
  endforeach()
  foreach(needed ${arg_NEEDS})
    target_link_libraries(${name} PUBLIC ${needed})
    target_link_libraries(${name}_Static PUBLIC ${needed}_Static)
  endforeach()
  target_link_libraries(${name} PRIVATE ${arg_SYSTEM})
  target_link_libraries(${name}_Static PUBLIC ${arg_SYSTEM})
  if(NOT MSVC)
    target_link_options(${name} PRIVATE -Wl,--dynamicbase -Wl,--nxcompat $<$<CONFIG:Release>:-s>)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
      target_link_options(${name} PRIVATE -Wl,--high-entropy-va)
    endif()
  endif()
endfunction()
