// Explains error numbers by the maps of a message file: explain_errors examples/data/messages.cfg 123456 31002
#include <orvil/orvil.h>

#include <cstdio>

namespace {

// What the program says itself when the file does not know better.
bool add_own_messages(CMessageManager& messages) {
    CMessageMap own;
    return own.SetupSubjectKey(99, "Explaining errors") && own.AddItem(1001, "The error is unknown") &&
           messages.AddMap(own);
}

// The number is the code of a map and the four digits of a message in it.
const char* text_of(const CMessageManager& messages, int number) {
    const CMessageMap* map = messages.SearchMessageMap(number / 10000);
    return map == nullptr ? nullptr : map->SearchItemText(number % 10000);
}

void explain(const CMessageManager& messages, int number) {
    const char* text = text_of(messages, number);
    if (text == nullptr) {
        text = text_of(messages, CMessageManager::GetFinalErrorCode(99, 1001));
    }
    std::printf("%s %d: %s\n", CMessageMap::IsErrorCode(number % 10000) ? "error" : "note", number, text);
}

}  // namespace

int main(int argc, char** argv) {
    CMessageManager messages;
    if (argc < 2 || !messages.Load(argv[1]) || !add_own_messages(messages)) {
        std::fprintf(stderr, "usage: explain_errors FILE NUMBER...\n");
        return 1;
    }
    for (int i = 2; i < argc; ++i) {
        int number = 0;
        if (CExtString(argv[i]).ParseInteger(number)) {
            explain(messages, number);
        }
    }
    return 0;
}
