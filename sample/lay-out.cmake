# Makes fresh copies to run the wizard on, replacing those of an earlier run:
#   <DESTINATION>/product   a copy of the laid-out product PRODUCT
#   <DESTINATION>/server    an empty web server: its document root and its scripts folder
#
#   cmake -DPRODUCT=build/sample/product -DDESTINATION=run -P sample/lay-out.cmake
cmake_minimum_required(VERSION 3.20)

foreach(argument PRODUCT DESTINATION)
    if(NOT ${argument})
        message(FATAL_ERROR "lay-out: -D${argument}=... is missing")
    endif()
    get_filename_component(${argument} "${${argument}}" REALPATH BASE_DIR "${CMAKE_CURRENT_BINARY_DIR}")
endforeach()

if(NOT EXISTS "${PRODUCT}/bin/kvwcfg.exe")
    message(FATAL_ERROR "lay-out: ${PRODUCT} holds no product; build the target sample_product first")
endif()

set(product "${DESTINATION}/product")
set(server "${DESTINATION}/server")
if(product STREQUAL PRODUCT)
    message(FATAL_ERROR "lay-out: ${DESTINATION} holds the product itself; choose another destination")
endif()

file(REMOVE_RECURSE "${product}" "${server}")
file(COPY "${PRODUCT}/" DESTINATION "${product}")
file(MAKE_DIRECTORY "${server}/htdocs" "${server}/cgi-bin")

# A file that is not the product's: no operation of the wizard may touch it.
file(WRITE "${server}/htdocs/about-this-server.txt"
    "This file belongs to the web server and was here before Korvane.\n")
