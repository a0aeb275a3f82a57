# Run while an archive is laid out: signs the program there when the environment names a certificate
# (cmake/packing/sign-program tells how), and keeps for the lists what it was before and what it is now.
# KV_SOURCE and KV_WEB_SITE are set before.
#
# A variable called "program" would stand for the name of the component.
set(KV_PROGRAM "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/kvwcfg.exe")
file(SHA256 ${KV_PROGRAM} KV_UNSIGNED_SUM)
if("$ENV{KV_SIGN_CERTIFICATE}" STREQUAL "")
    set(KV_SIGNATURE "kvwcfg.exe is not signed: Windows asks before it starts a program of an unknown publisher.\nThat it is the one that was built, its sum below tells.")
else()
    execute_process(COMMAND ${KV_SOURCE}/cmake/packing/sign-program ${KV_PROGRAM}
                            "Korvane Configuration Wizard" ${KV_WEB_SITE}
                    OUTPUT_VARIABLE verified COMMAND_ERROR_IS_FATAL ANY)
    message("${verified}")
    string(REGEX MATCH "Subject: [^\n]*" subject "${verified}")
    set(KV_SIGNATURE "kvwcfg.exe is signed (${subject}).\nBefore it was signed its sum was\n\n    ${KV_UNSIGNED_SUM}")
endif()
