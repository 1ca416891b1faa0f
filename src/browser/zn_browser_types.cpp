// Types from the database's prototype records, and types made at run time.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "browser/browser_type_messages.h"
#include "browser/zn_browser_intern.h"
#include "database/zn_database.h"
#include "database/zn_database_records.h"
#include "base/zn_reports.h"
#include "nodes/zn_nodetype.h"

bool znBrowserIntern::typeStandsAtTop(int typeId) {
    auto found = types.find(typeId);
    return found != types.end() && found->second != nullptr && found->second->isToplevel() != 0;
}

int znBrowserIntern::addType(_zndbProto* proto, _zndbData* fields) {
    if (proto == nullptr) return 0;
    addingType = 1;
    const char* urlText = proto->url != nullptr ? proto->url : "";
    const bool noURL = urlText[0] == '\0' || std::strcmp(urlText, kNoURLList) == 0;
    std::vector<const char*> urls;
    if (noURL) {
        urls.push_back(nullptr);
    } else {
        std::string converted;
        vrml2data(&converted, SFStringType, urlText);
        // The interface may keep the text: it lives as long as the browser.
        typeURLs.push_back(strdup(converted.c_str()));
        urls.push_back(typeURLs.back());
    }
    const char* typeName = proto->name.c_str();
    auto* type = new znNodeType(proto->id, typeName, urls, this, proto->isSensor, proto->bodyIsGrouping,
                                proto->init);
    // Script itself is a system type, the types of single Script nodes are
    // not; any other type with an implementation reference is.
    int systemProto = 0;
    if (std::strncmp(typeName, kScriptTypePrefix, std::strlen(kScriptTypePrefix)) != 0)
        systemProto = urlText[0] != '\0' ? 1 : 0;
    if (std::strcmp(typeName, kScriptTypePrefix) == 0) systemProto = 1;
    type->setSystemProto(systemProto);

    if (!types.emplace(proto->id, type).second) {
        char message[256];
        std::snprintf(message, sizeof message, kFailedInsertingType, typeName);
        znMessage(message);
        delete type;
        addingType = 0;
        return 0;
    }
    if (fields == nullptr) {
        znInform(kFieldListNull);
    } else {
        for (_zndbData* item = fields; item != nullptr; item = item->next) {
            type->addData(item->name.c_str(), static_cast<FieldType>(item->fieldType), static_cast<DataType>(item->dataType),
                          item->flags, item->value);
        }
    }
    addingType = 0;
    return 1;
}

int znBrowserIntern::newType(const char* name, std::vector<const char*>& urls, int sensor) {
    const int id = freshTypeID();
    enterType(new znNodeType(id, name, urls, this, sensor, 0, nullptr));
    return id;
}

// The database's count of type IDs runs on past every type it has handed
// over, so its next number is free of them and of the types of worlds yet
// to be read; a type that came in some other way may still hold it, which
// the loop passes by. Of more tries than there are types, one must find a
// free number, unless the database answers the same ones again.
int znBrowserIntern::freshTypeID() {
    for (size_t tries = 0; tries <= types.size(); ++tries) {
        const int id = database->nextTypeID();
        if (id > 0 && types.find(id) == types.end()) return id;
    }
    return types.empty() ? 1 : types.rbegin()->first + 1;
}

int znBrowserIntern::newType(const char* name, const char* url, int sensor) {
    std::vector<const char*> urls{url};
    return newType(name, urls, sensor);
}
