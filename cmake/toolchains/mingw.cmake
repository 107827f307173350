# What the builds of both bitnesses share; CMAKE_SYSTEM_PROCESSOR is set.
set(NORVO_MINGW_TRIPLE ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${NORVO_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${NORVO_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${NORVO_MINGW_TRIPLE}-windres)

include("${CMAKE_CURRENT_LIST_DIR}/../NorvoBuiltLibraries.cmake")
norvo_built_libraries(NORVO_MINGW_LIBRARIES windows ${NORVO_MINGW_TRIPLE})
if(NOT EXISTS "${NORVO_MINGW_LIBRARIES}/versions")
  message(FATAL_ERROR "The libraries for Windows are missing in ${NORVO_MINGW_LIBRARIES}. "
    "Run scripts/install-dependencies.sh windows first; it builds them.")
endif()
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES "${NORVO_MINGW_LIBRARIES}/include")
set(CMAKE_CXX_FLAGS_INIT "-DTAGLIB_STATIC -DUTF8PROC_STATIC")

# The programs need none of the compiler's own libraries beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static \"-L${NORVO_MINGW_LIBRARIES}/lib\"")
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_FIND_ROOT_PATH /usr/${NORVO_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
