# The version stands in project(), and goes from there into the program, the archives and the guide.
# What is not built from the tag of a version is still on the way to it, and says so: "1.0.0-dev" comes
# before "1.0.0" wherever versions are put in order. Nothing tells one such copy from the next, so that
# equal sources give equal bytes, also where there is no repository. cmake/release knows the tag.
option(KV_RELEASED "Build the version itself, not a copy on the way to it" OFF)
set(KV_VERSION ${PROJECT_VERSION})
if(NOT KV_RELEASED)
    string(APPEND KV_VERSION -dev)
endif()
