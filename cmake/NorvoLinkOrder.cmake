# What a linker needs for a target of the project, in the order in which it wants it.

# Adds the static libraries behind a target to NORVO_VISITED, each behind those that it needs, and
# the system's libraries to NORVO_SYSTEM_LIBRARIES; nothing that an earlier call has met.
function(norvo_visit target)
  get_property(met GLOBAL PROPERTY NORVO_MET)
  if(target IN_LIST met)
    return()
  endif()
  set_property(GLOBAL APPEND PROPERTY NORVO_MET ${target})
  get_target_property(needed ${target} INTERFACE_LINK_LIBRARIES)
  foreach(item IN LISTS needed)
    string(REGEX REPLACE "^\\$<LINK_ONLY:(.*)>$" "\\1" item "${item}")
    if(TARGET "${item}")
      norvo_visit(${item})
    elseif(item AND NOT item MATCHES "BUILD_INTERFACE")
      set_property(GLOBAL APPEND PROPERTY NORVO_SYSTEM_LIBRARIES ${item})
    endif()
  endforeach()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL STATIC_LIBRARY)
    set_property(GLOBAL APPEND PROPERTY NORVO_VISITED ${target})
  endif()
endfunction()

# norvo_link_order(TARGET LIBRARIES SYSTEM_LIBRARIES): sets two variables to what TARGET needs
# beyond the targets of earlier calls; each static library stands in front of those that it needs.
function(norvo_link_order target libraries system_libraries)
  set_property(GLOBAL PROPERTY NORVO_VISITED "")
  set_property(GLOBAL PROPERTY NORVO_SYSTEM_LIBRARIES "")
  norvo_visit(${target})
  get_property(visited GLOBAL PROPERTY NORVO_VISITED)
  get_property(system GLOBAL PROPERTY NORVO_SYSTEM_LIBRARIES)
  list(REVERSE visited)
  set(${libraries} ${visited} PARENT_SCOPE)
  set(${system_libraries} ${system} PARENT_SCOPE)
endfunction()
