# The packages that are headers alone, for a build for another system. Debian has them among the
# headers of its own system, which are not for the compiler to see: so each folder is linked into
# the build tree, and that is searched.
set(norvo_headers "${PROJECT_BINARY_DIR}/header-packages")
file(MAKE_DIRECTORY "${norvo_headers}")

# norvo_header_package(TARGET HEADER DEBIAN_PACKAGE)
function(norvo_header_package target header package)
  find_path(NORVO_${package} ${header} PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  if(NOT NORVO_${package})
    message(FATAL_ERROR "${header} is missing: install the package ${package} "
      "(apt-get install ${package}), or leave the program out with -DNORVO_BUILD_PROGRAM=OFF.")
  endif()
  get_filename_component(folder ${header} DIRECTORY)
  if(NOT EXISTS "${norvo_headers}/${folder}")
    file(CREATE_LINK "${NORVO_${package}}/${folder}" "${norvo_headers}/${folder}" SYMBOLIC)
  endif()
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} SYSTEM INTERFACE "${norvo_headers}")
endfunction()

norvo_header_package(CLI11::CLI11 CLI/CLI.hpp libcli11-dev)
norvo_header_package(nlohmann_json::nlohmann_json nlohmann/json.hpp nlohmann-json3-dev)
