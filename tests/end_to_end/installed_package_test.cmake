# Installs the libraries into a fresh folder, moves that elsewhere, builds the example programs
# against it in both ways, and runs them over copies of the sample machines.
set(work "${BUILD_DIR}/installed-package-test")
file(REMOVE_RECURSE "${work}")
file(MAKE_DIRECTORY "${work}")

# run(EXIT_CODE COMMAND...): what it has printed is in `output`, errors behind the rest.
function(run expected)
  execute_process(COMMAND ${ARGN}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL expected)
    message(FATAL_ERROR "ended with ${result} instead of ${expected}: ${ARGN}\n${output}${errors}")
  endif()
  set(output "${output}${errors}" PARENT_SCOPE)
endfunction()

# expect(TEXT...): each stands in `output`.
function(expect)
  foreach(text IN LISTS ARGN)
    string(FIND "${output}" "${text}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "\"${text}\" is missing in:\n${output}")
    endif()
  endforeach()
endfunction()

# build(SOURCE_FOLDER NAME): by find_package.
function(build source name)
  run(0 "${CMAKE_COMMAND}" -S "${source}" -B "${work}/${name}" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}")
  run(0 "${CMAKE_COMMAND}" --build "${work}/${name}")
endfunction()

# build_plainly(SOURCE PACKAGE): by pkg-config and the compiler alone.
function(build_plainly source package)
  run(0 "${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${prefix}/${LIBDIR}/pkgconfig"
    "${PKG_CONFIG}" --cflags --libs ${package})
  separate_arguments(flags UNIX_COMMAND "${output}")
  get_filename_component(name "${source}" NAME_WE)
  run(0 "${CXX_COMPILER}" -std=c++20 "${EXAMPLES_DIR}/cpp/${source}" ${flags}
    -o "${work}/plain/${name}")
endfunction()

# Prints a playlist before and after the machine has the product's settings.
function(try_printing program machine)
  file(COPY "${EXAMPLES_DIR}/sample-machine/" DESTINATION "${machine}")
  run(1 "${program}" "${machine}" "C:\\Music\\Mix.m3u")
  expect("No entry was kept")
  run(0 "${NORVO_PLAYLISTS}" init --machine "${machine}")
  run(0 "${program}" "${machine}" "C:\\Music\\Mix.m3u")
  expect("1  The Harbours - Northern Lights  C:\\Music\\Pop Hits [2003]\\01 Northern Lights.mp3"
    "C:\\Music\\Sounds\\bell.wav")
endfunction()

# Moves the playlists of the sample machine: to another one, to one that takes no songs, and from
# nowhere.
function(try_moving program folder)
  file(COPY "${EXAMPLES_DIR}/sample-machine/" DESTINATION "${folder}/old")
  file(COPY "${EXAMPLES_DIR}/sample-new-machine/" DESTINATION "${folder}/new")
  run(0 "${program}" "${folder}/old" "${folder}/new")
  expect("C:\\Music\\Mix.m3u: 2 songs, 4 new playlists"
    "  in vain: C:\\Music\\Pop Hits [2003]\\06 Deleted Scene.mp3"
    "44 of 44 songs are reached and right")
  if(NOT EXISTS "${folder}/new/C/My Documents/Norvo Media/PlayLists/WinAmp/Mix.m3u")
    message(FATAL_ERROR "no playlist was restored:\n${output}")
  endif()

  # A file stands where the folder of the songs should be.
  file(WRITE "${folder}/full/C/My Documents/Norvo Media/Music" "")
  run(1 "${program}" "${folder}/old" "${folder}/full")
  expect("left out: the song C:\\Music\\Root Song.mp3" "0 of 44 songs")

  run(2 "${program}" "${folder}/nowhere" "${folder}/new")
  expect("${folder}/nowhere")
endfunction()

run(0 "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${work}/installed")
set(prefix "${work}/moved elsewhere")
file(RENAME "${work}/installed" "${prefix}")

file(GLOB included RELATIVE "${prefix}/include" "${prefix}/include/*")
if(NOT included STREQUAL "norvo")
  message(FATAL_ERROR "include/ holds ${included}")
endif()

build("${CONSUMER_DIR}" consumer)
run(0 "${work}/consumer/own_names")
expect("own 1 1")

build("${EXAMPLES_DIR}/cpp" examples)
file(MAKE_DIRECTORY "${work}/plain")
build_plainly(PrintPlaylist.cpp norvoplaylist)
build_plainly(MovePlaylists.cpp norvoplaylist-move)

try_printing("${work}/examples/print_playlist" "${work}/machine")
try_printing("${work}/plain/PrintPlaylist" "${work}/machine of pkg-config")
try_moving("${work}/examples/move_playlists" "${work}/move")
try_moving("${work}/plain/MovePlaylists" "${work}/move of pkg-config")
