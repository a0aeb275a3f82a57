# Run while an archive is laid out: makes the pages that the administrator reads of the documents, all
# in one folder beside their pictures. KV_PANDOC, KV_VERSION and KV_SOURCE are set before.
set(place "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
foreach(page administrator=docs/administrator log=docs/log support=docs/support changes=CHANGELOG)
    string(REGEX MATCH "(.*)=(.*)" page ${page})
    execute_process(COMMAND ${KV_PANDOC} --from gfm --to html5 --standalone --section-divs
            --toc --toc-depth 2 --columns 100000
            --template ${KV_SOURCE}/cmake/packing/page.html
            --lua-filter ${KV_SOURCE}/cmake/packing/page.lua
            --metadata lang=en --variable version=${KV_VERSION} --variable is-${CMAKE_MATCH_1}
            --output ${place}/docs/${CMAKE_MATCH_1}.html ${KV_SOURCE}/${CMAKE_MATCH_2}.md
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
