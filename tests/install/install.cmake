# Installs the build into an empty folder and looks for paths in it that hold on this machine only.
#
#   cmake -DBUILD=… -DSOURCE=… -DPREFIX=… -P install.cmake

file(REMOVE_RECURSE ${PREFIX})
execute_process(
    COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
    OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE package_files ${PREFIX}/*.cmake)
if(NOT package_files)
    message(FATAL_ERROR "No package files were installed")
endif()
foreach(file IN LISTS package_files)
    file(READ ${file} text)
    foreach(folder ${SOURCE} ${BUILD} ${PREFIX})
        string(FIND "${text}" "${folder}" position)
        if(NOT position EQUAL -1)
            message(FATAL_ERROR "${file} names ${folder}, so the package cannot be moved")
        endif()
    endforeach()
endforeach()

file(GLOB_RECURSE private_headers ${PREFIX}/*.cpp)
if(private_headers)
    message(FATAL_ERROR "Installed by mistake: ${private_headers}")
endif()
