# Makes one program of the fences ```cpp of documents. Each is the body of a function, which is run by the name of its
# document and the number of its first line: document_snippets language:12
BEGIN {
    print "#include <orvil/orvil.h>"
    print ""
    print "#include <cstdio>"
    print "#include <cstdlib>"
    print "#include <cstring>"
}
FNR == 1 {
    document = FILENAME
    sub(/^.*\//, "", document)
    sub(/\.md$/, "", document)
}
/^```cpp$/ {
    inside = 1
    name = document "_" (FNR + 1)
    table = table "    if (std::strcmp(argv[1], \"" document ":" (FNR + 1) "\") == 0) return " name "();\n"
    print "\nstatic int " name "() {"
    print "#line " (FNR + 1) " \"" FILENAME "\""
    next
}
/^```/ && inside {
    inside = 0
    print "    return 0;\n}"
    next
}
inside { print }
END {
    print "\nint main(int argc, char** argv) {"
    print "    if (argc != 2) return 98;"
    printf "%s", table
    print "    return 99;\n}"
}
