// Keeps numbered copies of files: back_up_files "*.cfg" copies plan.cfg to plan.cfg.1.bak, the next time to
// plan.cfg.2.bak, up to ninety-nine. It works in the working folder.
#include <orvil/orvil.h>

#include <cstdio>

namespace {

// Listed before anything is copied, so that copies are not found.
void list_files(CFileSearch& search, CExtStrArray& names) {
    while (search.FindNext()) {
        if (!search.IsDirectory()) {
            names.Add(search.GetFileName());
        }
    }
    names.Sort();
}

// A percent sign in the name is two in the pattern.
CExtString pattern_for(const char* name) {
    CExtString pattern;
    for (; *name != '\0'; ++name) {
        pattern += *name;
        if (*name == '%') {
            pattern += '%';
        }
    }
    pattern += ".%d.bak";
    return pattern;
}

}  // namespace

int main(int argc, char** argv) {
    CFileSearch search;
    if (argc != 2 || !search.Setup(argv[1])) {
        std::fprintf(stderr, "usage: back_up_files WILDCARD\n");
        return 1;
    }
    CExtStrArray names;
    list_files(search, names);
    int failures = 0;
    for (int i = 0; i < names.GetSize(); ++i) {
        int number = 0;
        if (orv_backupfile(names[i], pattern_for(names[i]), &number, 100)) {
            std::printf("%s: %u bytes, backup %d\n", names[i], static_cast<unsigned>(orv_statsize(names[i])), number);
        } else {
            std::fprintf(stderr, "%s: no backup\n", names[i]);
            ++failures;
        }
    }
    return failures == 0 ? 0 : 1;
}
