#include "Document.h"

#include "AtomicFileReplacement.h"
#include "Failure.h"
#include "InputReading.h"
#include "Lint.h"
#include "MessageCapture.h"
#include "ReadFailureDiagnosis.h"
#include "StandardStreams.h"
#include "TextEncoding.h"

namespace zeltcfg {

namespace {

void PrintLibraryMessages(const LoadOptions& options) {
    const std::vector<std::string>& messages = LibraryMessages();
    for (std::size_t i = 0; i < messages.size() && (options.verbose || i == 0); ++i)
        PrintError("  %s\n", messages[i].c_str());
}

int ReadConfiguration(Document& document, const LoadOptions& options) {
    document.configuration.reset(VextorJSConfig::VextorJSConfig_CreateNewInstance());
    int result;
    {
        DebugDumpCapture capture;
        result = document.configuration->ReadFromJSONMgr(document.manager.get(),
                                                         document.manager->GetRootElement());
    }
    if (result == ZELT_SUCCESS) return kExitSuccess;
    const Diagnosis diagnosis = DiagnoseReadFailure(document.tree, FailingKeys(LibraryMessages()));
    document.failedPointer = diagnosis.pointer;
    PrintError("%s: %s: %s\n", document.Place(diagnosis.offset).c_str(), diagnosis.pointer.c_str(),
               diagnosis.problem.c_str());
    PrintLibraryMessages(options);
    return kExitInvalid;
}

int ImportAndRead(Document& document, const LoadOptions& options) {
    LibraryMessages().clear();
    document.manager.reset(zeltCreateJSONManager(nullptr, 0));
    int result;
    if (document.argument == kStandardInput)
        result = document.manager->ImportFromJSONString(document.text.c_str(),
                                                        static_cast<int>(document.text.size()));
    else
        result = document.manager->ImportFromJSONFile(WidePath(document.argument).c_str());
    if (result == ZELT_BAD_ARGUMENT && document.argument != kStandardInput) {
        PrintError(
            "%s: the library cannot open the file for import: another program holds "
            "it open; close that program and try again\n",
            document.name.c_str());
        PrintLibraryMessages(options);
        return kExitInputOutput;
    }
    if (result != ZELT_SUCCESS) {
        PrintError(
            "%s: the library does not import this text (result %d); the document must "
            "be one JSON object\n",
            document.name.c_str(), result);
        PrintLibraryMessages(options);
        return kExitInvalid;
    }
    return ReadConfiguration(document, options);
}

// Lets the library save into the temporary file and reads back what it wrote.
std::string SaveThroughLibrary(IJSONManager& manager, TemporaryFile& file,
                               const std::string& name) {
    LibraryMessages().clear();
    const int result = manager.SaveToJSONFile(WidePath(file.path()).c_str());
    if (result != ZELT_SUCCESS) {
        std::string message = name + ": the configuration could not be saved (result " +
                              std::to_string(result) + "); the file is unchanged";
        for (const std::string& line : LibraryMessages()) message += "\n  " + line;
        throw Failure(kExitInputOutput, message);
    }
    return file.ReadWritten(name);
}

// A new manager that holds configuration; prefix names the file in a failure.
ManagerHandle ManagerHolding(VextorJSConfig::IVextorJSConfig& configuration,
                             const std::string& prefix) {
    ManagerHandle manager(zeltCreateJSONManager(nullptr, 0));
    if (configuration.WriteToJSONMgr(manager.get(), nullptr, 1) != ZELT_SUCCESS)
        throw Failure(kExitInvalid, prefix + "the library could not write the configuration");
    return manager;
}

std::string PlaceInText(const std::string& name, const std::string& text, std::size_t offset) {
    const TextLocation location = LocateOffset(text, offset);
    return name + ":" + std::to_string(location.line) + ":" + std::to_string(location.column);
}

// Reads the text of argument and finds whether it parses; on failure prints
// what is wrong and returns the exit code.
int ReadJsonText(const std::string& argument, const std::string& name, std::string& text) {
    try {
        text = ReadInput(argument, name);
    } catch (const Failure& failure) {
        PrintError("%s\n", failure.what());
        return failure.code;
    }
    if (const auto error = FindParseError(text)) {
        PrintError("%s: not valid JSON: %s; correct the text at this place\n",
                   PlaceInText(name, text, error->offset).c_str(), error->reason.c_str());
        return kExitInvalid;
    }
    return kExitSuccess;
}

// Members that the typed tree does not hold are not written back.
void WarnOfDroppedMembers(const Document& document) {
    for (const LintFinding& finding : LintDocument(document.text, document.tree))
        if (finding.unknownMember)
            PrintError("%s: warning: %s: unknown member, left out of the rewritten file%s\n",
                       document.Place(finding.offset).c_str(), finding.pointer.c_str(),
                       finding.suggestion.empty()
                           ? ""
                           : ("; did you mean \"" + finding.suggestion + "\"?").c_str());
}

}  // namespace

std::string Document::Place(std::size_t offset) const { return PlaceInText(name, text, offset); }

std::string JsonInput::Place(std::size_t offset) const { return PlaceInText(name, text, offset); }

std::string InputName(const std::string& argument) {
    return argument == kStandardInput ? "<stdin>" : argument;
}

int LoadDocument(const std::string& argument, const LoadOptions& options, Document& document) {
    document.argument = argument;
    document.name = InputName(argument);
    const int result = ReadJsonText(argument, document.name, document.text);
    if (result != kExitSuccess) return result;
    document.tree = ScanText(document.text);
    document.parsed = true;
    return ImportAndRead(document, options);
}

JsonInput ReadJsonInputOrFail(const std::string& argument) {
    JsonInput input;
    input.name = InputName(argument);
    const int result = ReadJsonText(argument, input.name, input.text);
    if (result != kExitSuccess) throw Failure(static_cast<ExitCode>(result), "");
    input.tree = ScanText(input.text);
    return input;
}

Document LoadOrFail(const std::string& argument) {
    Document document;
    const int result = LoadDocument(argument, LoadOptions{}, document);
    if (result != kExitSuccess) throw Failure(static_cast<ExitCode>(result), "");
    return document;
}

std::string WriteConfigurationText(VextorJSConfig::IVextorJSConfig& configuration) {
    const ManagerHandle manager = ManagerHolding(configuration, "");
    TemporaryFile file(TemporaryFolder(), "zeltcfg");
    return SaveThroughLibrary(*manager, file, "temporary file " + file.path());
}

bool SaveDocument(Document& document) {
    if (document.argument == kStandardInput) {
        PrintOutput(WriteConfigurationText(*document.configuration) + "\n");
        return true;
    }
    if (document.configuration->WriteToJSONMgr(document.manager.get(), nullptr, 1) != ZELT_SUCCESS)
        throw Failure(kExitInvalid, document.name +
                                        ": the library could not write the "
                                        "configuration; the file is unchanged");
    FileReplacement replacement(document.argument, document.name);
    const std::string text =
        SaveThroughLibrary(*document.manager, replacement.file(), document.name);
    if (text == document.text) return false;
    replacement.Commit();
    return true;
}

bool SaveChangedDocument(Document& document) {
    WarnOfDroppedMembers(document);
    return SaveDocument(document);
}

void WriteConfigurationFile(VextorJSConfig::IVextorJSConfig& configuration,
                            const std::string& argument) {
    if (argument == kStandardInput) {
        PrintOutput(WriteConfigurationText(configuration) + "\n");
        return;
    }
    const ManagerHandle manager = ManagerHolding(configuration, argument + ": ");
    FileReplacement replacement(argument, argument, MissingFile::Made);
    SaveThroughLibrary(*manager, replacement.file(), argument);
    replacement.Commit();
}

}  // namespace zeltcfg
