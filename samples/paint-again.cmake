execute_process(COMMAND "${PAINTER}" "${FOLDER}" Waves.bmp COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${FOLDER}/Waves.bmp" "${SHIPPED}"
                COMMAND_ERROR_IS_FATAL ANY)
