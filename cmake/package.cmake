# What cpack puts into the release: the program with the licences of what is linked into it, and apart
# from it the debug symbols. cmake/release calls it.
set(KV_ARCHITECTURE x64 CACHE STRING "The architecture in the names of the archives")
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR "Korvane")
set(CPACK_PACKAGE_FILE_NAME korvane-wizard-${PROJECT_VERSION}-${KV_ARCHITECTURE})
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL program symbols)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_ARCHIVE_PROGRAM_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME ${CPACK_PACKAGE_FILE_NAME}-symbols)
set(CPACK_PACKAGE_CHECKSUM SHA256)

install(TARGETS kvwcfg RUNTIME DESTINATION . COMPONENT program)
install(FILES ${PROJECT_SOURCE_DIR}/docs/administrator.md ${PROJECT_SOURCE_DIR}/docs/log.md
        DESTINATION docs COMPONENT program)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/panels DESTINATION docs COMPONENT program)
if(KV_DEBUG_SYMBOLS)
    install(FILES $<TARGET_FILE:kvwcfg>.debug DESTINATION . COMPONENT symbols)
endif()

# Debian keeps the licences of the compiler's run-time library and of the Windows headers and
# libraries beside its packages.
set(KV_LICENCES /usr/share/doc CACHE PATH "Where the licences of the linked libraries are")
foreach(package gcc-mingw-w64-base mingw-w64-common)
    if(EXISTS ${KV_LICENCES}/${package}/copyright)
        install(FILES ${KV_LICENCES}/${package}/copyright DESTINATION licences
                RENAME ${package}.txt COMPONENT program)
    endif()
endforeach()
if(EXISTS /usr/share/common-licenses/GPL-3)
    install(FILES /usr/share/common-licenses/GPL-3 DESTINATION licences RENAME GPL-3.txt
            COMPONENT program)
endif()

install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/list-contents.cmake COMPONENT program)

include(CPack)
