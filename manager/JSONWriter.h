// JSONWriter.h: the document's text form, written from the tree in one pass
// into one growing buffer.
//
// The layout is one line: `{ "a": 1, "b": [ 1, 2 ], "c": "x\/y" }`, `{ }`,
// `[ ]`; integers as 32-bit "%d", doubles as "%lf"; strings end at their first
// zero byte and escape \b \n \r \t \" \\ \/, every other byte below 0x20 as
// \u00xx in lowercase hexadecimal, and copy all other bytes as they are.
#ifndef ZELT_MANAGER_JSONWRITER_H
#define ZELT_MANAGER_JSONWRITER_H

#include <string>

struct json_object;

// Appends the text of node (and everything below it) to out. Nesting depth
// is limited only by memory: the writer keeps its own stack.
void AppendJSONText(json_object* node, std::string& out);

#endif  // ZELT_MANAGER_JSONWRITER_H
