# Gives the folders of the packages the same permissions whatever the umask of who builds them.
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(entry IN LISTS entries)
  if(IS_DIRECTORY ${entry})
    file(CHMOD ${entry} PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  endif()
endforeach()
