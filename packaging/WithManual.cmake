# The manual is packaged where it has been made.
if(EXISTS ${CPACK_STYLEATLAS_MANUAL})
  list(APPEND CPACK_COMPONENTS_ALL manual)
endif()
