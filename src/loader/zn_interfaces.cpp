#include "loader/zn_interfaces.h"

#include <cstdio>
#include <cstring>

#include "loader/loader_messages.h"

int znAppInterfaces::add(znAppInterface* p) {
    if (p == nullptr) return 0;
    all.push_back(p);
    if (!byType.emplace(p->getType(), p).second) return 0;
    return byClass.emplace(p->getClass(), p).second ? 1 : 0;
}

znAppInterface* znAppInterfaces::getTypeInterface(const char* type) {
    if (type == nullptr) return nullptr;
    auto it = byType.find(type);
    return it == byType.end() ? nullptr : it->second;
}

znAppInterface* znAppInterfaces::getClassInterface(const char* className) {
    if (className == nullptr) return nullptr;
    auto it = byClass.find(className);
    return it == byClass.end() ? nullptr : it->second;
}

void znAppInterfaces::preProcess() {
    for (znAppInterface* p : all) p->preProcess();
}

void znAppInterfaces::process() {
    for (znAppInterface* p : all) p->process();
}

void znAppInterfaces::postProcess() {
    for (znAppInterface* p : all) p->postProcess();
}

namespace {
// Reads one integer answer. At end of input, or on an answer that is no
// number, `value` keeps what it held: the callers start it at 0.
void readAnswer(int& value) {
    std::fflush(stderr);
    if (std::scanf("%d", &value) != 1) {
        // Drop the rest of a non-numeric line so that a later question does
        // not read the same garbage again.
        int c;
        while ((c = std::getchar()) != EOF && c != '\n') {
        }
    }
}
}  // namespace

void znMessage(const char* text) { std::fprintf(stderr, kMessageFormat, text ? text : ""); }

void znAlert(const char* text) { std::fprintf(stderr, kAlertFormat, text ? text : ""); }

int znConfirm(const char* text) {
    std::fprintf(stderr, kConfirmFormat, text ? text : "");
    std::fputs(kConfirmChoices, stderr);
    std::fputs(kConfirmAsk, stderr);
    int answer = 0;
    readAnswer(answer);
    std::fputs("\n", stderr);
    return answer == 1 ? 1 : 0;
}

znPromptAnswer znPrompt(const char* text) {
    znPromptAnswer result;
    std::memset(&result, 0, sizeof result);
    std::fprintf(stderr, kPromptFormat, text ? text : "");
    std::fputs(kPromptQuestion, stderr);
    std::fputs(kPromptChoices, stderr);
    int answer = 0;
    readAnswer(answer);
    if (answer == 1) {
        std::fputs(kPromptNewName, stderr);
        std::fflush(stderr);
        // One word, bounded by the answer buffer.
        if (std::scanf("%255s", result.name) == 1) result.answered = 1;
        std::fputs("\n", stderr);
    }
    return result;
}
