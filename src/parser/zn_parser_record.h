// The recording bodies of znParser's semantic methods: each call is written
// down with what it was called with, so that the grammar and the lexer can
// be tested on their own. Types the text uses are declared here beforehand,
// or by the PROTOs of the text itself.
#ifndef ZN_PARSER_RECORD_H
#define ZN_PARSER_RECORD_H

#include <cstddef>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

struct znParserRecord {
    // Kind of an interface name: 1 field, 2 eventIn, 4 eventOut, 3 exposed field.
    struct Interface {
        int token = 0;
        int kind = 0;
    };
    using InterfaceTable = std::map<std::string, Interface>;

    // Declares a node type with its fields (name, type token), all of kind 1.
    void declare(const std::string& type, const std::vector<std::pair<std::string, int>>& fields);
    // Text served for an EXTERNPROTO URL (the part before any '#').
    void serve(const std::string& url, const std::string& text) { externFiles[url] = text; }

    // Every call, as "method(arg,arg)", in order.
    std::vector<std::string> calls;
    // Off: calls are only counted, and value texts only measured.
    bool keepCalls = true;
    std::size_t callCount = 0;
    std::size_t valueBytes = 0;

    std::map<std::string, InterfaceTable> types;

    // Nodes being read, innermost last.
    struct OpenNode {
        std::string type;
        std::string instName;
        InterfaceTable own;  // fields and events a Script declares itself
    };
    std::vector<OpenNode> nodes;

    struct Proto {
        std::string name;
        bool externTarget = false;
    };
    Proto currentProto;
    std::vector<Proto> protoStack;

    std::map<std::string, std::string> externFiles;
    std::vector<std::unique_ptr<std::istringstream>> externInputs;
};

#endif
