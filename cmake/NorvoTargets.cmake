# How every target of the project is built, written once.

add_library(norvo_warnings INTERFACE)
target_compile_options(norvo_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Wold-style-cast -Wcast-qual)
if(NORVO_WARNINGS_AS_ERRORS)
  target_compile_options(norvo_warnings INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 reports overlapping copies in plain concatenations of std::string (its bug 105651).
  target_compile_options(norvo_warnings INTERFACE -Wno-restrict)
endif()

add_library(norvo_sanitize INTERFACE)
if(NORVO_SANITIZE)
  target_compile_options(norvo_sanitize INTERFACE
    -fsanitize=${NORVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(norvo_sanitize INTERFACE -fsanitize=${NORVO_SANITIZE})
endif()

# Folder of the Windows package for programs and libraries of this build's bitness.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(NORVO_WINDOWS_FOLDER x64)
else()
  set(NORVO_WINDOWS_FOLDER x86)
endif()

# norvo_subsystem(NAME [SOURCES file...] [PUBLIC_HEADERS header...] DEPENDS [subsystem...]): one
# folder of src/ as a static library. Its sources are all .cpp files of the folder, and those that
# are named.
#
# It may include only its own headers and those of its dependencies, as "folder/Header.h": the
# compiler is shown folders that hold nothing but links to these. So an include that points up the
# picture finds no file.
#
# PUBLIC_HEADERS are for programs outside the project; see cmake/NorvoPublicHeaders.cmake.
function(norvo_subsystem name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC_HEADERS;DEPENDS" ${ARGN})
  set(folder "${PROJECT_SOURCE_DIR}/src/${name}")
  file(GLOB sources CONFIGURE_DEPENDS "${folder}/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${folder}/*.h")
  string(REPLACE "/" "_" target "norvo_${name}")
  add_library(${target} STATIC ${sources} ${headers} ${ARG_SOURCES})
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ${NORVO_JOIN_SOURCES} UNITY_BUILD_BATCH_SIZE 8)
  # The system's headers, which these include, would rename what stands in other files.
  if(ARG_SOURCES)
    set_source_files_properties(${ARG_SOURCES} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()

  set(view "${PROJECT_BINARY_DIR}/rooms/${target}")
  get_filename_component(parent "${view}/${name}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  file(CREATE_LINK "${folder}" "${view}/${name}" SYMBOLIC)
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${view}>")

  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target}
    PUBLIC ${ARG_DEPENDS}
    PRIVATE $<BUILD_INTERFACE:norvo_warnings>
    PUBLIC $<BUILD_INTERFACE:norvo_sanitize>)
  list(TRANSFORM ARG_PUBLIC_HEADERS PREPEND "${name}/")
  set_property(TARGET ${target} PROPERTY NORVO_PUBLIC_HEADERS ${ARG_PUBLIC_HEADERS})
endfunction()
