# The icon of the programs for Windows, which is drawn at build time: NORVO_ICON is its file. What has
# it in its resources depends on the target norvo_icon.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(NORVO_ICON "${PROJECT_BINARY_DIR}/norvo.ico")
add_custom_command(OUTPUT "${NORVO_ICON}"
  COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/scripts/make-icon.py" "${NORVO_ICON}"
  DEPENDS "${PROJECT_SOURCE_DIR}/scripts/make-icon.py"
  COMMENT "Drawing the icon" VERBATIM)
add_custom_target(norvo_icon DEPENDS "${NORVO_ICON}")
