# Gzip files, local or fetched, are unpacked in-process with zlib: no file
# name or URL is ever handed to a shell. Remote files come through libcurl.
find_package(ZLIB REQUIRED)
find_package(CURL REQUIRED)
target_link_libraries(wrlLoader_dp PUBLIC ZLIB::ZLIB PRIVATE CURL::libcurl)
