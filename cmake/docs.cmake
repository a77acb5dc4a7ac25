# `cmake --build BUILD --target docs` builds the API reference from the public
# headers with Doxygen into BUILD/docs/html, failing on any warning (the
# Doxyfile at the top of the tree says what goes in; scripts/docs.sh does the
# same without a build).
find_program(CORVANE_DOXYGEN doxygen)
if(CORVANE_DOXYGEN)
  add_custom_target(docs
    COMMAND sh -c "(cat Doxyfile; echo 'OUTPUT_DIRECTORY = ${PROJECT_BINARY_DIR}/docs') | '${CORVANE_DOXYGEN}' -"
    COMMAND ${CMAKE_COMMAND} -E echo "API reference: ${PROJECT_BINARY_DIR}/docs/html/index.html"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    VERBATIM)
endif()
