# Gives everything that is about to be packed the time of the sources.
file(GLOB_RECURSE files LIST_DIRECTORIES true ${CPACK_TEMPORARY_DIRECTORY}/*)
execute_process(COMMAND touch --no-dereference -d @$ENV{SOURCE_DATE_EPOCH} ${files}
                COMMAND_ERROR_IS_FATAL ANY)
