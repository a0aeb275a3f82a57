# What cpack puts into the release: the program with its guide, what it is made of and the licences of
# that, and apart from it the debug symbols. cmake/release calls it.
set(KV_ARCHITECTURE x64 CACHE STRING "The architecture in the names of the archives")
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR "Korvane")
set(CPACK_PACKAGE_FILE_NAME korvane-wizard-${KV_VERSION}-${KV_ARCHITECTURE})
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL program symbols)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_ARCHIVE_PROGRAM_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME ${CPACK_PACKAGE_FILE_NAME}-symbols)
set(CPACK_PACKAGE_CHECKSUM SHA256)

install(TARGETS kvwcfg RUNTIME DESTINATION . COMPONENT program)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/panels DESTINATION docs COMPONENT program)
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_BINARY_DIR}/CHANGELOG.md
               NEWLINE_STYLE CRLF)
install(FILES ${PROJECT_BINARY_DIR}/CHANGELOG.md DESTINATION . COMPONENT program)
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

# The address that the window's help leads to.
file(STRINGS ${PROJECT_SOURCE_DIR}/wizard/form/Texts.h KV_WEB_SITE REGEX kWebSite)
string(REGEX MATCH "https://[^\"]+" KV_WEB_SITE "${KV_WEB_SITE}")

# These steps follow each other: a signature changes the program, and the lists hold its sum.
find_program(KV_PANDOC pandoc)
install(CODE "
    set(KV_SOURCE [==[${PROJECT_SOURCE_DIR}]==])
    set(KV_MAP [==[$<TARGET_FILE:kvwcfg>.map]==])
    set(KV_VERSION ${KV_VERSION})
    set(KV_COMPILER [==[${CMAKE_CXX_COMPILER}]==])
    set(KV_PANDOC [==[${KV_PANDOC}]==])
    set(KV_TITLE [==[Korvane Configuration Wizard ${KV_VERSION}, ${KV_ARCHITECTURE}]==])
    set(KV_WEB_SITE ${KV_WEB_SITE})" COMPONENT program)
foreach(step sign-program make-pages bill-of-materials list-contents)
    install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/packing/${step}.cmake COMPONENT program)
endforeach()

include(CPack)
