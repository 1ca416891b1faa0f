# Gzip files, local or fetched, are unpacked in-process with zlib: no file
# name or URL is ever handed to a shell. Remote files come through libcurl,
# which is opened at run time on the first remote name (url/zn_URL_curl.h):
# only its headers are needed here, and its library at run time.
find_package(ZLIB REQUIRED)
find_package(CURL REQUIRED)
target_link_libraries(wrlLoader_dp PUBLIC ZLIB::ZLIB)
target_include_directories(wrlLoader_dp PRIVATE ${CURL_INCLUDE_DIRS})
