# Makes the installed files what a Debian package holds: cpack runs this before it packs them.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/man/*.1)
foreach(page ${pages} ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/doc/vantora/changelog)
  # -n leaves out the name and the time
  execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
# cpack has taken the debug information out of the programs; the names of the tools go with it.
file(GLOB programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/*)
execute_process(COMMAND strip --remove-section=.comment ${programs} COMMAND_ERROR_IS_FATAL ANY)
