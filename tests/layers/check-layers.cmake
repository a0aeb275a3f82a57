cmake_minimum_required(VERSION 3.25)

# Reads every #include of the product and fails on an arrow between folders that the design does
# not have, naming file and line. Run with -DSOURCE=<root of the project>.

# Folder: the folders below it that it may include. Below means below: what those may include, it
# may include too.
set(below_common)
set(below_wizard/controls)
set(below_config common)
set(below_wizard/form common config wizard/controls)
set(below_process common config wizard/controls wizard/form)
set(below_wizard/panels ${below_process} process)
set(below_platform/win32/runtime)
set(below_platform/win32/system common)
set(below_platform/win32/window common wizard/controls platform/win32/system)
set(below_app ${below_wizard/panels} wizard/panels platform/win32/system platform/win32/window)
set(folders common config process wizard/controls wizard/form wizard/panels
            platform/win32/runtime platform/win32/system platform/win32/window app)

# Only these know Windows.
set(windows_folders platform/win32/runtime platform/win32/system platform/win32/window app)
set(windows_headers "windows|windowsx|commctrl|objbase|shellapi|shlobj|oleacc|initguid|uxtheme")

set(faults 0)
macro(fault text)
    message(STATUS "${folder}/${name}: ${text}")
    math(EXPR faults "${faults} + 1")
endmacro()

set(read 0)
foreach(folder IN LISTS folders)
    file(GLOB sources RELATIVE ${SOURCE}/${folder} ${SOURCE}/${folder}/*.h ${SOURCE}/${folder}/*.cpp)
    if(NOT sources)
        message(FATAL_ERROR "${folder} holds no sources")
    endif()
    foreach(name IN LISTS sources)
        math(EXPR read "${read} + 1")
        file(STRINGS ${SOURCE}/${folder}/${name} includes REGEX "^ *# *include")
        foreach(include IN LISTS includes)
            if(include MATCHES "\"([^\"]*)/[^/\"]*\"")
                set(target ${CMAKE_MATCH_1})
                if(NOT target STREQUAL folder AND NOT target IN_LIST below_${folder})
                    fault("${include}: ${folder} may not include ${target}")
                endif()
            elseif(include MATCHES "\"")
                fault("${include}: name the folder, from the root of the project")
            elseif(include MATCHES "<(${windows_headers})\\.h>"
                   AND NOT folder IN_LIST windows_folders)
                fault("${include}: only ${windows_folders} know Windows")
            endif()
        endforeach()
    endforeach()
endforeach()

if(faults)
    message(FATAL_ERROR "${faults} includes break the layers")
endif()
message(STATUS "${read} files keep to the layers")
