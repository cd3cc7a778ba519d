// Document.h: one configuration file as zeltcfg handles it: its text, the
// library's manager holding it, and its typed tree.
//
// Loading reads the text, reports a JSON parse error with its place, imports
// the file through the library (standard input through the string import)
// and reads the root element; a failure is reported with the place and path
// of the failing member. Saving writes the tree back through the library and
// replaces the file atomically.
#ifndef ZELTCFG_DOCUMENT_H
#define ZELTCFG_DOCUMENT_H

#include "DocumentText.h"
#include "InputReading.h"

#include <zelt/zelt.h>

#include <memory>
#include <string>
#include <vector>

namespace zeltcfg {

struct ManagerDeleter {
    void operator()(IJSONManager* manager) const { zeltDestroyJSONManager(manager); }
};
using ManagerHandle = std::unique_ptr<IJSONManager, ManagerDeleter>;
using ConfigurationHandle = std::unique_ptr<VextorJSConfig::IVextorJSConfig>;

struct Document {
    std::string argument;  // as given: a path, or "-"
    std::string name;      // in messages: the path, or "<stdin>"
    std::string text;
    bool parsed = false;  // the text is JSON; tree holds it
    TextValue tree;
    ManagerHandle manager;
    ConfigurationHandle configuration;
    std::string failedPointer;  // the member the read failed on, if it failed

    // "name:line:column" of a byte offset in the text.
    std::string Place(std::size_t offset) const;
};

// A JSON text that holds changes to a configuration: a patch or an overlay.
struct JsonInput {
    std::string name;  // in messages: the path, or "<stdin>"
    std::string text;
    TextValue tree;

    // "name:line:column" of a byte offset in the text.
    std::string Place(std::size_t offset) const;
};

struct LoadOptions {
    bool verbose = false;  // all of the library's messages, not only the first
};

// Loads argument into document; on failure prints what is wrong to standard
// error and returns kExitInvalid or kExitInputOutput, otherwise kExitSuccess.
int LoadDocument(const std::string& argument, const LoadOptions& options, Document& document);

// Loads or throws Failure; for commands that handle one file.
Document LoadOrFail(const std::string& argument);

// Reads and parses argument (a file, or "-"); on failure prints what is wrong,
// a parse error with its place, and throws Failure with an empty message.
JsonInput ReadJsonInputOrFail(const std::string& argument);

// The name of argument in messages: the path, or "<stdin>" for "-".
std::string InputName(const std::string& argument);

// The text the library writes for a configuration tree.
std::string WriteConfigurationText(VextorJSConfig::IVextorJSConfig& configuration);

// Writes the typed tree back through the library and puts the text in place
// of the file atomically: saved to a new file in the same folder, flushed to
// disk, renamed over the original, keeping its permissions. A text equal to
// the file's is not written; false then. For "-" the text goes to standard
// output. Throws Failure, leaving the original file as it was.
bool SaveDocument(Document& document);

// SaveDocument for a command that changed the tree: first a warning for each
// member of the file that the typed tree does not hold, as the rewritten
// file leaves it out.
bool SaveChangedDocument(Document& document);

// Writes configuration to the file that argument names as the library
// writes it, atomically as SaveDocument does; the file may not exist yet.
// For "-" the text goes to standard output. Throws Failure naming the file.
void WriteConfigurationFile(VextorJSConfig::IVextorJSConfig& configuration,
                            const std::string& argument);

}  // namespace zeltcfg

#endif  // ZELTCFG_DOCUMENT_H
