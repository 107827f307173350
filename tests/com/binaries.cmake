# What can be told of the built DLL and program without running it, so for a machine without any Wine too.
find_package(Python3 COMPONENTS Interpreter REQUIRED)
set(architecture $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,amd64,x86>)
set(program)
if(TARGET norvo-playlists)
  set(program $<TARGET_FILE:norvo-playlists>)
endif()
add_test(NAME norvo_com_binaries COMMAND "${Python3_EXECUTABLE}" -B
  "${PROJECT_SOURCE_DIR}/tests/com/binaries_test.py" ${CMAKE_OBJDUMP} ${architecture}
  $<TARGET_FILE:norvo_dll> "${PROJECT_BINARY_DIR}/src/com/NorvoPlayList.manifest"
  "${PROJECT_SOURCE_DIR}/src/com/dll/NorvoPlayList.idl" ${program})
set_tests_properties(norvo_com_binaries PROPERTIES TIMEOUT 60)
