# A program that needs no shared library: it starts in less than half the time, as loading eight of
# them takes longer than all that a short run does (docs/performance.md).
include(NorvoBuiltLibraries)

# norvo_static_taglib(VARIABLE): sets a variable to the folder with a static TagLib that is the very
# one whose headers are installed; to nothing when scripts/build-libraries.sh has built none.
function(norvo_static_taglib variable)
  set(${variable} "" PARENT_SCOPE)
  norvo_built_libraries(folder linux "${CMAKE_LIBRARY_ARCHITECTURE}")
  if(EXISTS "${folder}/versions")
    file(STRINGS "${folder}/versions" built)
    execute_process(COMMAND dpkg-query -W "-f=\${source:Package} \${source:Version}" libtag1-dev
      OUTPUT_VARIABLE installed ERROR_QUIET)
    if(installed IN_LIST built)
      set(${variable} "${folder}/lib" PARENT_SCOPE)
    endif()
  endif()
endfunction()

# norvo_static_program(PROGRAM): links it so where that can be done. It stays one that is loaded at
# an address by chance, as programs are that read what others made.
#
# A macro, as it sets a variable of the folder.
macro(norvo_static_program program)
  norvo_static_taglib(taglib)
  if(taglib)
    message(STATUS "${program} is linked statically, with ${taglib}/libtag.a")
    # Not as a link directory: that would be written into the program for its loader, which such a
    # program refuses to start with.
    target_link_options(${program} PRIVATE -static-pie -Wl,--gc-sections "-L${taglib}")
    set_property(TARGET ${program} APPEND PROPERTY LINK_DEPENDS "${taglib}/libtag.a")
    # Of TagLib, and so behind it on the linker's line.
    set(CMAKE_CXX_STANDARD_LIBRARIES -lz)
  else()
    message(STATUS "${program} is linked with shared libraries. For one that starts quicker, "
      "run scripts/install-dependencies.sh static.")
  endif()
endmacro()
