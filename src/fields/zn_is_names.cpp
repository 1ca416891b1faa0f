#include "fields/zn_is_names.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>

namespace {

// The lists that exist, by their text. Made with the first list and freed
// with the last: a host sees no table between worlds.
using Table = std::unordered_map<std::string_view, const znISNames*>;
Table* table = nullptr;  // owning

}  // namespace

const znISNames* znISNames::intern(const znISNames* before, const std::vector<char*>& names) {
    std::string text;
    if (before) text.assign(before->text(), before->length);
    for (const char* name : names)
        if (name) text.append(name, std::strlen(name) + 1);
    if (text.empty()) return nullptr;

    if (!table) table = new Table;
    auto found = table->find(text);
    if (found != table->end()) {
        ref(found->second);
        return found->second;
    }
    auto* list = new (::operator new(sizeof(znISNames) + text.size())) znISNames;
    list->length = static_cast<std::uint32_t>(text.size());
    char* own = reinterpret_cast<char*>(list + 1);
    std::memcpy(own, text.data(), text.size());
    table->emplace(std::string_view(own, text.size()), list);
    return list;
}

void znISNames::ref(const znISNames* list) {
    if (list) ++list->refs;
}

void znISNames::unref(const znISNames* list) {
    if (!list || --list->refs > 0) return;
    table->erase(std::string_view(list->text(), list->length));
    list->~znISNames();
    ::operator delete(const_cast<znISNames*>(list));
    if (table->empty()) {
        delete table;
        table = nullptr;
    }
}

void znISNames::copyOut(std::vector<char*>& out) const {
    for (const char* name = text(); name < text() + length; name += std::strlen(name) + 1) out.push_back(strdup(name));
}
