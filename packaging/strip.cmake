# Run by CPack on what goes into the package: what neither the program nor the system reads comes off.
file(GLOB programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/lib/velta/velta*)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${programs}
                COMMAND_ERROR_IS_FATAL ANY)
