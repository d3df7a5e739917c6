# Sets the permissions of the packaged folders, which otherwise follow the umask of the build.
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(entry IN LISTS entries)
  if(IS_DIRECTORY ${entry})
    file(CHMOD ${entry} PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  endif()
endforeach()
