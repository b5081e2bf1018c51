// Strings that own their text, formats that name their values, and regular expressions in Perl's notation.
#include <cstdio>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"

int main() {
    CExtString path = "drawings/in";
    path += "/sheet";
    path.ConcatCharacters('0', 2);
    path += "7.plt";
    std::printf("%s has %d bytes\n", path.GetString(), path.GetLength());

    // The parts of a match: all of it, then each group.
    CExtStrArray parts;
    if (path.RegexMatch("/([a-z]+)(\\d+)\\.plt$/", parts) > 0) {
        std::printf("kind %s, number %s\n", parts[1], parts[2]);
    }

    // Another delimiter saves escaping slashes; the letter i makes no difference between cases.
    const CExtString moved = path.RegexReplace("|^DRAWINGS/in|i", "drawings/out");
    std::printf("%s\n", moved.GetString());

    CExtStrArray words = CExtString("pen  Medium, pen Thin,pen Thick").RegexSplit("/,\\s*/");
    words.Sort();
    for (int i = 0; i < words.GetSize(); ++i) {
        std::printf("%d: %s\n", i, words[i]);
    }
    return 0;
}
