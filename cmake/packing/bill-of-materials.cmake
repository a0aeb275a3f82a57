# Run while an archive is laid out: writes what the program there is made of, from the linker's map
# KV_MAP. KV_SOURCE, KV_VERSION, KV_COMPILER and KV_UNSIGNED_SUM are set before.
set(place "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
execute_process(COMMAND ${KV_SOURCE}/cmake/packing/bill-of-materials ${KV_MAP} ${place}/kvwcfg.exe
                        ${KV_UNSIGNED_SUM} ${KV_VERSION} ${KV_COMPILER}
                        ${place}/kvwcfg.cdx.json
                COMMAND_ERROR_IS_FATAL ANY)
