# How this project builds a library and an executable: warnings, hardening, and which sources are portable and which need
# Windows.

add_library(scv_options INTERFACE)
target_include_directories(scv_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(scv_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wundef -Wformat=2 -Wnon-virtual-dtor
  -Wold-style-cast -Woverloaded-virtual -Wcast-qual -Wextra-semi -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(scv_options INTERFACE
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)
  # A conversion of a size to 64 bits is needed in 32-bit builds and useless in 64-bit ones.
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    target_compile_options(scv_options INTERFACE -Wuseless-cast)
  endif()
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(scv_options INTERFACE -Wno-unknown-warning-option)  # a pragma may name one of GCC's
endif()
if(SCV_SANITIZE)
  target_compile_options(scv_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(scv_options INTERFACE -fsanitize=address,undefined)
endif()
if(SCV_FUZZ)
  target_compile_options(scv_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(WIN32)
  target_compile_definitions(scv_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0700)
  if(SCV_TRAP_UB)
    target_compile_options(scv_options INTERFACE -fsanitize=undefined -fsanitize-undefined-trap-on-error)
  endif()
  # Static, so that a program needs no other file; reproducible; with address space randomisation and data execution prevention.
  target_link_options(scv_options INTERFACE
    -static -Wl,--no-insert-timestamp -Wl,--major-subsystem-version=6 -Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_link_options(scv_options INTERFACE -Wl,--large-address-aware)
  else()
    target_link_options(scv_options INTERFACE -Wl,--high-entropy-va)
  endif()
endif()

# For a build that only compiles. Not earlier: project() reads platform files that set this variable.
if(SCV_COMPILE_ONLY)
  set(CMAKE_CXX_LINK_EXECUTABLE "${CMAKE_COMMAND} -E touch <TARGET>")
endif()

# scv_sources(VARIABLE sources...): sets VARIABLE to those sources that this build compiles. The folder decides: a source
# below win32/ needs Windows; one below native/ replaces such a source in native builds; all others never include
# <windows.h> and are compiled everywhere.
function(scv_sources variable)
  set(sources ${ARGN})
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "(^|/)native/")
  else()
    list(FILTER sources EXCLUDE REGEX "(^|/)win32/")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# scv_verify_headers(TARGET SCOPE headers...): the target all_verify_interface_header_sets compiles each of these headers
# alone. Windows builds check only the headers that need Windows; native builds check the others.
function(scv_verify_headers target scope)
  set(headers ${ARGN})
  if(WIN32)
    list(FILTER headers INCLUDE REGEX "/(win32|framework|tests)/")
  else()
    list(FILTER headers EXCLUDE REGEX "/(win32|framework|tests)/")
  endif()
  target_sources(${target} ${scope} FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()

# scv_library(NAME SOURCES sources... [LINKS libraries...]): a static library of the sources that this build compiles.
function(scv_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  scv_sources(sources ${arg_SOURCES})
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC ${arg_LINKS} scv_options)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS *.h)
  if(NOT CMAKE_UNITY_BUILD)
    # A source that is compiled alone shows that the header that it includes first compiles alone.
    foreach(source IN LISTS sources)
      file(STRINGS ${source} first REGEX "^#include " LIMIT_COUNT 1)
      string(REGEX REPLACE "^#include \"(.+)\".*" "${PROJECT_SOURCE_DIR}/\\1" first "${first}")
      list(REMOVE_ITEM headers "${first}")
    endforeach()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
  endif()
  scv_verify_headers(${name} PUBLIC ${headers})
  # For clang-tidy: the native tidy build checks all portable sources, so leave them out here.
  if(WIN32 AND SCV_COMPILE_ONLY)
    list(FILTER sources EXCLUDE REGEX "win32/")
    set_source_files_properties(${sources} PROPERTIES HEADER_FILE_ONLY ON)
  endif()
endfunction()

# scv_executable(NAME SOURCES sources... [LINKS libraries...] [WINDOWED] [DESCRIPTION text]): an executable. On Windows it
# has the common manifest, the project's version and the description that Windows shows; release builds are stripped.
function(scv_executable name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWED" "DESCRIPTION" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINKS} scv_options)
  if(SCV_COMPILE_ONLY)
    scv_read_together(${name})
  elseif(WIN32)
    if(NOT arg_DESCRIPTION)
      set(arg_DESCRIPTION ${name})
    endif()
    set(version ${CMAKE_CURRENT_BINARY_DIR}/${name}-version.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${version} @ONLY)
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/manifest.rc ${version})
    target_link_options(${name} PRIVATE -municode)
    if(arg_WINDOWED)
      target_link_options(${name} PRIVATE -mwindows)
    endif()
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
      target_link_options(${name} PRIVATE -s)
    endif()
  endif()
endfunction()

# scv_namespaced_unity(TARGET): compiles the target's sources of each folder (for clang-tidy all its sources) in one unity build,
# each source in a namespace of its own, so that helpers of equal names do not collide. Their includes come before all namespaces.
function(scv_namespaced_unity target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  set(headers)
  foreach(source IN LISTS sources)
    file(STRINGS ${source} includes REGEX "^#include ")
    list(APPEND headers ${includes})
    string(REGEX REPLACE "/.*" "" folder ${source})
    if(SCV_COMPILE_ONLY)
      set(folder all)
    endif()
    set_property(SOURCE ${source} PROPERTY UNITY_GROUP ${folder})
  endforeach()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
  list(TRANSFORM headers REPLACE "^#include (<[^>]+>|\"[^\"]+\").*" "\\1")
  list(TRANSFORM headers REPLACE "^\"(.+)\"$" "\"${PROJECT_SOURCE_DIR}/\\1\"")
  if(WIN32)
    list(PREPEND headers <winsock2.h> <windows.h>)  # in this order, and before Windows' other headers
  endif()
  list(REMOVE_DUPLICATES headers)
  if(SCV_COMPILE_ONLY)
    # clang-tidy gains nothing from a precompiled header, which it would check as one more source.
    list(TRANSFORM headers PREPEND "#include ")
    list(JOIN headers "\n" text)
    file(CONFIGURE OUTPUT ${target}.h CONTENT "${text}\n" @ONLY)
    target_compile_options(${target} PRIVATE "SHELL:-include ${CMAKE_CURRENT_BINARY_DIR}/${target}.h")
  else()
    target_precompile_headers(${target} PRIVATE ${headers})
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP UNITY_BUILD_UNIQUE_ID scv_unity_id
    UNITY_BUILD_CODE_BEFORE_INCLUDE "namespace scv_unity_id {" UNITY_BUILD_CODE_AFTER_INCLUDE "}  // namespace scv_unity_id")
endfunction()

# scv_read_together(EXECUTABLE): for clang-tidy, which takes most of its time for the headers that each object includes. The
# sources of all executables of a folder become one object: they join the folder's library, or a target of their own.
function(scv_read_together executable)
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  set(target ${folder})
  if(NOT TARGET ${folder})
    set(target ${folder}_programs)
  endif()
  if(NOT TARGET ${target})
    add_library(${target} OBJECT)
    cmake_language(EVAL CODE "cmake_language(DEFER CALL scv_namespaced_unity ${target})")
  endif()
  get_target_property(sources ${executable} SOURCES)
  list(FILTER sources EXCLUDE REGEX "^support/")  # test_support has them
  get_target_property(links ${executable} LINK_LIBRARIES)
  list(REMOVE_ITEM links ${target})
  target_sources(${target} PRIVATE ${sources})
  target_link_libraries(${target} PUBLIC ${links})
  set_target_properties(${executable} PROPERTIES EXCLUDE_FROM_ALL ON)
endfunction()
