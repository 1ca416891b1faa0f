# Gzip files, local or fetched, are unpacked in-process with zlib: no file
# name or URL is ever handed to a shell.
find_package(ZLIB REQUIRED)
target_link_libraries(wrlLoader_dp PUBLIC ZLIB::ZLIB)
