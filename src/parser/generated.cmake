# The scanner and the grammar are generated into the build's src/parser/, so
# that they are included as "parser/lexer.cpp" and "parser/parser.hpp".
find_package(FLEX 2.6 REQUIRED)
find_package(BISON 3.0 REQUIRED)

set(WRL_PARSER_GEN_DIR ${CMAKE_CURRENT_BINARY_DIR}/parser)
file(MAKE_DIRECTORY ${WRL_PARSER_GEN_DIR})

# Full tables (-Cf): value lists are the bulk of every file. On the geometry
# of bench/bench_parse.cpp (Release) -Cf scans at about 170-180 MB/s, the
# default compressed tables (-Cem) at about 120 MB/s and -Cfr at about 80;
# flex refuses -CF for a C++ scanner.
set(WRL_FLEX_TABLE_OPTION "-Cf" CACHE STRING "flex table compression option for the VRML scanner")

FLEX_TARGET(wrlLexer ${CMAKE_CURRENT_SOURCE_DIR}/parser/lexer.l
  ${WRL_PARSER_GEN_DIR}/lexer.cpp
  COMPILE_FLAGS "${WRL_FLEX_TABLE_OPTION}")
BISON_TARGET(wrlGrammar ${CMAKE_CURRENT_SOURCE_DIR}/parser/parser.y
  ${WRL_PARSER_GEN_DIR}/parser.cpp
  DEFINES_FILE ${WRL_PARSER_GEN_DIR}/parser.hpp
  COMPILE_FLAGS "-Wall")
ADD_FLEX_BISON_DEPENDENCY(wrlLexer wrlGrammar)

set(WRL_GENERATED_SOURCES ${FLEX_wrlLexer_OUTPUTS} ${BISON_wrlGrammar_OUTPUTS})
