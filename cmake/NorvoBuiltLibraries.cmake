# norvo_built_libraries(VARIABLE SYSTEM TRIPLE): sets a variable to the folder in which
# scripts/build-libraries.sh keeps what it has built for a kind of machine of linux or windows. It is
# there when its file "versions" is.
function(norvo_built_libraries variable system triple)
  string(TOUPPER "NORVO_${system}_LIBRARIES" chosen)
  if(NOT "$ENV{${chosen}}" STREQUAL "")
    set(folder "$ENV{${chosen}}")
  elseif(NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
    set(folder "$ENV{XDG_CACHE_HOME}/norvo-playlists/${system}")
  else()
    set(folder "$ENV{HOME}/.cache/norvo-playlists/${system}")
  endif()
  set(${variable} "${folder}/${triple}" PARENT_SCOPE)
endfunction()
