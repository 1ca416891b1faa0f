// The world as VRML text: types, top-level nodes, routes.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "browser/browser_messages.h"
#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "fields/zn_exception.h"
#include "base/zn_reports.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"

int znBrowserIntern::writeURL(char* fileName) {
    if (!fileName) return writeURLtoStream(std::cout);
    // A file that cannot be opened takes the text silently.
    std::ofstream out(fileName, std::ios::out);
    writeURLtoStream(out);
    return 1;
}

int znBrowserIntern::writeURLtoStream(std::ostream& out) {
    out << kWorldHeader;
    for (auto& entry : types) entry.second->print(out);
    out << "\n";
    for (int id : topLevel) {
        try {
            getNode(id)->print(out);
        } catch (znInvalidNodeIDException&) {
            char message[256];
            std::snprintf(message, sizeof message, kSkipTopLevelOutput, std::to_string(id).c_str());
            znAlert(message);
        }
    }
    out << "\n";
    simManager->printRoutes(out);
    out << "\n";
    return 1;
}
