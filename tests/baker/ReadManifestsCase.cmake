# cmake -DHERE=<tools/baker> -DPICTURES=<folder> -P ReadManifestsCase.cmake
# Reads the manifests of one test folder the way the build does and prints what it found.
include(${HERE}/ReadManifests.cmake)
quarnwick_read_manifests("${PICTURES}" entries files)
# Neither '|' nor ';' may reach a test's pass pattern, where they would separate patterns.
string(REPLACE "|" " " shown "${entries}")
list(JOIN shown ", " shown)
message("entries: ${shown} (end)")
